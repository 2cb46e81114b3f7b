#include "property/screenshot.h"

#include <algorithm>
#include <array>
#include <memory>

#include "capture/form2.h"
#include "capture/form3.h"
#include "capture/form4.h"
#include "final/form6.h"
#include "sheet/form5.h"

namespace velmora::property {

namespace {

std::unique_ptr<Places> FindPlaces(const Screen& screen) {
    auto places = std::make_unique<Places>();
    for (const Control& control : screen.Controls()) {
        std::vector<int>& positions = places->arrays[std::string(control.row.name)];
        const auto index = static_cast<std::size_t>(std::max(control.row.index, 0));
        if (positions.size() <= index) positions.resize(index + 1, -1);
        positions[index] = static_cast<int>(places->names.size());
        places->names.push_back(control.name);
        places->rows.push_back(control.row);
    }
    return places;
}

/// Calls `visit` with the screen as what it is, if it has a file dialog.
template <class AnyScreen, class Visit>
void WithDialog(AnyScreen& screen, Visit visit) {
    const auto as = [&]<class Form>(Form* form) {
        if (form != nullptr) visit(form->CommonDialog1);
    };
    constexpr bool kConst = std::is_const_v<AnyScreen>;
    as(dynamic_cast<std::conditional_t<kConst, const Form2, Form2>*>(&screen));
    as(dynamic_cast<std::conditional_t<kConst, const Form6, Form6>*>(&screen));
}

}  // namespace

const Places& PlacesOf(const Screen& screen) {
    static std::array<std::unique_ptr<Places>, 6> known;
    std::unique_ptr<Places>& places = known.at(static_cast<std::size_t>(screen.Id()) - 1);
    if (!places) places = FindPlaces(screen);
    return *places;
}

void Screenshot::Take(const Screen& screen) {
    id_ = screen.Id();
    caption_ = screen.Caption;
    places_ = &PlacesOf(screen);
    const auto* const sheet = dynamic_cast<const Form5*>(&screen);
    day_ = sheet == nullptr ? 0 : sheet->DiaActual.Value();
    dialog_file_.clear();
    WithDialog(screen, [this](const CommonDialog& dialog) { dialog_file_ = dialog.FileName; });

    const std::vector<Control>& controls = screen.Controls();
    shown_.resize(controls.size());
    for (std::size_t i = 0; i < controls.size(); ++i) {
        std::visit(
            [&](const auto& held) {
                if constexpr (std::is_pointer_v<std::decay_t<decltype(held)>>) {
                    shown_[i] = *held;
                    if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Label*>) {
                        if (held == &screen.Clock()) clock_ = i;
                    }
                } else {
                    shown_[i] = std::monostate{};
                }
            },
            controls[i].state);
    }
}

void Screenshot::GiveTo(Screen& screen) const {
    screen.Caption = caption_;
    if (auto* const sheet = dynamic_cast<Form5*>(&screen)) sheet->DiaActual = day_;
    WithDialog(screen, [this](CommonDialog& dialog) { dialog.FileName = dialog_file_; });
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        std::visit(
            [&](const auto& held) {
                using Held = std::decay_t<decltype(held)>;
                if constexpr (std::is_pointer_v<Held>) {
                    *held = std::get<std::remove_pointer_t<Held>>(shown_[i]);
                }
            },
            screen.Controls()[i].state);
    }
}

std::vector<std::string> Screenshot::DifferencesFrom(const Screenshot& other) const {
    std::vector<std::string> names;
    if (caption_ != other.caption_) names.emplace_back("the window's caption");
    if (day_ != other.day_) names.emplace_back("DiaActual");
    if (dialog_file_ != other.dialog_file_) names.emplace_back("the dialog's file name");
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        if (shown_[i] != other.shown_[i]) names.push_back(NameAt(i));
    }
    return names;
}

}  // namespace velmora::property
