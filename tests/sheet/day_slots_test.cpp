#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/messages.h"
#include "support/sheet_test.h"

namespace velmora::test {
namespace {

constexpr std::string_view kFirstDayTitle =
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA ";
constexpr std::string_view kSecondDayTitle =
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA";
constexpr std::string_view kThirdDayTitle =
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA";

constexpr std::array<std::string_view, 8> kRestOfConclusions = {
    "Label1", "Label2", "Label4", "Text2", "Text4", "Text5", "Text6", "Text7"};

bool IsShown(const Form5& form, std::string_view name) {
    const Control* control = form.FindControl(name);
    return std::visit(
        [](const auto& state) {
            if constexpr (std::is_same_v<std::decay_t<decltype(state)>, Picture>)
                return true;
            else
                return state->Visible;
        },
        control->state);
}

/// Whether a button is visible and enabled (2), one of both (1), or neither (0).
int Openness(const Button& button) { return (button.Visible ? 1 : 0) + (button.Enabled ? 1 : 0); }

std::vector<int> OpenButtons(const Form5& form) {
    return {Openness(form.Command1), Openness(form.Command2), Openness(form.Command3),
            Openness(form.Command4), Openness(form.Command5), Openness(form.Command6),
            Openness(form.Command7), Openness(form.Command8)};
}

// ------------------------------------------------------------------------------------- the layout

struct Column {
    std::string_view heading;
    int left;
    int width;
};

// clang-format off
constexpr std::array<Column, 18> kColumns = {{
    {"Nº",            120,  255}, {"Contaminante",  360, 1335}, {"ED",      1680, 495},
    {"EC",           2160,  495}, {"Unid.",        2640,  495}, {"T.M.",    3120, 375},
    {"A+",           3480,  255}, {"C1",           3840,  495}, {"C2",      4320, 495},
    {"C3",           4800,  495}, {"C4",           5280,  495}, {"C5",      5760, 495},
    {"C6",           6240,  495}, {"MMP",          6840,  855}, {"Indice",  7680, 495},
    {"Indic.+",      8160,  615}, {"MG",           8760,  615}, {"GSD",     9360, 495},
}};
constexpr std::array<Column, 4> kColumns3 = {{
    {"EC+", 9960, 495}, {"MG+", 10440, 495}, {"GSD+", 10920, 495}, {"Prob.", 11400, 495},
}};
constexpr std::array<int, 18> kTops = { 840, 1080, 1320, 1560, 1800, 2040,
                                       3120, 3360, 3600, 3840, 4080, 4320,
                                       5400, 5640, 5880, 6120, 6360, 6600};
constexpr std::array<int, 3> kHeadingTops = {480, 2760, 5040};
constexpr std::array<int, 3> kTitleTops = {120, 2400, 4680};
constexpr std::array<std::string_view, 3> kTitles = {
    "Datos  relativos a la 1ª tarea", "Datos relativos a la 2ª tarea",
    "Datos relativos a la 3ª tarea"};

constexpr std::array<Placed, 17> kOthers = {{
    {"Command1", { 3840,  120, 4335, 255}, "Validar 1ª tarea"},
    {"Command2", { 3840, 2400, 6015, 255}, "Validar 2ª tarea"},
    {"Command3", { 3840, 4680, 6015, 255}, "Validar 3ª tarea"},
    {"Command4", { 8280,  120, 1575, 255}, "Indice+ / MG / GSD"},
    {"Command5", { 9960,  120, 1935, 255}, "EC+/MG+/GSD+/Prob."},
    {"Command6", { 9960, 2400, 1935, 255}, "EC+/MG+/GSD+/Prob."},
    {"Command7", { 9960, 4680, 1935, 255}, "EC+/MG+/GSD+/Prob."},
    {"Command8", { 4080, 7080, 7695, 255}, "Conclusiones referidas a la jornada en curso :     Validar"},
    {"Label1",   {  120, 7080, 3255, 255}, "¿Se ha superado   3 x VLA-ED  o    VLA-EC ?"},
    {"Text7",    { 3360, 7080,  615, 285}, ""},
    {"Label2",   {  120, 7440, 3255, 255}, "Mayor indice calculado: simple y aditivo"},
    {"Text2",    { 3360, 7440,  615, 285}, ""},
    {"Text5",    { 4080, 7440, 7695, 285}, ""},
    {"Label4",   {  120, 7800, 3255, 255}, "Probabilidad de superar corta exposición:"},
    {"Text4",    { 3360, 7800,  615, 285}, ""},
    {"Text6",    { 4080, 7800, 7695, 285}, ""},
    {"Label5",   { 9840, 8160, 2535, 255}, ""},
}};
// clang-format on

class SheetLayoutTest : public SheetTest {
protected:
    const Look& LookOf(const std::string& name) { return form.FindControl(name)->row.look; }
};

TEST_F(SheetLayoutTest, EachCellOfBothGridsStandsInItsColumnAndRow) {
    for (int row = 1; row <= 18; ++row) {
        const auto expect = [&](const std::string& cell, const Column& c) {
            ExpectPlace(Find(cell),
                        {c.left, kTops.at(static_cast<std::size_t>(row - 1)), c.width, 285});
        };
        for (int column = 0; const Column& c : kColumns) expect(Name(row, column++), c);
        for (int column = 0; const Column& c : kColumns3) expect(Name3(row, column++), c);
    }
}

TEST_F(SheetLayoutTest, EachNameIsThatOfTheCellWithItsIndex) {
    for (int i = 0; i < 324; ++i) {
        EXPECT_EQ(std::get<TextCell*>(form.FindControl(Indexed("Text1", i))->state),
                  &form.Text1(i));
    }
    for (int i = 0; i < 72; ++i) {
        EXPECT_EQ(std::get<TextCell*>(form.FindControl(Indexed("Text3", i))->state),
                  &form.Text3(i));
    }
}

TEST_F(SheetLayoutTest, TheHeadingsOfBothGridsAreRepeatedForEachTask) {
    const auto expect = [this](std::string_view array, int task, const auto& columns) {
        int index = (task - 1) * static_cast<int>(columns.size());
        for (const Column& c : columns) {
            const int top = kHeadingTops.at(static_cast<std::size_t>(task - 1));
            const std::string name = Indexed(array, index++);
            ExpectPlaced(Find(name), {name, {c.left, top, c.width, 255}, c.heading});
        }
    };
    for (int task = 1; task <= 3; ++task) {
        expect("Label7", task, kColumns);
        expect("Label3", task, kColumns3);
    }
}

TEST_F(SheetLayoutTest, TheTaskTitlesAreTheLastOfTheirArrayAndOnlyTheFirstHasTwoBlanks) {
    for (int task = 1; task <= 3; ++task) {
        const auto place = static_cast<std::size_t>(task - 1);
        EXPECT_EQ(form.Label7(53 + task).Caption, kTitles.at(place));
        ExpectPlace(Find(Indexed("Label7", 53 + task)), {120, kTitleTops.at(place), 3615, 255});
    }
}

TEST_F(SheetLayoutTest, TheOtherControlsStandWhereTheyBelongWithTheirTexts) {
    for (const Placed& placed : kOthers) ExpectPlaced(Find(std::string(placed.name)), placed);
}

TEST_F(SheetLayoutTest, AnElementThatAnArrayOfControlsLacksIsASubscriptError) {
    const auto expect_bounds = [](auto& controls, int last) {
        EXPECT_NO_THROW(controls(0));
        EXPECT_NO_THROW(controls(last));
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { controls(-1); });
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { controls(last + 1); });
    };
    expect_bounds(form.Text1, 323);
    expect_bounds(form.Text3, 71);
    expect_bounds(form.Label7, 56);
    expect_bounds(form.Label3, 11);
}

