#include <algorithm>
#include <array>
#include <ctime>
#include <iomanip>
#include <memory>

#include "app/screens.h"
#include "capture/form2.h"
#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"
#include "support/menus.h"
#include "support/messages.h"

namespace velmora::property {

namespace {

using enum ScreenId;
using namespace messages;
using Kind = Action::Kind;

// clang-format off
constexpr auto kBoxes = std::to_array<KnownBox>({
    {Form1, "salir",             kExit,                              MsgBoxStyle::YesNoInformation},
    {Form2, "salir",             kExit,                              MsgBoxStyle::YesNoInformationNo},
    {Form3, "salir",             kExit,                              MsgBoxStyle::YesNoInformationNo},
    {Form4, "salir",             kExit,                              MsgBoxStyle::YesNoInformation},
    {Form5, "salir",             kExit,                              MsgBoxStyle::YesNoInformation},
    {Form6, "salir",             kExit,                              MsgBoxStyle::YesNoInformation},
    {Form2, "imprimir",          kPrints[0].notice,                  MsgBoxStyle::YesNo},
    {Form3, "imprimir",          kPrints[1].notice,                  MsgBoxStyle::YesNo},
    {Form4, "imprimir",          kPrints[2].notice,                  MsgBoxStyle::YesNo},
    {Form5, "imprimir",          kPrints[3].notice,                  MsgBoxStyle::YesNo},
    {Form6, "imprimir",          kPrints[4].notice,                  MsgBoxStyle::YesNo},
    {Form2, "datosiniciales",    kNoName,                            MsgBoxStyle::Ok},
    {Form2, "contaminantes",     kNoName,                            MsgBoxStyle::Ok},
    {Form2, "calculos",          kNoName,                            MsgBoxStyle::Ok},
    {Form2, "resulatadofinal",   kNoName,                            MsgBoxStyle::Ok},
    {Form2, "Regresar",          kGoBack,                            MsgBoxStyle::YesNoInformationNo},
    {Form3, "contaminantes",     kIncompletePlan,                    MsgBoxStyle::YesNoInformationNo},
    {Form3, "pagina5",           kIncompletePlan,                    MsgBoxStyle::YesNoInformationNo},
    {Form3, "resultadofinal",    kIncompletePlan,                    MsgBoxStyle::YesNoInformationNo},
    {Form3, "Combo1(0)",         kRestart,                           MsgBoxStyle::YesNoQuestionNo, "Aviso"},
    {Form3, "Combo1(1)",         kRestart,                           MsgBoxStyle::YesNoQuestionNo, "Aviso"},
    {Form3, "Combo1(6)",         kSumAboveSix,                       MsgBoxStyle::Ok},
    {Form3, "Command1",          kNoPick,                            MsgBoxStyle::Ok},
    {Form3, "Command2",          kEntryIncomplete,                   MsgBoxStyle::Ok},
    {Form3, "Command2",          kEntryIncoherent,                   MsgBoxStyle::Ok},
    {Form3, "Command2",          kSumDiffers,                        MsgBoxStyle::Ok},
    {Form4, "Combo1",            kTaskAboveOnPick,                   MsgBoxStyle::Ok},
    {Form4, "Command1",          kNoTask,                            MsgBoxStyle::Ok},
    {Form4, "Command1",          kTaskAbove,                         MsgBoxStyle::Ok},
    {Form4, "Command1",          kRowsIncomplete,                    MsgBoxStyle::Ok},
    {Form4, "Command3",          kNoTask,                            MsgBoxStyle::Ok},
    {Form4, "Command3",          kTaskAbove,                         MsgBoxStyle::Ok},
    {Form5, "introprimero",      kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "introsegundo",      kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "introtercero",      kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "recupprimerdia",    kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "recupsegundodia",   kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "recuptercerdia",    kIncoherentDay,                     MsgBoxStyle::Ok},
    {Form5, "Command1",          kNoLimits,                          MsgBoxStyle::Ok},
    {Form5, "Command2",          kNoLimits,                          MsgBoxStyle::Ok},
    {Form5, "Command3",          kNoLimits,                          MsgBoxStyle::Ok},
    {Form5, "Command1",          kNoData,                            MsgBoxStyle::Ok},
    {Form5, "Command2",          kNoDataOfLaterTask,                 MsgBoxStyle::Ok},
    {Form5, "Command3",          kNoDataOfLaterTask,                 MsgBoxStyle::Ok},
    {Form5, "Command1",          kFewSamples,                        MsgBoxStyle::Ok},
    {Form5, "Command2",          kFewSamples,                        MsgBoxStyle::Ok},
    {Form5, "Command3",          kFewSamples,                        MsgBoxStyle::Ok},
    {Form5, "Command1",          kNoGaps,                            MsgBoxStyle::Ok},
    {Form5, "Command2",          kNoGaps,                            MsgBoxStyle::Ok},
    {Form5, "Command3",          kNoGaps,                            MsgBoxStyle::Ok},
});

/// Where an entry of a menu leads.
struct Way {
    ScreenId from;
    std::string_view entry;
    ScreenId to;
};

constexpr auto kWays = std::to_array<Way>({
    {Form1, "Nuevaempresa",      Form2},
    {Form2, "datosiniciales",    Form3},
    {Form2, "contaminantes",     Form4},
    {Form2, "calculos",          Form5},
    {Form2, "resulatadofinal",   Form6},
    {Form2, "Regresar",          Form1},
    {Form3, "contaminantes",     Form4},
    {Form3, "pagina5",           Form5},
    {Form3, "resultadofinal",    Form6},
    {Form3, "datosdeempresa",    Form2},
    {Form4, "pagina5",           Form5},
    {Form4, "datosiniciales",    Form3},
    {Form4, "datosdeempresa",    Form2},
    {Form4, "resultadosfinales", Form6},
    {Form5, "datosiniciales",    Form3},
    {Form5, "contaminantes",     Form4},
    {Form5, "resultadosfinales", Form6},
    {Form5, "datosempresa",      Form2},
    {Form6, "regresar",          Form5},
    {Form6, "calculos",          Form5},
    {Form6, "contaminantes",     Form4},
    {Form6, "datosiniciales",    Form3},
    {Form6, "datosdeempresa",    Form2},
});

/// The window's captions, but for those of the sheet's days.
constexpr std::array<std::string_view, 6> kCaptions = {
    ".     Velmora / h1",
    "     Velmora / h2",
    "    Velmora / h3",
    " Velmora / h4",
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ",
    " Velmora / h6",
};

constexpr auto kDayCaptions = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"introprimero",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA "},
    {"introsegundo",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA"},
    {"introtercero",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA"},
    {"recupprimerdia",  "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA "},
    {"recupsegundodia", "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA"},
    {"recuptercerdia",  "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA"},
});

// clang-format on

bool IsKnown(const Step& s, const ShownBox& box) {
    return std::ranges::any_of(kBoxes, [&](const KnownBox& known) {
        const bool prints = known.cause == "imprimir";
        const std::string prompt = prints ? PrintQuestion(known.prompt) : std::string(known.prompt);
        return known.screen == s.before.Id() && known.cause == s.action.target &&
               prompt == box.prompt && known.style == box.style && known.title == box.title;
    });
}

Verdict AnActionShowsAtMostOneBox(const Step& s) {
    if (s.outcome.boxes.empty()) return Verdict::PassedOver();
    if (s.outcome.boxes.size() == 1) return Verdict::Holds();
    return Verdict::Broken(s.outcome.boxes.size(), " boxes");
}

Verdict EveryBoxIsOneOfItsScreen(const Step& s) {
    if (s.outcome.boxes.empty()) return Verdict::PassedOver();
    for (const ShownBox& box : s.outcome.boxes) {
        if (!IsKnown(s, box)) return Verdict::Broken("a box of its own: \"", box.prompt, "\"");
    }
    return Verdict::Holds();
}

/// Whether the plan that `Form3` shows lacks something, by the rules of the screen's guard.
bool PlanIsIncomplete(const Step& s) {
    const EvaluacionRecord& record = s.record_before;
    const int days = record.NumJornadas.Value();
    const int tasks = record.NumTareas.Value();
    if (days == 0 || tasks == 0) return true;
    const auto Text1 = s.before.Cells("Text1");
    for (int i = 0; i < days * tasks * 6; ++i) {
        if (Text1(i).Text.empty()) return true;
    }
    return days > 0 && tasks > 0 && record.TiempoExposicion(days, tasks) == 0;
}

/// Whether an entry that leads elsewhere leads there this time.
bool WayIsOpen(const Step& s) {
    const bool yes = s.action.answer != MsgBoxAnswer::No;
    const std::string& entry = s.action.target;
    if (entry == "Regresar") return yes;
    if (s.before.Id() == Form2) return !s.before.Cells("Text1")(1).Text.empty();
    if (s.before.Id() == Form3 && entry != "datosdeempresa") return !PlanIsIncomplete(s) || yes;
    return true;
}

Verdict AMoveGoesWhereItsEntryLeads(const Step& s) {
    if (!s.Lives()) return Verdict::PassedOver();
    const auto way =
        std::ranges::find_if(kWays, [&](const Way& w) { return s.Chose(w.from, w.entry); });
    if (way == kWays.end()) {
        return s.Moved() ? Verdict::Broken("it moved to ", s.after.Caption()) : Verdict::Holds();
    }
    const ScreenId due = WayIsOpen(s) ? way->to : way->from;
    if (s.after.Id() == due) return Verdict::Holds();
    return Verdict::Broken("it is on ", s.after.Caption());
}

Verdict AGuardAsksExactlyWhenItMust(const Step& s) {
    if (s.action.kind != Kind::Choose || !s.Lives()) return Verdict::PassedOver();
    const std::string& entry = s.action.target;
    bool due = false;
    if (s.before.Id() == Form2 && entry.substr(0, 4) != "recu" && entry != "Regresar" &&
        entry != "imprimir" && entry != "salir") {
        due = s.before.Cells("Text1")(1).Text.empty();
    } else if (s.before.Id() == Form3 &&
               (entry == "contaminantes" || entry == "pagina5" || entry == "resultadofinal")) {
        due = PlanIsIncomplete(s);
    } else {
        return Verdict::PassedOver();
    }
    if (due != s.outcome.boxes.empty()) return Verdict::Holds();
    return Verdict::Broken(due ? "it didn't ask" : "it asked");
}

/// The screen as it opens over this record, by a program that has just been started.
Screenshot FreshScreen(ScreenId id, const EvaluacionRecord& record, const Step& s) {
    Process fresh(s.folder);
    fresh.record = record;
    fresh.Open(id);
    if (s.Chose(Form3, "datosdeempresa")) {  // the boxes are filled even without a company's name
        auto& form2 = dynamic_cast<velmora::Form2&>(fresh.Current());
        for (int i = 1; i <= 19; ++i) form2.Text1(i).Text = record.DatosEmpresa(i);
    }
    Screenshot shown;
    shown.Take(fresh.Current());
    return shown;
}

Verdict TheRecordIsAllThatSurvivesAMove(const Step& s) {
    if (!s.Moved() || !s.Lives()) return Verdict::PassedOver();
    const Screenshot fresh = FreshScreen(s.after.Id(), s.record_after, s);
    if (fresh == s.after) return Verdict::Holds();
    return Verdict::Broken("unlike a fresh screen in ", fresh.DifferencesFrom(s.after).front());
}

Verdict AMoveMakesOneScreenAndNothingElseDoes(const Step& s) {
    if (!s.Lives()) return Verdict::PassedOver();
    if (s.outcome.screens_made == (s.Moved() ? 1 : 0)) return Verdict::Holds();
    return Verdict::Broken(s.outcome.screens_made, " screens made");
}

bool IsButtonThatChanges(const Step& s, std::size_t i) {
    return s.after.Id() == Form3 && s.after.NameAt(i) == "Command1";
}

Verdict CaptionsStandAsLaidOut(const Step& s) {
    if (s.action.kind == Kind::Key || s.action.kind == Kind::Write) return Verdict::PassedOver();
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        const std::string_view laid_out = s.after.RowAt(i).text;
        if (const auto* const label = std::get_if<Label>(&s.after.At(i))) {
            if (!s.after.IsClock(i) && label->Caption != laid_out) {
                return Verdict::Broken(s.after.NameAt(i), " reads \"", label->Caption, "\"");
            }
        } else if (const auto* const button = std::get_if<Button>(&s.after.At(i))) {
            const bool other = IsButtonThatChanges(s, i) && button->Caption == " NO OPERATIVO";
            if (!other && button->Caption != laid_out) {
                return Verdict::Broken(s.after.NameAt(i), " reads \"", button->Caption, "\"");
            }
        }
    }
    return Verdict::Holds();
}

Verdict TheWindowsCaptionIsThatOfTheScreen(const Step& s) {
    if (!s.Lives()) return Verdict::PassedOver();
    std::string_view due = s.Moved() ? kCaptions.at(static_cast<std::size_t>(s.after.Id()) - 1)
                                     : std::string_view(s.before.Caption());
    for (const auto& [entry, caption] : kDayCaptions) {
        if (s.Chose(Form5, entry)) due = caption;
    }
    if (s.after.Caption() == due) return Verdict::Holds();
    return Verdict::Broken("it is \"", s.after.Caption(), "\"");
}

std::string ClockAt(const std::tm& now) {
    std::ostringstream text;
    text << std::put_time(&now, "%d:%m:%y     %H:%M:%S");
    return text.str();
}

Verdict TheClockShowsTheTimeOfItsLastTick(const Step& s) {
    if (s.action.kind == Kind::Tick) {
        if (s.after.Clock() == ClockAt(s.now)) return Verdict::Holds();
        return Verdict::Broken("it shows \"", s.after.Clock(), "\"");
    }
    const std::string& due = s.Moved() ? "" : s.before.Clock();
    if (s.after.Clock() == due) return Verdict::Holds();
    return Verdict::Broken("it shows \"", s.after.Clock(), "\" without a tick");
}

Verdict ATickTouchesTheClockAlone(const Step& s) {
    if (s.action.kind != Kind::Tick) return Verdict::PassedOver();
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        if (!s.after.IsClock(i) && s.after.At(i) != s.before.At(i)) {
            return Verdict::Broken(s.after.NameAt(i), " changed");
        }
    }
    return s.after.Caption() == s.before.Caption() ? Verdict::Holds()
                                                   : Verdict::Broken("the caption changed");
}

