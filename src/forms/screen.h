#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "forms/controls.h"
#include "forms/key_filter.h"
#include "forms/layout.h"

namespace velmora {

/// The six screens, of which one is shown at a time.
enum class ScreenId { Form1 = 1, Form2, Form3, Form4, Form5, Form6 };

/// The handlers of one control's events; an event without a handler is empty.
struct Events {
    std::function<void()> Click{};             ///< a button pressed, an item picked
    std::function<void(KeyCode&)> KeyPress{};  ///< sees each character key before the control does
    std::function<void()> DblClick{};
    bool free_text = false;  ///< an ordinary text field: text comes in by other ways than keys, too
};

/// A picture of the screen, by the name of its drawing; it has no state.
struct Picture {
    std::string_view drawing{};
};

/// One control of a screen as the window sees it: the struct that the handlers work on, where and
/// how it was laid out, and its handlers.
struct Control {
    using State = std::variant<TextCell*, ComboBox*, Label*, Button*, Picture>;

    std::string name;  ///< with the index of an array's element: "Text1(5)"
    Row row;
    State state;
    Events events;
    std::string spoken;  ///< what a screen reader says; empty where the caption says it
};

/// An entry of a menu bar: it runs its handler, or opens its list, or is a spacer with neither.
struct MenuEntry {
    std::string_view name{};
    std::string_view caption{};  ///< empty for a spacer
    std::function<void()> Click{};
    std::vector<MenuEntry> list{};
    bool ends_program = false;  ///< what closing the window does, too
};

// The tables of a screen, of type Form: one row binds a member, its handler and its layout.

/// A control that stands alone, no element of an array.
template <class Form>
struct StandingControl {
    std::variant<Label Form::*, Button Form::*, TextCell Form::*, ComboBox Form::*> member;
    Row row;
    void (Form::*Click)() = nullptr;  ///< a button pressed, an item picked
    void (Form::*KeyPress)(KeyCode&) = nullptr;
};

/// An entry of a list of the menu bar.
template <class Form>
struct EntryRow {
    std::string_view name;
    std::string_view caption;
    void (Form::*Click)();
};

/// An entry of the menu bar and the spacers that stand ahead of it.
template <class Form>
struct BarRow {
    std::string_view spacers;  ///< names, set apart by blanks
    std::string_view name;
    std::string_view caption;
    void (Form::*Click)() = nullptr;
    std::span<const EntryRow<Form>> list{};
    bool ends_program = false;
};

/// A screen's number, and how its window is before it is used.
struct Face {
    ScreenId id;
    std::string_view caption;
    Box client_area;
    std::string_view background{};  ///< the name of the drawing behind the controls
};

/// A screen is plain data: its controls are structs, its handlers are member functions that read
/// and write those structs, and neither knows a toolkit. The window shows any screen.
class Screen {
public:
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    /// Runs once, when the screen is loaded.
    virtual void Form_Load() {}

    /// Sets the clock's caption; fires as fast as a timer of 1 millisecond runs.
    virtual void Timer1_Timer() = 0;

    ScreenId Id() const { return face_.id; }
    /// "Form1" to "Form6".
    std::string_view Name() const;
    /// The name of the heading of the guide's section on this screen.
    std::string_view GuideSection() const;
    Box ClientArea() const { return face_.client_area; }
    /// The name of the drawing behind the controls, empty for none.
    std::string_view Background() const { return face_.background; }
    const std::vector<Control>& Controls() const { return controls_; }
    const std::vector<MenuEntry>& Menu() const { return menu_; }
    const Label& Clock() const { return *clock_; }

    /// The entry of the menu bar or of one of its lists that bears this name, or null.
    const MenuEntry* FindEntry(std::string_view name) const;
    /// The entry that ends the program.
    const MenuEntry* Exit() const;
    /// The control that bears this name, index included, or null.
    const Control* FindControl(std::string_view name) const;

    std::string Caption;  ///< of the window

    /// Set by a handler that has laid the screen out anew: the focus goes to the first control, and
    /// the window takes the wish back.
    bool LaidOutAnew = false;

protected:
    Screen(const Face& face, const Label& clock);

    /// Puts a control on the screen as its row tells, its starting text included.
    void Place(TextCell& cell, const Row& row, Events events = {}, std::string spoken = {});
    void Place(ComboBox& list, const Row& row, Events events = {}, std::string spoken = {});
    void Place(Label& label, const Row& row, Events events = {});
    void Place(Button& button, const Row& row, Events events);
    void Place(const Picture& picture, const Row& row);
    template <class Form>
    void Place(const StandingControl<Form>& standing);
    template <class Form, std::size_t N>
    void Place(const std::array<StandingControl<Form>, N>& table) {
        for (const StandingControl<Form>& standing : table) Place(standing);
    }

    template <class Form>
    void SetMenu(std::initializer_list<BarRow<Form>> bar);

private:
    void Add(const Row& row, Control::State state, Events events, std::string spoken);

    /// A handler of this screen as the window calls it, empty for none.
    template <class Form, class... Arguments>
    std::function<void(Arguments...)> Bound(void (Form::*handler)(Arguments...)) {
        if (handler == nullptr) return {};
        return std::bind_front(handler, static_cast<Form*>(this));
    }

    Face face_;
    const Label* clock_;
    std::vector<Control> controls_;
    std::vector<MenuEntry> menu_;
};

template <class Form>
void Screen::Place(const StandingControl<Form>& standing) {
    auto& form = static_cast<Form&>(*this);
    const Events events{.Click = Bound(standing.Click), .KeyPress = Bound(standing.KeyPress)};
    std::visit([&](auto member) { Place(form.*member, standing.row, events); }, standing.member);
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): a std::function frees what it holds

template <class Form>
void Screen::SetMenu(std::initializer_list<BarRow<Form>> bar) {
    for (const BarRow<Form>& row : bar) {
        for (std::size_t from = 0, blank = 0; from < row.spacers.size(); from = blank + 1) {
            blank = std::min(row.spacers.find(' ', from), row.spacers.size());
            menu_.push_back({.name = row.spacers.substr(from, blank - from)});
        }
        MenuEntry& title = menu_.emplace_back(MenuEntry{.name = row.name,
                                                        .caption = row.caption,
                                                        .Click = Bound(row.Click),
                                                        .ends_program = row.ends_program});
        for (const EntryRow<Form>& listed : row.list) {
            title.list.push_back(
                {.name = listed.name, .caption = listed.caption, .Click = Bound(listed.Click)});
        }
    }
}

/// A name with an index as the window and the tests spell it: "Text1(5)".
std::string Indexed(std::string_view name, int index);

}  // namespace velmora