TEST_F(SheetLayoutTest, NothingElseStandsOnTheSheet) {
    EXPECT_EQ(form.Controls().size(), 324U + 72U + 57U + 12U + kOthers.size());
}

TEST_F(SheetLayoutTest, TheHeadingsOfTheMeasurementsAreWhiteOnRed) {
    for (int task = 1; task <= 3; ++task) {
        for (int column = kC1; column <= kC6; ++column) {
            const Look& look = LookOf(Indexed("Label7", (task - 1) * 18 + column));
            EXPECT_EQ(look.fore, 0xFFFFFFU);
            const Color red = look.back & 0xFFU;  // the low byte
            EXPECT_GE(red, 0x80U);
            EXPECT_LE(look.back >> 8U & 0xFFU, red / 4);
            EXPECT_LE(look.back >> 16U & 0xFFU, red / 4);
            EXPECT_EQ(look.back >> 24U, 0U) << "no system colour";
        }
    }
}

TEST_F(SheetLayoutTest, TheOtherHeadingsAreDarkOnPaleColours) {
    const auto brightness = [](Color color) {
        if (color == kWindowText) return 0U;
        if (color == kWindowBackground) return 255U;
        return (299U * (color & 0xFFU) + 587U * (color >> 8U & 0xFFU) +
                114U * (color >> 16U & 0xFFU)) /
               1000U;
    };
    const auto expect_dark_on_pale = [&](const std::string& name) {
        const Look& look = LookOf(name);
        EXPECT_NE(look.back, Look::kTransparent) << name;
        EXPECT_LT(brightness(look.fore), 110U) << name;
        EXPECT_GT(brightness(look.back), 180U) << name;
    };
    for (int i = 0; i < 57; ++i) {
        const bool measurement = i < 54 && i % 18 >= kC1 && i % 18 <= kC6;
        if (!measurement) expect_dark_on_pale(Indexed("Label7", i));
    }
    for (int i = 0; i < 12; ++i) expect_dark_on_pale(Indexed("Label3", i));
}

TEST_F(SheetLayoutTest, TabRunsThroughTheMeasurementsRowByRowAndOnlyThenThroughTheLockedColumns) {
    std::vector<std::pair<int, std::string>> stops;
    for (int i = 0; i < 324; ++i) {
        const std::string name = Indexed("Text1", i);
        const int tab = form.FindControl(name)->row.tab;
        ASSERT_NE(tab, kNoTab) << name;
        stops.emplace_back(tab, name);
    }
    std::ranges::sort(stops);
    std::size_t next = 0;
    for (int row = 1; row <= 18; ++row) {
        for (int column = kC1; column <= kC6; ++column) {
            EXPECT_EQ(stops[next++].second, Name(row, column));
        }
    }
    for (; next < stops.size(); ++next) {
        EXPECT_GT(stops[next].first, stops[107].first) << stops[next].second;
    }
}

TEST_F(SheetLayoutTest, NoTwoControlsShareAPlaceInTheTabOrder) {
    std::vector<int> tabs;
    for (const Control& control : form.Controls()) {
        if (control.row.tab != kNoTab) tabs.push_back(control.row.tab);
    }
    std::ranges::sort(tabs);
    EXPECT_EQ(std::ranges::adjacent_find(tabs), tabs.end());
}

// A screen reader has no headings to look up at: each cell says its task, its contaminant and what
// it holds.

// clang-format off
constexpr std::array<std::string_view, 18> kSpokenColumns = {
    "número", "nombre del contaminante", "VLA-ED", "VLA-EC", "unidades", "tiempo de muestreo",
    "grupo aditivo", "muestra C1", "muestra C2", "muestra C3", "muestra C4", "muestra C5",
    "muestra C6", "media estimada MMP", "índice", "índice aditivo", "media geométrica MG",
    "desviación geométrica GSD"};

constexpr std::array<std::string_view, 4> kSpokenColumns3 = {
    "límite de corta exposición EC+", "media geométrica MG+", "desviación geométrica GSD+",
    "probabilidad"};

struct Spoken {
    std::string_view name;
    std::string_view words;
};

