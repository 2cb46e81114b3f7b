#include "fuzz/route.h"

#include "fuzz/check.h"
#include "support/menus.h"

namespace velmora::fuzz {

using property::Action;
using Kind = Action::Kind;

Route& Route::Work(std::uint8_t which, std::uint8_t what) {
    Do(Deed{Deed::Kind::Work, which, what});
    return *this;
}

Route& Route::Choose(std::string_view entry, MsgBoxAnswer answer, std::optional<std::string> file) {
    Do({{.kind = Kind::Choose,
         .target = std::string(entry),
         .answer = answer,
         .file = std::move(file)}});
    return *this;
}

Route& Route::Press(std::string_view button) {
    Do({{.kind = Kind::Press, .target = std::string(button)}});
    return *this;
}

Route& Route::Pick(std::string_view list, std::string_view item, MsgBoxAnswer answer) {
    Do({{.kind = Kind::Pick,
         .target = std::string(list),
         .text = std::string(item),
         .answer = answer}});
    return *this;
}

Route& Route::Write(std::string_view cell, std::string_view text) {
    Do({{.kind = Kind::Write, .target = std::string(cell), .text = std::string(text)}});
    return *this;
}

Route& Route::Type(std::string_view cell, std::string_view keys) {
    std::vector<Action> actions;
    for (const char key : keys) {
        actions.push_back({.kind = Kind::Key, .target = std::string(cell), .number = key});
    }
    Do(actions);
    return *this;
}

Route& Route::DoubleClick(std::string_view cell) {
    Do({{.kind = Kind::DoubleClick, .target = std::string(cell)}});
    return *this;
}

void Route::Do(const std::vector<Action>& actions) {
    const auto deed = DeedOf(actions, program_.Current());
    Require(deed.has_value(), "a route takes what the screen offers",
            property::Describe(actions.front()), " on Form", static_cast<int>(Where()));
    Do(*deed);
}

void Route::Do(const Deed& deed) {
    deeds_.push_back(deed);
    for (const Action& action : ActionsOf(deed, program_.Current())) {
        if (!program_.Offers(action)) continue;
        Require(program_.Perform(action).Lives(), "a route doesn't end",
                property::Describe(action));
    }
}

namespace {

/// To the sheet, with a plan of one day and one task with three contaminants.
void GoToSheet(Route& route) {
    route.Work().Work().Work(0, 0);         // the company, and the plan's size
    route.Work(63, 2);                      // eight hours, three samples of 15 minutes
    route.Choose("contaminantes").Work(0);  // the task
    route.Work(6, 12).Choose("pagina5");    // its fields: the second and the third are a group
}

/// The same with a plan of three days and three tasks with two contaminants each.
void GoToSheetOfThreeDays(Route& route) {
    route.Work().Work().Work(1, 2);
    for (std::uint8_t day_and_task = 0; day_and_task < 9; ++day_and_task) {
        route.Work(day_and_task, 7);
    }
    route.Choose("contaminantes").Work(0).Work(3, 40);
    route.Pick("Combo1", "2").Work(0, 70).Pick("Combo1", "3").Work(1, 90).Choose("pagina5");
}

/// Adds the place that a route leads to.
template <class Lead>
void Add(std::vector<Start>& starts, Lead lead) {
    Route route;
    lead(route);
    starts.push_back({route.Deeds(), route.Where(), route.Record()});
}

std::vector<Start> AllStarts() {
    std::vector<Start> starts = {{{}, ScreenId::Form1, {}}};
    Add(starts, [](Route& route) { route.Work(); });
    Add(starts, [](Route& route) { route.Work().Work(); });
    Add(starts,
        [](Route& route) { route.Work().Work().Work(0, 0).Work(63, 2).Choose("contaminantes"); });
    Add(starts, GoToSheet);
    Add(starts, GoToSheetOfThreeDays);
    Add(starts, [](Route& route) {
        GoToSheet(route);
        route.Work(0).Work(2, 6).Choose("resultadosfinales");
    });
    Add(starts, [](Route& route) {
        GoToSheetOfThreeDays(route);
        for (const std::string_view day : kBeginDay) route.Choose(day).Work(2, 6);
        route.Choose("resultadosfinales");
    });
    return starts;
}

}  // namespace

const std::vector<Start>& Starts() {
    static const std::vector<Start> starts = AllStarts();
    return starts;
}

}  // namespace velmora::fuzz
