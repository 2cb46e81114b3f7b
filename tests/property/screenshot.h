#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/screen.h"
#include "runtime/error.h"

namespace velmora::property {

/// What one control shows.
using Shown = std::variant<std::monostate, TextCell, ComboBox, Label, Button>;

/// Where each control of a screen stands among all of them; the same for every screen of a kind.
struct Places {
    std::vector<std::string> names;
    std::vector<Row> rows;
    /// Positions of an array's elements by index, of a single control at 0; -1 where there is none.
    std::map<std::string, std::vector<int>, std::less<>> arrays;
};

const Places& PlacesOf(const Screen& screen);

/// An array of controls in a screenshot. A missing element throws as in the program.
template <class T>
class Elements {
public:
    Elements(const std::vector<Shown>& shown, const std::vector<int>& positions)
        : shown_(&shown), positions_(&positions) {}

    const T& operator()(int index) const {
        if (index < 0 || index >= static_cast<int>(positions_->size()) ||
            (*positions_)[static_cast<std::size_t>(index)] < 0) {
            throw ErrorEjecucion(ErrorKind::SubscriptOutOfRange);
        }
        const int position = (*positions_)[static_cast<std::size_t>(index)];
        return std::get<T>((*shown_)[static_cast<std::size_t>(position)]);
    }

private:
    const std::vector<Shown>* shown_;
    const std::vector<int>* positions_;
};

/// Everything that a screen shows at one moment, and the day that the sheet is on.
class Screenshot {
public:
    void Take(const Screen& screen);
    /// Makes a screen of the same kind show this.
    void GiveTo(Screen& screen) const;

    ScreenId Id() const { return id_; }
    const std::string& Caption() const { return caption_; }
    /// `DiaActual` of the sheet, 0 on the other screens.
    int Day() const { return day_; }
    /// The name that the screen's file dialog holds.
    const std::string& DialogFile() const { return dialog_file_; }

    template <class T>
    Elements<T> Array(std::string_view name) const {
        return {shown_, places_->arrays.find(name)->second};
    }
    Elements<TextCell> Cells(std::string_view name) const { return Array<TextCell>(name); }
    const TextCell& Cell(std::string_view name) const { return Array<TextCell>(name)(0); }
    const ComboBox& List(std::string_view name, int index = 0) const {
        return Array<ComboBox>(name)(index);
    }
    const Label& LabelOf(std::string_view name, int index = 0) const {
        return Array<Label>(name)(index);
    }
    const Button& ButtonOf(std::string_view name) const { return Array<Button>(name)(0); }
    /// The clock's caption.
    const std::string& Clock() const { return std::get<Label>(shown_[clock_]).Caption; }

    std::size_t Size() const { return shown_.size(); }
    const Shown& At(std::size_t position) const { return shown_[position]; }
    const std::string& NameAt(std::size_t position) const { return places_->names[position]; }
    const Row& RowAt(std::size_t position) const { return places_->rows[position]; }
    bool IsClock(std::size_t position) const { return position == clock_; }

    /// Names of the controls that differ from those of a screenshot of the same screen.
    std::vector<std::string> DifferencesFrom(const Screenshot& other) const;

    friend bool operator==(const Screenshot& a, const Screenshot& b) {
        return a.id_ == b.id_ && a.caption_ == b.caption_ && a.day_ == b.day_ &&
               a.dialog_file_ == b.dialog_file_ && a.shown_ == b.shown_;
    }

private:
    ScreenId id_ = ScreenId::Form1;
    std::string caption_;
    int day_ = 0;
    std::string dialog_file_;
    std::size_t clock_ = 0;
    std::vector<Shown> shown_;
    const Places* places_ = nullptr;
};

}  // namespace velmora::property