constexpr std::array kSpokenOthers = {
    Spoken{"Command5", "EC+, MG+, GSD+ y probabilidad de la 1ª tarea"},
    Spoken{"Command6", "EC+, MG+, GSD+ y probabilidad de la 2ª tarea"},
    Spoken{"Command7", "EC+, MG+, GSD+ y probabilidad de la 3ª tarea"},
    Spoken{"Text7",    "¿Se ha superado 3 x VLA-ED o VLA-EC?"},
    Spoken{"Text2",    "Mayor índice calculado, simple y aditivo"},
    Spoken{"Text5",    "Conclusión sobre el índice"},
    Spoken{"Text4",    "Probabilidad de superar corta exposición"},
    Spoken{"Text6",    "Conclusión sobre la probabilidad"},
};
// clang-format on

TEST_F(SheetLayoutTest, EachCellIsSpokenByItsTaskItsContaminantAndItsColumn) {
    for (int row = 1; row <= 18; ++row) {
        const std::string place =
            "Tarea " + Digits((row + 5) / 6) + ", contaminante " + Digits((row - 1) % 6 + 1) + ", ";
        for (int column = 0; column < 18; ++column) {
            EXPECT_EQ(form.FindControl(Name(row, column))->spoken,
                      place + std::string(kSpokenColumns.at(static_cast<std::size_t>(column))));
        }
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(form.FindControl(Name3(row, column))->spoken,
                      place + std::string(kSpokenColumns3.at(static_cast<std::size_t>(column))));
        }
    }
}

TEST_F(SheetLayoutTest, TheTwinButtonsAndTheAnswersAreSpokenByWhatTheyAreFor) {
    for (const Spoken& spoken : kSpokenOthers) {
        EXPECT_EQ(form.FindControl(spoken.name)->spoken, spoken.words) << spoken.name;
    }
}

TEST_F(SheetLayoutTest, TheFiveAnswerCellsAreLockedFromTheStart) {
    for (const TextCell* cell : {&form.Text2, &form.Text4, &form.Text5, &form.Text6, &form.Text7}) {
        EXPECT_TRUE(cell->Locked);
    }
}

// -------------------------------------------------------------------------------- menu and moves

TEST_F(SheetTest, LeavingTheSheetAndComingBackBlanksItButTheSlotCanBeBroughtBack) {
    SetPlan(1, 1, 1);
    record.HojaPrimerDia(Index(1, kC1) + 1) = "12.5";
    Choose("recupprimerdia");
    ASSERT_EQ(form.Text1(kC1).Text, "12.5");
    Choose("datosempresa");
    auto& back = Open<Form5>(ScreenId::Form5);
    EXPECT_EQ(back.Text1(kC1).Text, "");
    EXPECT_FALSE(back.Text1(kC1).Visible);
    Choose("recupprimerdia");
    EXPECT_EQ(back.Text1(kC1).Text, "12.5");
    EXPECT_TRUE(back.Text1(kC1).Visible);
}

// ------------------------------------------------------------------------------- load and limpia