Verdict PrintingPrintsOnceOnYesAndChangesNothing(const Step& s) {
    const bool chosen = s.action.kind == Kind::Choose && s.action.target == "imprimir";
    const int due = chosen && s.action.answer != MsgBoxAnswer::No ? 1 : 0;
    const std::vector<CommonDialog>& dialogs = s.outcome.print_dialogs;
    if (s.outcome.prints != due || static_cast<int>(dialogs.size()) != due) {
        return Verdict::Broken(s.outcome.prints, " prints and ", dialogs.size(), " dialogs");
    }
    if (!chosen) return Verdict::PassedOver();
    if (!(s.after == s.before)) return Verdict::Broken("the screen changed");
    if (due == 0) return Verdict::Holds();
    const Print& print = kPrints.at(static_cast<std::size_t>(s.before.Id()) - 2);
    const CommonDialog& dialog = dialogs.front();
    if (dialog.FromPage != print.first_page || dialog.ToPage != print.last_page)
        return Verdict::Broken("other pages");
    return dialog.Flags == 524288 ? Verdict::Holds() : Verdict::Broken("flags ", dialog.Flags);
}

Verdict MenusStandAsTheyWere(const Step& s) {
    if (!s.menu) return Verdict::PassedOver();
    const std::string_view due = MenuOf(s.after.Id());
    return s.menu == due ? Verdict::Holds() : Verdict::Broken("it is ", *s.menu);
}

