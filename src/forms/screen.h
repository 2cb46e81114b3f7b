#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/controls.h"
#include "forms/layout.h"

namespace velmora {

/// The six screens, of which one is shown at a time.
enum class ScreenId { Form1 = 1, Form2, Form3, Form4, Form5, Form6 };

/// The code of a key as a key filter sees it; a filter refuses the key by setting it to 0.
using KeyCode = int;

inline constexpr KeyCode kTeclaRechazada = 0;
inline constexpr KeyCode kRetroceso = 8;

constexpr bool EsCifra(KeyCode tecla) { return tecla >= '0' && tecla <= '9'; }

/// The handlers of one control's events; an event without a handler is empty.
struct Events {
    std::function<void()> Click{};             ///< a button pressed, an item picked
    std::function<void(KeyCode&)> KeyPress{};  ///< sees each character key before the control does
    std::function<void()> DblClick{};
    bool free_text = false;  ///< an ordinary text field: text comes in by other ways than keys, too
};

/// A picture of the screen, told apart by its name; it has no state.
struct Picture {};

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

    ScreenId Id() const { return id_; }
    /// "Form1" to "Form6".
    std::string_view Name() const;
    /// The name of the heading of the guide's section on this screen.
    std::string_view GuideSection() const;
    Box ClientArea() const { return client_area_; }
    const std::vector<Control>& Controls() const { return controls_; }
    const std::vector<MenuEntry>& Menu() const { return menu_; }
    const Label& Clock() const { return *clock_; }

    /// The entry of the menu bar or of one of its lists that bears this name, or null.
    const MenuEntry* FindEntry(std::string_view name) const;
    /// The control that bears this name, index included, or null.
    const Control* FindControl(std::string_view name) const;

    std::string Caption;  ///< of the window

    /// Set by a handler that has laid the screen out anew: the focus goes to the first control, and
    /// the window takes the wish back.
    bool LaidOutAnew = false;

protected:
    Screen(ScreenId id, std::string_view caption, Box client_area, const Label& clock);

    /// Puts a control on the screen as its row tells, its starting text included.
    void Place(TextCell& cell, const Row& row, Events events = {}, std::string spoken = {});
    void Place(ComboBox& list, const Row& row, Events events = {}, std::string spoken = {});
    void Place(Label& label, const Row& row);
    void Place(Button& button, const Row& row, std::function<void()> click);
    void Place(const Row& picture);

    void SetMenu(std::vector<MenuEntry> menu) { menu_ = std::move(menu); }

private:
    void Add(const Row& row, Control::State state, Events events, std::string spoken);

    ScreenId id_;
    Box client_area_;
    const Label* clock_;
    std::vector<Control> controls_;
    std::vector<MenuEntry> menu_;
};

/// A name with an index as the window and the tests spell it: "Text1(5)".
std::string Indexed(std::string_view name, int index);

}  // namespace velmora