TEST_F(SheetTest, Load_SetsThePlainCaptionAndShowsNothingButTheClock) {
    EXPECT_EQ(form.Caption, "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ");
    for (const Control& control : form.Controls()) {
        if (control.name == "Label5") continue;
        EXPECT_FALSE(IsShown(form, control.name)) << control.name;
    }
    EXPECT_THAT(OpenButtons(form), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(SheetTest, Load_BlanksTheSheet) {
    Scribble();
    form.Form_Load();
    EXPECT_EQ(Cell(1, kC1).Text, "");
    EXPECT_FALSE(Cell(1, kC1).Visible);
    EXPECT_FALSE(form.Command8.Visible);
}

TEST_F(SheetTest, Load_ReadsNothingOfARecordWithAPlanAndADay) {
    SetPlan(3, 3, 6);
    record.HojaPrimerDia(1) = "1";
    auto& opened = Open<Form5>(ScreenId::Form5);
    EXPECT_FALSE(opened.Text1(0).Visible);
    EXPECT_EQ(opened.Text1(0).Text, "");
    EXPECT_EQ(opened.DiaActual, 0);
}

TEST_F(SheetTest, Limpia_HidesLocksAndEmptiesTheCellsOfBothGrids) {
    Scribble();
    form.limpia(1);
    // The colours stay as they are.
    const TextCell blank{
        .Text = "", .Visible = false, .Locked = true, .BackColor = 7, .ForeColor = 9};
    for (int i = 0; i < 324; ++i) EXPECT_EQ(form.Text1(i), blank) << i;
    for (int i = 0; i < 72; ++i) EXPECT_EQ(form.Text3(i), blank) << i;
}

TEST_F(SheetTest, Limpia_HidesTheHeadingsAndHidesAndDisablesTheEightButtons) {
    Scribble();
    form.limpia(1);
    for (int i = 0; i < 57; ++i) EXPECT_FALSE(form.Label7(i).Visible) << i;
    for (int i = 0; i < 12; ++i) EXPECT_FALSE(form.Label3(i).Visible) << i;
    EXPECT_THAT(OpenButtons(form), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_TRUE(form.Label5.Visible) << "the clock stays";
}

TEST_F(SheetTest, Limpia_HidesTheConclusionAreaAndKeepsTheTextOfItsFiveCells) {
    Scribble();
    form.limpia(1);
    for (const std::string_view name : kRestOfConclusions) {
        EXPECT_FALSE(IsShown(form, name)) << name;
    }
    // Only hidden: neither text nor lock nor colours are touched.
    const TextCell hidden{
        .Text = "x", .Visible = false, .Locked = false, .BackColor = 7, .ForeColor = 9};
    for (const TextCell* cell : {&form.Text2, &form.Text4, &form.Text5, &form.Text6, &form.Text7}) {
        EXPECT_EQ(*cell, hidden);
    }
}

TEST_F(SheetTest, Limpia_DoesTheSameWhateverItsArgument) {
    Scribble();
    form.limpia(1);
    const auto with_one = StateOf(form);
    for (const int argument : {-32768, 0, 2, 3, 4, 32767}) {
        Scribble();
        form.limpia(argument);
        EXPECT_THAT(Changed(with_one, form), IsEmpty()) << argument;
    }
}

TEST_F(SheetTest, Limpia_TouchesNeitherTheRecordNorTheDayNorTheCaption) {
    SetPlan(3, 3, 6);
    const EvaluacionRecord before = record;
    form.DiaActual = 2;
    form.Caption = "título";
    form.limpia(1);
    EXPECT_TRUE(record == before);
    EXPECT_EQ(form.DiaActual, 2);
    EXPECT_EQ(form.Caption, "título");
}

// ------------------------------------------------------------------------------------------ intro

struct DayEntry {
    std::string_view entry;
    int day;
    std::string_view caption;
};

void PrintTo(const DayEntry& entry, std::ostream* out) { *out << entry.entry; }

constexpr std::array<DayEntry, 6> kDayEntries = {{{"introprimero", 1, kFirstDayTitle},
                                                  {"introsegundo", 2, kSecondDayTitle},
                                                  {"introtercero", 3, kThirdDayTitle},
                                                  {"recupprimerdia", 1, kFirstDayTitle},
                                                  {"recupsegundodia", 2, kSecondDayTitle},
                                                  {"recuptercerdia", 3, kThirdDayTitle}}};

class DayEntryTest : public SheetTest, public ::testing::WithParamInterface<DayEntry> {};

TEST_P(DayEntryTest, SetsTheCaptionOfItsDayAndTheDay) {
    SetPlan(3, 1, 2);
    Choose(GetParam().entry);
    EXPECT_EQ(form.Caption, GetParam().caption);
    EXPECT_EQ(form.DiaActual, GetParam().day);
}

TEST_P(DayEntryTest, WithoutAPlanRefusesEveryDayWithTheMessageOnABlankSheet) {
    Scribble();
    host.ExpectBox(messages::kIncoherentDay);
    std::string while_shown;
    host.on_box = [&] {
        while_shown = form.Caption;
        EXPECT_EQ(form.DiaActual, GetParam().day);
        EXPECT_FALSE(form.Text1(0).Visible);
        EXPECT_EQ(form.Text1(0).Text, "");
        EXPECT_THAT(OpenButtons(form), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
    };
    Choose(GetParam().entry);
    EXPECT_EQ(while_shown, GetParam().caption) << "the title bar names the refused day";
    EXPECT_EQ(form.Caption, GetParam().caption);
    EXPECT_EQ(form.DiaActual, GetParam().day);
}

TEST_P(DayEntryTest, OnAPlanOfOneDayRefusesTheOtherDays) {
    SetPlan(1, 1, 2);
    if (GetParam().day > 1) host.ExpectBox(messages::kIncoherentDay);
    Choose(GetParam().entry);
    EXPECT_EQ(form.Command1.Visible, GetParam().day == 1);
    EXPECT_EQ(form.Text1(0).Visible, GetParam().day == 1);
    EXPECT_EQ(form.Caption, GetParam().caption);
}

TEST_P(DayEntryTest, ANegativeNumberOfDaysRefusesEveryDay) {
    SetPlan(-1, 1, 2);
    host.ExpectBox(messages::kIncoherentDay);
    Choose(GetParam().entry);
    EXPECT_FALSE(form.Command1.Visible);
}

TEST_P(DayEntryTest, APlanWithoutTasksLeavesABlankSheetWithoutAMessage) {
    SetPlan(3, 0, 2);
    Scribble();
    Choose(GetParam().entry);
    for (const Control& control : form.Controls()) {
        if (control.name != "Label5") {
            EXPECT_FALSE(IsShown(form, control.name)) << control.name;
        }
    }
    EXPECT_THAT(OpenButtons(form), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(form.DiaActual, GetParam().day);
}

TEST_P(DayEntryTest, ChangesNothingOfTheRecord) {
    SetPlan(3, 3, 6);
    for (auto* slot : {&record.HojaPrimerDia, &record.HojaSegundoDia, &record.HojaTercerDia}) {
        for (std::string& entry : *slot) entry = "antes";
    }
    const EvaluacionRecord before = record;
    Choose(GetParam().entry);
    EXPECT_TRUE(record == before);
}

INSTANTIATE_TEST_SUITE_P(Menu, DayEntryTest, ::testing::ValuesIn(kDayEntries),
                         [](const auto& tested) { return std::string(tested.param.entry); });

/// A plan whose every value tells where it comes from; tasks of the three days have other rows.
class IntroTest : public SheetTest {
protected:
    void SetUp() override {
        record.NumJornadas = 3;
        record.NumTareas = 3;
        for (int t = 1; t <= 3; ++t) {
            record.NumContaminantes(t) = 1;  // not consulted for the rows
            for (int c = 1; c <= 6; ++c) {
                record.NombreContaminante(t, c) = " agente " + Digits(10 * t + c) + " ";
                record.VlaEd(t, c) = 10 * t + c + 0.5;
                record.VlaEc(t, c) = c == 1 ? 0 : 100 * t + c;
                record.Unidades(t, c) = c % 2 == 0 ? "ppm" : "mg/m3";
                record.TiempoMuestreo(t, c) = c % 2 == 0 ? 30 : 15;
                record.Aditivo(t, c) = c - 1;
            }
        }
    }

    /// The rows of the three tasks on a day; half of them, rounded down, of 30 minutes.
    void SetDay(int day, const std::array<int, 3>& rows) {
        for (int t = 1; t <= 3; ++t) {
            const int n = rows.at(static_cast<std::size_t>(t - 1));
            record.Muestras30(day, t) = n / 2;
            record.Muestras15(day, t) = n - n / 2;
        }
    }

    /// Each task shows its first n rows, with the plan's texts, and C1 to C6 open.
    void ExpectLaidOut(const std::array<int, 3>& rows) {
        for (int row = 1; row <= 18; ++row) {
            const int t = (row - 1) / 6 + 1;
            const int c = (row - 1) % 6 + 1;
            const bool in_use = c <= rows.at(static_cast<std::size_t>(t - 1));
            for (int column = 0; column < 18; ++column) {
                const bool measurement = column >= kC1 && column <= kC6;
                const TextCell expected{.Text = in_use ? PlanText(t, c, column) : "",
                                        .Visible = in_use,
                                        .Locked = !in_use || !measurement};
                EXPECT_EQ(Cell(row, column), expected) << Name(row, column);
            }
            for (int column = 0; column < 4; ++column) {
                const TextCell expected{.Text = "", .Visible = in_use, .Locked = true};
                EXPECT_EQ(Cell3(row, column), expected) << Name3(row, column);
            }
        }
    }

    void ExpectHeadings(const std::array<bool, 3>& shown) {
        for (int t = 1; t <= 3; ++t) {
            const bool expected = shown.at(static_cast<std::size_t>(t - 1));
            for (int i = (t - 1) * 18; i < t * 18; ++i) {
                EXPECT_EQ(form.Label7(i).Visible, expected) << i;
            }
            for (int i = (t - 1) * 4; i < t * 4; ++i) {
                EXPECT_EQ(form.Label3(i).Visible, expected) << i;
            }
            EXPECT_EQ(form.Label7(53 + t).Visible, expected) << t;
        }
    }

    static std::string PlanText(int t, int c, int column) {
        switch (column) {
            case kNumber:
                return Digits(c);
            case kName:
                return " agente " + Digits(10 * t + c) + " ";
            case kEd:
                return Digits(10 * t + c) + ".5";
            case kEc:
                return c == 1 ? "0" : Digits(100 * t + c);
            case kUnits:
                return c % 2 == 0 ? "ppm" : "mg/m3";
            case kTm:
                return c % 2 == 0 ? "30" : "15";
            case kAdditive:
                return Digits(c - 1);
            default:
                return "";
        }
    }
};

TEST_F(IntroTest, LaysOutTheRowsOfTheThreeTasksWithTheTextsOfThePlan) {
    SetDay(1, {6, 3, 1});
    Choose("introprimero");
    ExpectLaidOut({6, 3, 1});
    ExpectHeadings({true, true, true});
}

TEST_F(IntroTest, ShowsTwoRowsOnOneDayAndFourOnAnotherWithTheSameFirstContaminants) {
    SetDay(1, {6, 2, 6});
    SetDay(2, {1, 4, 5});
    Choose("introprimero");
    ExpectLaidOut({6, 2, 6});
    Choose("introsegundo");
    ExpectLaidOut({1, 4, 5});
}

TEST_F(IntroTest, TheThirdDayHasItsOwnRows) {
    SetDay(3, {2, 0, 6});
    Choose("introtercero");
    ExpectLaidOut({2, 0, 6});
}

TEST_F(IntroTest, ATaskWithoutSamplesShowsItsHeadingsAndTitleWithNoRows) {
    SetDay(1, {0, 2, 0});
    Choose("introprimero");
    ExpectLaidOut({0, 2, 0});
    ExpectHeadings({true, true, true});
    EXPECT_EQ(Openness(form.Command1), 2);
}

TEST_F(IntroTest, TheTasksThatThePlanLacksStayBlankAndOfFourTwoAreLaidOut) {
    SetDay(1, {2, 3, 4});
    const auto expect = [this](int tasks, const std::array<int, 3>& rows,
                               const std::array<bool, 3>& headings) {
        SCOPED_TRACE(tasks);
        record.NumTareas = tasks;
        Choose("introprimero");
        ExpectLaidOut(rows);
        ExpectHeadings(headings);
        EXPECT_EQ(Openness(form.Command1), tasks < 0 ? 0 : 2);
    };
    expect(1, {2, 0, 0}, {true, false, false});
    expect(2, {2, 3, 0}, {true, true, false});
    expect(4, {2, 3, 0}, {true, true, false});
    expect(-1, {0, 0, 0}, {false, false, false});
}

TEST_F(IntroTest, OpensCommand1AndNoOtherButton) {
    SetDay(1, {2, 3, 4});
    Scribble();
    Choose("introprimero");
    EXPECT_THAT(OpenButtons(form), ElementsAre(2, 0, 0, 0, 0, 0, 0, 0));
    for (const std::string_view name : kRestOfConclusions) {
        EXPECT_FALSE(IsShown(form, name)) << name;
    }
}

TEST_F(IntroTest, StartsTheDayEmptyThoughItsSlotIsFull) {
    SetDay(1, {1, 1, 1});
    for (std::string& entry : record.HojaPrimerDia) entry = "9";
    Choose("introprimero");
    ExpectLaidOut({1, 1, 1});
    EXPECT_EQ(form.Text2.Text, "");
}

TEST_F(IntroTest, TheOldConclusionsAreStillInTheirHiddenCells) {
    SetDay(1, {1, 1, 1});
    form.Text5.Text = "PLAN DE MEDICIONES FINALIZADO";
    form.Text7.Text = "SI";
    Choose("introprimero");
    EXPECT_EQ(form.Text5.Text, "PLAN DE MEDICIONES FINALIZADO");
    EXPECT_EQ(form.Text7.Text, "SI");
    EXPECT_FALSE(form.Text5.Visible);
}

TEST_F(IntroTest, WritesTheLimitsWithTheSeparatorOfTheLocale) {
    SetDay(1, {1, 0, 0});
    record.VlaEd(1, 1) = 0.5;
    record.VlaEc(1, 1) = 1.25;
    const WithSeparator comma(",");
    Choose("introprimero");
    EXPECT_EQ(Cell(1, kEd).Text, "0,5");
    EXPECT_EQ(Cell(1, kEc).Text, "1,25");
}

TEST_F(IntroTest, WritesLimitsWithoutRoundingThemToTwoDecimals) {
    SetDay(1, {1, 0, 0});
    record.VlaEd(1, 1) = 0.00125;
    record.VlaEc(1, 1) = 1234.5678;
    Choose("introprimero");
    EXPECT_EQ(Cell(1, kEd).Text, "0.00125");
    EXPECT_EQ(Cell(1, kEc).Text, "1234.5678");
}

TEST_F(IntroTest, WithoutLimpiaBeforeItRowsThatFellAwayAreEmptiedAndHiddenButNotLocked) {
    SetDay(1, {4, 0, 0});
    record.NumTareas = 1;
    form.intro(1);
    SetSamples(3, {"1", "2"});
    Cell3(3, kEcPlus).Text = "5";
    SetDay(1, {2, 0, 0});
    form.intro(1);
    EXPECT_EQ(Cell(3, kC1), (TextCell{.Text = "", .Visible = false, .Locked = false}));
    EXPECT_EQ(Cell(3, kNumber), (TextCell{.Text = "", .Visible = false, .Locked = true}));
    EXPECT_EQ(Cell3(3, kEcPlus), (TextCell{.Text = "", .Visible = false, .Locked = true}));
    EXPECT_EQ(Cell(2, kC1), (TextCell{.Text = "", .Visible = true, .Locked = false}));
}

TEST_F(IntroTest, WithoutLimpiaBeforeItATaskWithoutRowsIsEmptiedAndHiddenWhole) {
    SetDay(1, {6, 0, 0});
    record.NumTareas = 1;
    form.intro(1);
    for (int i = 0; i < 24; ++i) form.Text3(i).Text = "5";
    SetDay(1, {0, 0, 0});
    form.intro(1);
    for (int i = 0; i < 108; ++i) {
        EXPECT_EQ(form.Text1(i).Text, "") << i;
        EXPECT_FALSE(form.Text1(i).Visible) << i;
    }
    for (int i = 0; i < 24; ++i) {
        EXPECT_EQ(form.Text3(i), (TextCell{.Text = "", .Visible = false, .Locked = true})) << i;
    }
}

TEST_F(IntroTest, WithoutLimpiaBeforeItTheRowsInUseAreLockedButForTheirMeasurements) {
    SetDay(1, {6, 6, 6});
    Scribble();
    form.intro(1);
    for (int i = 0; i < 324; ++i) {
        const bool measurement = i % 18 >= kC1 && i % 18 <= kC6;
        EXPECT_EQ(form.Text1(i).Locked, !measurement) << i;
    }
    for (int i = 0; i < 72; ++i) EXPECT_TRUE(form.Text3(i).Locked) << i;
}

TEST_F(IntroTest, WithoutLimpiaBeforeItATaskThatFellAwayStaysAsItIs) {
    SetDay(1, {1, 2, 0});
    record.NumTareas = 2;
    form.intro(1);
    record.NumTareas = 1;
    const auto before = StateOf(form);
    form.intro(1);
    EXPECT_THAT(Changed(before, form), IsEmpty());
    EXPECT_TRUE(Cell(8, kNumber).Visible);
}

TEST_F(IntroTest, ARefusedDayIsBlankedByIntroItself) {
    record.NumJornadas = 2;
    Scribble();
    host.ExpectBox(messages::kIncoherentDay);
    form.intro(3);
    EXPECT_EQ(Cell(1, kC1).Text, "");
    EXPECT_FALSE(Cell(1, kC1).Visible);
    EXPECT_EQ(form.DiaActual, 3);
}

TEST_F(IntroTest, SevenSamplesEndInASubscriptErrorAtTheSeventhContaminant) {
    SetDay(1, {7, 0, 0});
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Choose("introprimero"); });
    // Shown by then: the first seven rows, of which the seventh is the second task's first.
    EXPECT_TRUE(Cell(7, kGsd).Visible);
    EXPECT_FALSE(Cell(8, kNumber).Visible);
    EXPECT_TRUE(Cell3(7, kProb).Visible);
    EXPECT_EQ(Openness(form.Command1), 2);
    EXPECT_FALSE(form.Label7(55).Visible) << "the second task isn't begun";
}

TEST_F(IntroTest, SevenSamplesInTheThirdTaskRunOffTheSheet) {
    SetDay(1, {1, 1, 7});
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Choose("introprimero"); });
    EXPECT_EQ(Cell(7, kName).Text, " agente 21 ") << "the second task was filled";
    EXPECT_TRUE(Cell(18, kGsd).Visible);
    EXPECT_FALSE(Cell3(13, kEcPlus).Visible) << "the right-hand grid wasn't reached";
}

TEST_F(IntroTest, ANegativeNumberOfSamplesShowsNoRows) {
    SetDay(1, {2, 2, 2});
    record.Muestras15(1, 1) = -3;
    record.Muestras30(1, 1) = 1;
    Choose("introprimero");
    ExpectLaidOut({0, 2, 2});
    ExpectHeadings({true, true, true});
}

TEST_F(IntroTest, SamplesThatAddUpBeyondAnIntegerOverflow) {
    record.Muestras15(1, 1) = 32767;
    record.Muestras30(1, 1) = 1;
    ExpectError(ErrorKind::Overflow, [&] { Choose("introprimero"); });
}

TEST_F(IntroTest, AFourthDayOfAPlanOfFourEndsInASubscriptErrorWithCommand1Open) {
    record.NumJornadas = 4;
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.intro(4); });
    EXPECT_EQ(form.DiaActual, 4);
    EXPECT_EQ(Openness(form.Command1), 2);
}