Verdict AKeyChangesTheTextOfItsCellAlone(const Step& s) {
    if (s.action.kind != Kind::Key) return Verdict::PassedOver();
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        Shown due = s.before.At(i);
        auto* const cell = std::get_if<TextCell>(&due);
        if (cell != nullptr && s.before.NameAt(i) == s.action.target) {
            cell->Text = std::get<TextCell>(s.after.At(i)).Text;
        }
        if (s.after.At(i) != due) return Verdict::Broken(s.after.NameAt(i), " changed");
    }
    return Verdict::Holds();
}

Verdict TypingAndPickingInAListLeaveTheRestOfTheScreen(const Step& s) {
    const bool entry_list =
        s.before.Id() == Form3 && s.action.target != "Combo1(0)" && s.action.target != "Combo1(1)";
    const bool unit = s.before.Id() == Form4 && s.action.target.starts_with("Combo13");
    const bool alone = s.action.kind == Kind::Write || s.action.kind == Kind::DoubleClick ||
                       (s.action.kind == Kind::Pick && (entry_list || unit));
    if (!alone) return Verdict::PassedOver();
    for (const std::string& name : s.after.DifferencesFrom(s.before)) {
        if (name != s.action.target) return Verdict::Broken(name, " changed");
    }
    return Verdict::Holds();
}

