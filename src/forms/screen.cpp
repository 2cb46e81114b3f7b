#include "forms/screen.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace velmora {

std::string Indexed(std::string_view name, int index) {
    std::string text(name);
    if (index == Row::kNoIndex) return text;
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), index).ptr;
    return text.append("(").append(digits.data(), end).append(")");
}

Screen::Screen(const Face& face, const Label& clock)
    : Caption(face.caption), face_(face), clock_(&clock) {}

std::string_view Screen::Name() const {
    static constexpr std::array<std::string_view, 6> kNames = {"Form1", "Form2", "Form3",
                                                               "Form4", "Form5", "Form6"};
    return kNames.at(static_cast<std::size_t>(face_.id) - 1);
}

std::string_view Screen::GuideSection() const {
    static constexpr std::array<std::string_view, 6> kSections = {
        "inicio",   "datos-de-la-empresa", "datos-iniciales-jornadas-y-tareas", "contaminantes",
        "cálculos", "resultado-final"};
    return kSections.at(static_cast<std::size_t>(face_.id) - 1);
}

const MenuEntry* Screen::FindEntry(std::string_view name) const {
    for (const MenuEntry& title : menu_) {
        if (title.name == name) return &title;
        const auto found = std::ranges::find(title.list, name, &MenuEntry::name);
        if (found != title.list.end()) return &*found;
    }
    return nullptr;
}

const MenuEntry* Screen::Exit() const {
    const auto found = std::ranges::find(menu_, true, &MenuEntry::ends_program);
    return found == menu_.end() ? nullptr : &*found;
}

const Control* Screen::FindControl(std::string_view name) const {
    const auto found = std::ranges::find(controls_, name, &Control::name);
    return found == controls_.end() ? nullptr : &*found;
}

void Screen::Add(const Row& row, Control::State state, Events events, std::string spoken) {
    if (spoken.empty()) spoken = row.spoken;
    controls_.push_back(
        {Indexed(row.name, row.index), row, state, std::move(events), std::move(spoken)});
}

void Screen::Place(TextCell& cell, const Row& row, Events events, std::string spoken) {
    cell.Text = row.text;
    Add(row, &cell, std::move(events), std::move(spoken));
}

void Screen::Place(ComboBox& list, const Row& row, Events events, std::string spoken) {
    list.Text = row.text;
    Add(row, &list, std::move(events), std::move(spoken));
}

void Screen::Place(Label& label, const Row& row, Events events) {
    label.Caption = row.text;
    Add(row, &label, std::move(events), {});
}

void Screen::Place(Button& button, const Row& row, Events events) {
    button.Caption = row.text;
    Add(row, &button, std::move(events), {});
}

void Screen::Place(const Picture& picture, const Row& row) { Add(row, picture, {}, {}); }

}  // namespace velmora