TEST_F(IntroTest, DayZeroIsNotRefusedAndEndsInASubscriptError) {
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.intro(0); });
    EXPECT_EQ(form.DiaActual, 0);
}

TEST_F(IntroTest, APlanOfFourDaysServesTheThreeOfTheMenu) {
    record.NumJornadas = 4;
    SetDay(3, {2, 1, 1});
    Choose("introtercero");
    ExpectLaidOut({2, 1, 1});
}

// --------------------------------------------------------------------------------------- recupera

class RecuperaTest : public SheetTest {
protected:
    static std::string EntryText(int day, int entry) {
        return "día " + Digits(day) + " " + Digits(entry);
    }

    /// Fills the slots of the three days with texts that tell day and entry.
    void SetUp() override {
        SetPlan(3, 3, 2);
        for (int entry = 1; entry <= 401; ++entry) {
            record.HojaPrimerDia(entry) = EntryText(1, entry);
            record.HojaSegundoDia(entry) = EntryText(2, entry);
            record.HojaTercerDia(entry) = EntryText(3, entry);
        }
    }

    void ExpectSlot(int day) {
        for (int i = 0; i < 324; ++i) EXPECT_EQ(form.Text1(i).Text, EntryText(day, i + 1)) << i;
        for (int i = 0; i < 72; ++i) EXPECT_EQ(form.Text3(i).Text, EntryText(day, i + 325)) << i;
        EXPECT_EQ(form.Text2.Text, EntryText(day, 397));
        EXPECT_EQ(form.Text4.Text, EntryText(day, 398));
        EXPECT_EQ(form.Text5.Text, EntryText(day, 399));
        EXPECT_EQ(form.Text6.Text, EntryText(day, 400));
        EXPECT_EQ(form.Text7.Text, EntryText(day, 401));
    }