Verdict AListHoldsNothingOrOneOfItsItems(const Step& s) {
    if (!s.own_after || s.action.kind == Kind::Key) return Verdict::PassedOver();
    bool any = false;
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        const auto* const list = std::get_if<ComboBox>(&s.after.At(i));
        if (list == nullptr) continue;
        any = true;
        const auto items = s.after.RowAt(i).items;
        if (!list->Text.empty() && std::ranges::find(items, list->Text) == items.end()) {
            return Verdict::Broken(s.after.NameAt(i), " holds \"", list->Text, "\"");
        }
    }
    return any ? Verdict::Holds() : Verdict::PassedOver();
}

}  // namespace

const std::vector<Invariant> kScreenInvariants = {
    {"An action shows at most one box.", AnActionShowsAtMostOneBox},
    {"Every box is one of its screen's, with its text, style and title.", EveryBoxIsOneOfItsScreen},
    {"A move goes where its entry leads, past its guard, and nothing else moves.",
     AMoveGoesWhereItsEntryLeads},
    {"A guard asks exactly when the company's name or a part of the plan is missing.",
     AGuardAsksExactlyWhenItMust},
    {"All that survives a move is the record.", TheRecordIsAllThatSurvivesAMove},
    {"A move makes one screen, and nothing else makes any.", AMoveMakesOneScreenAndNothingElseDoes},
    {"Labels and buttons keep the captions that they were laid out with.", CaptionsStandAsLaidOut},
    {"The window's caption is that of the screen, and of the day last picked.",
     TheWindowsCaptionIsThatOfTheScreen},
    {"The clock shows day, month, year and time of its last tick.",
     TheClockShowsTheTimeOfItsLastTick},
    {"A tick touches the clock and nothing else.", ATickTouchesTheClockAlone},
    {"Printing happens once on a Yes, with the screen's pages, and changes nothing.",
     PrintingPrintsOnceOnYesAndChangesNothing},
    {"The menu bars stand as they were told, whatever has been done.", MenusStandAsTheyWere},
    {"A key changes the text of its own cell alone.", AKeyChangesTheTextOfItsCellAlone},
    {"Writing in a cell, or picking in a list of a row, leaves the rest of the screen.",
     TypingAndPickingInAListLeaveTheRestOfTheScreen},
    {"A list holds nothing or one of its items.", AListHoldsNothingOrOneOfItsItems},
};
std::span<const KnownBox> KnownBoxes() { return kBoxes; }

}  // namespace velmora::property