    /// Each task shows its first n rows; C1 to C6 of them are open, and of no other row.
    void ExpectRows(const std::array<int, 3>& rows) {
        for (int row = 1; row <= 18; ++row) {
            const bool in_use = (row - 1) % 6 < rows.at(static_cast<std::size_t>((row - 1) / 6));
            for (int column = 0; column < 18; ++column) {
                const bool measurement = column >= kC1 && column <= kC6;
                EXPECT_EQ(Cell(row, column).Visible, in_use) << Name(row, column);
                EXPECT_EQ(Cell(row, column).Locked, !in_use || !measurement) << Name(row, column);
            }
            for (int column = 0; column < 4; ++column) {
                EXPECT_EQ(Cell3(row, column).Visible, in_use) << Name3(row, column);
                EXPECT_TRUE(Cell3(row, column).Locked) << Name3(row, column);
            }
        }
    }
};

TEST_F(RecuperaTest, BringsBackTheSlotOfTheFirstDayHiddenCellsIncluded) {
    Choose("recupprimerdia");
    ExpectSlot(1);
    ExpectRows({2, 2, 2});
}

TEST_F(RecuperaTest, BringsBackTheSlotOfTheSecondDay) {
    Choose("recupsegundodia");
    ExpectSlot(2);
    ExpectRows({2, 2, 2});
}

TEST_F(RecuperaTest, BringsBackTheSlotOfTheThirdDay) {
    Choose("recuptercerdia");
    ExpectSlot(3);
    ExpectRows({2, 2, 2});
}

TEST_F(RecuperaTest, LaysOutTheRowsOfTheDayInQuestion) {
    SetRows(2, 1, 6);
    SetRows(2, 2, 0);
    SetRows(2, 3, 4);
    Choose("recupsegundodia");
    ExpectRows({6, 0, 4});
}

TEST_F(RecuperaTest, ShowsTheHeadingsOfItsTasks) {
    record.NumTareas = 2;
    Choose("recupprimerdia");
    for (int i = 0; i < 54; ++i) EXPECT_EQ(form.Label7(i).Visible, i < 36) << i;
    for (int i = 0; i < 12; ++i) EXPECT_EQ(form.Label3(i).Visible, i < 8) << i;
    EXPECT_TRUE(form.Label7(54).Visible);
    EXPECT_TRUE(form.Label7(55).Visible);
    EXPECT_FALSE(form.Label7(56).Visible);
}

TEST_F(RecuperaTest, OfThreeTasksOpensCommand1AndCommand2ButNotCommand3) {
    Choose("recupprimerdia");
    EXPECT_THAT(OpenButtons(form), ElementsAre(2, 2, 0, 0, 0, 0, 0, 2));
}

TEST_F(RecuperaTest, OpensCommand8AndLaysOutOneTaskOrTwo) {
    const auto expect = [this](int tasks, int second_button, const std::array<int, 3>& rows) {
        SCOPED_TRACE(tasks);
        record.NumTareas = tasks;
        Choose("recupprimerdia");
        EXPECT_THAT(OpenButtons(form), ElementsAre(2, second_button, 0, 0, 0, 0, 0, 2));
        ExpectRows(rows);
        if (second_button == 0) ExpectSlot(1);
    };
    expect(2, 2, {2, 2, 0});
    expect(1, 0, {2, 0, 0});
    expect(4, 2, {2, 2, 0});
    expect(-1, 0, {2, 0, 0});  // only 0 stops it
}

TEST_F(RecuperaTest, ShowsTheConclusionAreaStillLocked) {
    Choose("recupprimerdia");
    for (const std::string_view name : kRestOfConclusions) {
        EXPECT_TRUE(IsShown(form, name)) << name;
    }
    EXPECT_TRUE(form.Text2.Locked && form.Text4.Locked && form.Text5.Locked && form.Text6.Locked &&
                form.Text7.Locked);
}

TEST_F(RecuperaTest, OfADayNeverValidatedShowsRowsAndConclusionsWithEveryCellEmpty) {
    for (int t = 1; t <= 3; ++t) record.NombreContaminante(t, 1) = "tolueno";
    record.HojaSegundoDia = {};
    Scribble();
    Choose("recupsegundodia");
    ExpectRows({2, 2, 2});
    for (const Control& control : form.Controls()) {
        if (const auto* cell = std::get_if<TextCell*>(&control.state)) {
            EXPECT_EQ((*cell)->Text, "") << control.name;
        }
    }
    EXPECT_EQ(Openness(form.Command8), 2);
    EXPECT_TRUE(form.Label1.Visible && form.Text5.Visible && form.Text6.Visible);
}

TEST_F(RecuperaTest, KeepsTheColoursOfTheCells) {
    Cell(1, kC1).BackColor = 250;
    Cell(1, kC1).ForeColor = kWindowBackground;
    Choose("recupprimerdia");
    EXPECT_EQ(Cell(1, kC1).BackColor, 250U);
    EXPECT_EQ(Cell(1, kC1).ForeColor, kWindowBackground);
}

TEST_F(RecuperaTest, BlanksTheSheetFirst) {
    Scribble();
    record.NumTareas = 1;
    SetRows(1, 1, 1);
    Choose("recupprimerdia");
    EXPECT_THAT(OpenButtons(form), ElementsAre(2, 0, 0, 0, 0, 0, 0, 2));
    ExpectRows({1, 0, 0});
}

TEST_F(RecuperaTest, WithoutTasksKeepsTheTextsOfTheConclusions) {
    record.NumTareas = 0;
    form.Text5.Text = "antes";
    Choose("recupprimerdia");
    EXPECT_EQ(form.Text5.Text, "antes");
    EXPECT_EQ(Cell(1, kNumber).Text, "");
}

TEST_F(RecuperaTest, OnTheThirdDayUnlocksTheThirdTaskOnceMoreWithTheLastNumberOfRows) {
    // With one task the last number is that of the first: hidden cells of the third get unlocked.
    record.NumTareas = 1;
    SetRows(3, 1, 4);
    Choose("recuptercerdia");
    for (int row = 13; row <= 18; ++row) {
        for (int column = 0; column < 18; ++column) {
            const bool unlocked = row <= 16 && column >= kC1 && column <= kC6;
            EXPECT_EQ(Cell(row, column).Locked, !unlocked) << Name(row, column);
            EXPECT_FALSE(Cell(row, column).Visible) << Name(row, column);
        }
    }
    for (int row = 7; row <= 12; ++row) EXPECT_TRUE(Cell(row, kC1).Locked) << row;
}

TEST_F(RecuperaTest, OnTheThirdDayOfTwoTasksTheLastNumberIsThatOfTheSecond) {
    record.NumTareas = 2;
    SetRows(3, 1, 5);
    SetRows(3, 2, 1);
    Choose("recuptercerdia");
    EXPECT_FALSE(Cell(13, kC6).Locked);
    EXPECT_TRUE(Cell(14, kC1).Locked);
}

TEST_F(RecuperaTest, OnTheOtherDaysTheThirdTaskStaysLocked) {
    record.NumTareas = 1;
    Choose("recupprimerdia");
    EXPECT_TRUE(Cell(13, kC1).Locked);
    Choose("recupsegundodia");
    EXPECT_TRUE(Cell(13, kC1).Locked);
}

TEST_F(RecuperaTest, SevenSamplesOpenTheFirstRowOfTheNextTask) {
    record.NumTareas = 1;
    SetRows(1, 1, 7);
    Choose("recupprimerdia");
    ExpectRows({6, 1, 0});
    ExpectSlot(1);
}

TEST_F(RecuperaTest, SevenSamplesAreUndoneByTheNextTasksOwnArea) {
    SetRows(1, 1, 7);
    SetRows(1, 2, 0);
    record.NumTareas = 2;
    Choose("recupprimerdia");
    // Hidden again, with its measurements left unlocked: laying out an area locks rows in use only.
    EXPECT_FALSE(Cell(7, kC1).Visible);
    EXPECT_FALSE(Cell(7, kC1).Locked);
    EXPECT_TRUE(Cell(7, kMmp).Locked);
}

TEST_F(RecuperaTest, SevenSamplesInTheThirdTaskEndInASubscriptErrorBeforeTheSlotIsRead) {
    SetRows(1, 3, 7);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Choose("recupprimerdia"); });
    EXPECT_EQ(Cell(1, kNumber).Text, "");
    EXPECT_EQ(Openness(form.Command2), 2);
    EXPECT_EQ(Openness(form.Command8), 0);
}

TEST_F(RecuperaTest, SevenSamplesAsTheLastNumberOfTheThirdDayFailAfterTheSlotIsRead) {
    record.NumTareas = 1;
    SetRows(3, 1, 7);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Choose("recuptercerdia"); });
    ExpectSlot(3);
    EXPECT_FALSE(Cell(18, kC6).Locked) << "six rows were unlocked";
}

TEST_F(RecuperaTest, ANegativeNumberOfSamplesShowsNoRows) {
    record.Muestras15(1, 1) = -2;
    Choose("recupprimerdia");
    ExpectRows({0, 2, 2});
    ExpectSlot(1);
}

TEST_F(RecuperaTest, AFourthDayOfAPlanOfFourEndsInASubscriptError) {
    record.NumJornadas = 4;
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.recupera(4); });
    EXPECT_EQ(form.DiaActual, 4);
}

TEST_F(RecuperaTest, DayZeroEndsInASubscriptError) {
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.recupera(0); });
    EXPECT_EQ(form.DiaActual, 0);
}

TEST_F(RecuperaTest, DayZeroOfAPlanWithoutTasksStopsSilently) {
    record.NumTareas = 0;
    form.recupera(0);
    EXPECT_EQ(form.DiaActual, 0);
    EXPECT_EQ(Openness(form.Command8), 0);
}

TEST_F(RecuperaTest, DayZeroOfAPlanWithoutDaysStopsSilentlyOnABlankSheet) {
    record.NumJornadas = 0;
    form.Text1(0).Text = "1";
    form.recupera(0);
    EXPECT_EQ(form.Text1(0).Text, "");
    EXPECT_EQ(Openness(form.Command1), 0);
    EXPECT_EQ(Openness(form.Command8), 0);
}

}  // namespace
}  // namespace velmora::test
