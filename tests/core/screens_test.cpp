#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "capture/form2.h"
#include "capture/form3.h"
#include "core/chain.h"
#include "core/form1.h"
#include "core/navigation.h"
#include "sheet/form5.h"
#include "support/menus.h"
#include "support/messages.h"
#include "support/sheet_test.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

constexpr std::array kAllScreens = {ScreenId::Form1, ScreenId::Form2, ScreenId::Form3,
                                    ScreenId::Form4, ScreenId::Form5, ScreenId::Form6};

// The chain, with screens that only tell what happens to them.

class Probe : public Screen {
public:
    Probe(ScreenId id, std::string& events)
        : Screen({.id = id, .caption = "", .client_area = {}}, clock_label), events_(events) {
        Tell("make");
    }
    ~Probe() override { Tell("free"); }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;
    void Form_Load() override { Tell("load"); }
    void Timer1_Timer() override {}

    Label clock_label;

private:
    void Tell(const std::string& what) { events_ += what + " " + std::string(Name()) + "; "; }

    std::string& events_;
};

class ChainTest : public ::testing::Test {
protected:
    std::string Events() { return std::exchange(events_, ""); }

    std::string events_;
    ScreenChain chain{[this](ScreenId id) { return std::make_unique<Probe>(id, events_); }};
};

TEST_F(ChainTest, AMoveLoadsTheTargetAndMakesItCurrent) {
    chain.Go(ScreenId::Form1);
    EXPECT_EQ(Events(), "make Form1; load Form1; ");
    chain.Go(ScreenId::Form2);
    EXPECT_EQ(Events(), "make Form2; load Form2; ");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form2);
}

TEST_F(ChainTest, TheScreenThatWasLeftIsFreedOnceNoHandlerRuns) {
    chain.Go(ScreenId::Form1);
    chain.Go(ScreenId::Form2);
    Events();
    chain.Settle();
    EXPECT_EQ(Events(), "free Form1; ");
    chain.Settle();
    EXPECT_EQ(Events(), "");
}

TEST_F(ChainTest, AScreenThatWasLeftIsUnloadedAtOnceAndMadeAnewWhenItIsWanted) {
    chain.Go(ScreenId::Form1);
    const Screen* first = &chain.Current();
    chain.Go(ScreenId::Form2);
    Events();
    chain.Go(ScreenId::Form1);
    EXPECT_EQ(Events(), "make Form1; load Form1; ");
    EXPECT_NE(&chain.Current(), first);
}

TEST_F(ChainTest, AMoveToTheCurrentScreenMakesItAnew) {
    chain.Go(ScreenId::Form5);
    Events();
    chain.Go(ScreenId::Form5);
    EXPECT_EQ(Events(), "make Form5; load Form5; ");
}

TEST_F(ChainTest, TouchingAScreenThatIsNotLoadedLoadsItAndLeavesTheCurrentOne) {
    chain.Go(ScreenId::Form3);
    Events();
    const Screen& touched = chain.Load(ScreenId::Form2);
    EXPECT_EQ(Events(), "make Form2; load Form2; ");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form3);
    chain.Go(ScreenId::Form2);
    EXPECT_EQ(Events(), "");  // the one that was touched is shown, not loaded again
    EXPECT_EQ(&chain.Current(), &touched);
}

TEST_F(ChainTest, TouchingALoadedScreenLoadsNothing) {
    chain.Go(ScreenId::Form2);
    Events();
    EXPECT_EQ(&chain.Load(ScreenId::Form2), &chain.Current());
    EXPECT_EQ(Events(), "");
}

// All six screens

class ScreensTest : public VelmoraTest {
protected:
    /// The screen as it was laid out, before its load handler.
    std::unique_ptr<Screen> AsLaidOut(ScreenId id) {
        return MakeScreen(id, Environment{record, chain, host});
    }
    Screen& Show(ScreenId id) { return Open<Screen>(id); }
};

struct Face {
    ScreenId id;
    std::string_view name;
    std::string_view caption;
    int width;
};

// clang-format off
constexpr std::array<Face, 6> kFaces = {{
    {ScreenId::Form1, "Form1", ".     Velmora / h1",  11355},
    {ScreenId::Form2, "Form2", "     Velmora / h2",   11715},
    {ScreenId::Form3, "Form3", "    Velmora / h3",    11880},
    {ScreenId::Form4, "Form4", " Velmora / h4",       11880},
    {ScreenId::Form5, "Form5", " Velmora / h5                                  CÁLCULOS   Y   RESULTADOS ", 11880},
    {ScreenId::Form6, "Form6", " Velmora / h6",       11880},
}};
// clang-format on

TEST_F(ScreensTest, EachHasItsNameItsCaptionAndItsClientArea) {
    for (const Face& face : kFaces) {
        const auto screen = AsLaidOut(face.id);
        EXPECT_EQ(screen->Id(), face.id);
        EXPECT_EQ(screen->Name(), face.name);
        EXPECT_EQ(screen->Caption, face.caption);
        EXPECT_EQ(screen->ClientArea().left, 0) << face.name;
        EXPECT_EQ(screen->ClientArea().top, 0) << face.name;
        EXPECT_EQ(screen->ClientArea().width, face.width) << face.name;
        EXPECT_EQ(screen->ClientArea().height, 8310) << face.name;
    }
}

TEST_F(ScreensTest, LoadingChangesTheCaptionOfForm5Alone) {
    for (const Face& face : kFaces) {
        const std::string loaded = Show(face.id).Caption;
        if (face.id == ScreenId::Form5) {
            EXPECT_EQ(loaded, "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ");
        } else {
            EXPECT_EQ(loaded, face.caption);
        }
    }
}

TEST_F(ScreensTest, NoTwoControlsOfAScreenShareANameOrATabPosition) {
    for (const ScreenId id : kAllScreens) {
        const auto screen = AsLaidOut(id);
        std::set<std::string> names;
        std::set<int> tabs;
        for (const Control& control : screen->Controls()) {
            EXPECT_TRUE(names.insert(control.name).second) << control.name;
            if (control.row.tab == kNoTab) continue;
            EXPECT_TRUE(tabs.insert(control.row.tab).second)
                << screen->Name() << " " << control.name;
        }
    }
}

TEST_F(ScreensTest, AControlIsFoundByItsNameAndAnotherNameFindsNone) {
    const auto screen = AsLaidOut(ScreenId::Form2);
    const Control* box = screen->FindControl("Text1(5)");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->row.index, 5);
    EXPECT_EQ(screen->FindControl("Text1(20)"), nullptr);
    EXPECT_EQ(screen->FindControl("Text1"), nullptr);
    EXPECT_EQ(screen->FindEntry("Imprimir"), nullptr);
}

// The window and the tests tell by comparison what a handler changed: that sees each property.

TEST(ControlsTest, ControlsThatDifferInOnePropertyAreDifferent) {
    const TextCell cell{.Text = "1"};
    EXPECT_EQ(cell, TextCell{.Text = "1"});
    for (const TextCell& other :
         {TextCell{.Text = "2"}, TextCell{.Text = "1", .Visible = false},
          TextCell{.Text = "1", .Locked = true}, TextCell{.Text = "1", .BackColor = 250},
          TextCell{.Text = "1", .ForeColor = 250}}) {
        EXPECT_NE(cell, other);
    }
    const ComboBox list{.Text = "1"};
    EXPECT_EQ(list, ComboBox{.Text = "1"});
    for (const ComboBox& other : {ComboBox{.Text = "2"}, ComboBox{.Text = "1", .Visible = false},
                                  ComboBox{.Text = "1", .Locked = true}}) {
        EXPECT_NE(list, other);
    }
    const Label label{.Caption = "1"};
    EXPECT_EQ(label, Label{.Caption = "1"});
    EXPECT_NE(label, Label{.Caption = "2"});
    EXPECT_NE(label, (Label{.Caption = "1", .Visible = false}));
    const Button button{.Caption = "1"};
    EXPECT_EQ(button, Button{.Caption = "1"});
    for (const Button& other : {Button{.Caption = "2"}, Button{.Caption = "1", .Visible = false},
                                Button{.Caption = "1", .Enabled = false}}) {
        EXPECT_NE(button, other);
    }
}

TEST_F(ScreensTest, ANumberThatIsNoScreensMakesNone) {
    EXPECT_EQ(MakeScreen(static_cast<ScreenId>(7), Environment{record, chain, host}), nullptr);
}

TEST_F(ScreensTest, APageIsThatOfTheCompanyAndTheCodeThatAreKnownOnItsScreen) {
    record.DatosEmpresa(1) = "Acme";
    record.DatosEmpresa(19) = "HI-27/3";
    const auto owner = [this] {
        const PageOwner known = OwnerOf(chain.Current(), record);
        return known.company + ", " + known.code;
    };
    chain.Go(ScreenId::Form6);
    EXPECT_EQ(owner(), "Acme, HI-27/3");
    chain.Go(ScreenId::Form2);
    auto& form2 = dynamic_cast<Form2&>(chain.Current());
    form2.Text1(1).Text = "Otra";
    form2.Text1(19).Text = "HI-28/1";
    EXPECT_EQ(owner(), "Otra, HI-28/1") << "as typed, whether it is in the record yet or not";
}

// Menus

TEST_F(ScreensTest, TheFramesCrossIsTheEntrySalirOnEachScreen) {
    for (const ScreenId id : kAllScreens) {
        chain.Go(id);
        const MenuEntry* const exit = chain.Current().Exit();
        ASSERT_NE(exit, nullptr) << chain.Current().Name();
        EXPECT_EQ(exit->caption, "Salir") << chain.Current().Name();
    }
}

TEST_F(ScreensTest, EachBarHasItsEntriesSpacersAndListsInOrder) {
    for (int i = 1; i <= 6; ++i) {
        const auto id = static_cast<ScreenId>(i);
        EXPECT_EQ(TextOf(AsLaidOut(id)->Menu()), MenuOf(id));
    }
}

// Moves

struct Move {
    ScreenId from;
    std::string_view entry;
    ScreenId to;
};

// clang-format off
constexpr std::array kUnguardedMoves = {
    Move{ScreenId::Form1, "Nuevaempresa",      ScreenId::Form2},
    Move{ScreenId::Form3, "datosdeempresa",    ScreenId::Form2},
    Move{ScreenId::Form4, "pagina5",           ScreenId::Form5},
    Move{ScreenId::Form4, "datosiniciales",    ScreenId::Form3},
    Move{ScreenId::Form4, "datosdeempresa",    ScreenId::Form2},
    Move{ScreenId::Form4, "resultadosfinales", ScreenId::Form6},
    Move{ScreenId::Form5, "datosiniciales",    ScreenId::Form3},
    Move{ScreenId::Form5, "contaminantes",     ScreenId::Form4},
    Move{ScreenId::Form5, "resultadosfinales", ScreenId::Form6},
    Move{ScreenId::Form5, "datosempresa",      ScreenId::Form2},
    Move{ScreenId::Form6, "regresar",          ScreenId::Form5},
    Move{ScreenId::Form6, "calculos",          ScreenId::Form5},
    Move{ScreenId::Form6, "contaminantes",     ScreenId::Form4},
    Move{ScreenId::Form6, "datosiniciales",    ScreenId::Form3},
    Move{ScreenId::Form6, "datosdeempresa",    ScreenId::Form2},
};

// clang-format on

TEST_F(ScreensTest, UnguardedEntriesMoveAtOnceAndChangeNothingOfTheRecord) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    record.HojaPrimerDia(1) = "1";
    const EvaluacionRecord before = record;
    for (const Move& move : kUnguardedMoves) {
        Show(move.from);
        Choose(move.entry);
        EXPECT_EQ(chain.Current().Id(), move.to) << move.entry;
        EXPECT_EQ(record, before) << move.entry;
    }
}

TEST_F(ScreensTest, PressingTheTitleRegresarOfForm6MovesWithoutItsList) {
    Show(ScreenId::Form6);
    const MenuEntry* title = chain.Current().FindEntry("regresar");
    ASSERT_NE(title, nullptr);
    ASSERT_FALSE(title->list.empty());
    title->Click();
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form5);
}

TEST_F(ScreensTest, LeavingForm5BlanksTheSheetAndTheDaysSnapshotBringsItBack) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    record.Muestras30(1, 1) = 1;
    record.HojaPrimerDia(2) = "Tolueno";  // name in the first row
    record.HojaPrimerDia(8) = "120";      // its C1
    Show(ScreenId::Form5);
    Choose("recupprimerdia");
    ASSERT_EQ(Current<Form5>().Text1(7).Text, "120");
    Choose("contaminantes");
    Choose("pagina5");
    EXPECT_EQ(Current<Form5>().Text1(7).Text, "");
    EXPECT_FALSE(Current<Form5>().Text1(7).Visible);
    Choose("recupprimerdia");
    EXPECT_EQ(Current<Form5>().Text1(1).Text, "Tolueno");
    EXPECT_EQ(Current<Form5>().Text1(7).Text, "120");
    EXPECT_TRUE(Current<Form5>().Text1(7).Visible);
}

TEST_F(ScreensTest, OtherWaysToForm2LeaveItToItsLoadHandler) {
    record.DatosEmpresa(2) = "Polígono Norte";
    Show(ScreenId::Form4);
    Choose("datosdeempresa");
    const auto& form2 = Current<Form2>();
    EXPECT_EQ(form2.Text1(1).Text, messages::kNameHint);
    EXPECT_EQ(form2.Text1(2).Text, "");
}

// Salir

struct Exit {
    ScreenId id;
    MsgBoxStyle style;
};

constexpr std::array<Exit, 6> kExits = {{{ScreenId::Form1, MsgBoxStyle::YesNoInformation},
                                         {ScreenId::Form2, MsgBoxStyle::YesNoInformationNo},
                                         {ScreenId::Form3, MsgBoxStyle::YesNoInformationNo},
                                         {ScreenId::Form4, MsgBoxStyle::YesNoInformation},
                                         {ScreenId::Form5, MsgBoxStyle::YesNoInformation},
                                         {ScreenId::Form6, MsgBoxStyle::YesNoInformation}}};

TEST_F(ScreensTest, Salir_OnYesEndsTheProcessWithoutSaving) {
    for (const Exit& exit : kExits) {
        record.DatosEmpresa(1) = "Talleres";
        const EvaluacionRecord before = record;
        Screen& screen = Show(exit.id);
        host.ExpectBox(messages::kExit, exit.style, MsgBoxAnswer::Yes);
        host.ExpectEnd();
        Choose("salir");
        EXPECT_EQ(&chain.Current(), &screen) << screen.Name();
        EXPECT_EQ(record, before) << screen.Name();
    }
    EXPECT_TRUE(host.dialogs_shown.empty());
}

TEST_F(ScreensTest, Salir_OnNoStays) {
    for (const Exit& exit : kExits) {
        Screen& screen = Show(exit.id);
        const auto shown = StateOf(screen);
        host.ExpectBox(messages::kExit, exit.style, MsgBoxAnswer::No);
        Choose("salir");  // the host fails the test if the process ends
        EXPECT_EQ(&chain.Current(), &screen) << screen.Name();
        EXPECT_EQ(Changed(shown, screen), std::vector<std::string>{}) << screen.Name();
    }
}

TEST_F(ScreensTest, Salir_AnyAnswerButNoEndsTheProcess) {
    host.ExpectBox(messages::kExit, MsgBoxStyle::YesNoInformation, MsgBoxAnswer::Ok);
    host.ExpectEnd();
    Show(ScreenId::Form1);
    Choose("salir");
}

// Imprimir

using messages::kPrints;
using messages::Print;
using messages::PrintQuestion;

TEST_F(ScreensTest, Imprimir_OnYesShowsTheDialogWithItsPagesAndPrintsTheScreen) {
    for (const Print& print : kPrints) {
        Screen& screen = Show(print.screen);
        host.print_dialogs.clear();
        host.printed = 0;
        std::size_t dialogs_before_printing = 0;
        host.on_print = [&] { dialogs_before_printing = host.print_dialogs.size(); };
        host.ExpectBox(PrintQuestion(print.screen), MsgBoxStyle::YesNo, MsgBoxAnswer::Yes);
        Choose("imprimir");
        ASSERT_EQ(host.print_dialogs.size(), 1U) << screen.Name();
        EXPECT_EQ(host.print_dialogs[0].Flags, 524288U) << screen.Name();
        EXPECT_EQ(host.print_dialogs[0].FromPage, print.first_page) << screen.Name();
        EXPECT_EQ(host.print_dialogs[0].ToPage, print.last_page) << screen.Name();
        EXPECT_EQ(host.printed, 1) << screen.Name();
        EXPECT_EQ(dialogs_before_printing, 1U) << screen.Name();
        EXPECT_EQ(&chain.Current(), &screen);
        host.on_print = nullptr;
    }
}

TEST_F(ScreensTest, Imprimir_OnNoShowsNoDialogAndPrintsNothing) {
    for (const Print& print : kPrints) {
        Show(print.screen);
        host.ExpectBox(PrintQuestion(print.screen), MsgBoxStyle::YesNo, MsgBoxAnswer::No);
        Choose("imprimir");
        EXPECT_TRUE(host.print_dialogs.empty()) << print.notice;
        EXPECT_EQ(host.printed, 0) << print.notice;
    }
}

/// A machine on which neither the print dialog nor printing works.
class WithoutPrinter : public ScriptedHost {
public:
    void ShowPrinter(CommonDialog& /*dialog*/) override {
        throw ErrorEjecucion(ErrorKind::InvalidOperation);
    }
    void PrintForm() override {
        ++tried;
        throw ErrorEjecucion(ErrorKind::InvalidOperation);
    }

    int tried = 0;
};

TEST_F(ScreensTest, Imprimir_PassesOverAPrintDialogAndAPrintThatFail) {
    for (const Print& print : kPrints) {
        WithoutPrinter failing;
        failing.ExpectBox(PrintQuestion(print.screen), MsgBoxStyle::YesNo, MsgBoxAnswer::Yes);
        const auto screen = MakeScreen(print.screen, Environment{record, chain, failing});
        EXPECT_NO_THROW(screen->FindEntry("imprimir")->Click()) << screen->Name();
        EXPECT_EQ(failing.tried, 1) << screen->Name();
    }
}

TEST_F(ScreensTest, Imprimir_Form1HasNoSuchEntry) {
    EXPECT_EQ(Show(ScreenId::Form1).FindEntry("imprimir"), nullptr);
}

// The clock

std::tm Moment(int day, int month, int year, int hour, int minute, int second) {
    std::tm moment{};
    moment.tm_mday = day;
    moment.tm_mon = month - 1;
    moment.tm_year = year - 1900;
    moment.tm_hour = hour;
    moment.tm_min = minute;
    moment.tm_sec = second;
    return moment;
}

TEST(FormatoFechaTest, WritesDayMonthYearFiveBlanksHourMinuteSecond) {
    EXPECT_EQ(FormatoFecha(Moment(24, 12, 2031, 17, 45, 58)), "24:12:31     17:45:58");
}

TEST(FormatoFechaTest, WritesTwoDigitsEach) {
    EXPECT_EQ(FormatoFecha(Moment(1, 2, 2003, 4, 5, 6)), "01:02:03     04:05:06");
    EXPECT_EQ(FormatoFecha(Moment(31, 1, 2000, 0, 0, 0)), "31:01:00     00:00:00");
    EXPECT_EQ(FormatoFecha(Moment(9, 10, 1999, 23, 59, 59)), "09:10:99     23:59:59");
}

TEST(FormatoFechaTest, TheFirstMmIsTheMonthAndTheSecondTheMinute) {
    EXPECT_EQ(FormatoFecha(Moment(15, 11, 2024, 10, 22, 33)), "15:11:24     10:22:33");
}

TEST(FormatoFechaTest, ALeapSecondIsWrittenAsItComes) {
    EXPECT_EQ(FormatoFecha(Moment(31, 12, 2016, 23, 59, 60)), "31:12:16     23:59:60");
}

struct Clock {
    ScreenId id;
    std::string_view label;
};

constexpr std::array<Clock, 6> kClocks = {{{ScreenId::Form1, "Label5"},
                                           {ScreenId::Form2, "Label3"},
                                           {ScreenId::Form3, "Label2"},
                                           {ScreenId::Form4, "Label1"},
                                           {ScreenId::Form5, "Label5"},
                                           {ScreenId::Form6, "Label2"}}};

std::string CaptionOf(const Screen& screen, std::string_view label) {
    const Control* control = screen.FindControl(label);
    if (control == nullptr) return "no such label";
    return std::get<Label*>(control->state)->Caption;
}

TEST_F(ScreensTest, Clock_StartsWithTheFirstTimerEvent) {
    for (const Clock& clock : kClocks) {
        EXPECT_EQ(CaptionOf(Show(clock.id), clock.label), "");
    }
}

TEST_F(ScreensTest, Clock_TheTimerSetsItsLabelAndNothingElse) {
    host.now = Moment(1, 2, 2003, 4, 5, 6);
    for (const Clock& clock : kClocks) {
        Screen& screen = Show(clock.id);
        const auto shown = StateOf(screen);
        const std::string caption = screen.Caption;
        screen.Timer1_Timer();
        EXPECT_EQ(CaptionOf(screen, clock.label), "01:02:03     04:05:06") << screen.Name();
        EXPECT_EQ(Changed(shown, screen), std::vector{std::string(clock.label)}) << screen.Name();
        EXPECT_EQ(screen.Caption, caption) << screen.Name();
    }
    EXPECT_EQ(record, EvaluacionRecord{});
}

TEST_F(ScreensTest, Clock_FollowsTheTime) {
    for (const Clock& clock : kClocks) {
        Screen& screen = Show(clock.id);
        host.now = Moment(1, 2, 2003, 4, 5, 6);
        screen.Timer1_Timer();
        host.now.tm_sec = 7;
        screen.Timer1_Timer();
        EXPECT_EQ(CaptionOf(screen, clock.label), "01:02:03     04:05:07") << screen.Name();
        EXPECT_EQ(screen.Clock().Caption, "01:02:03     04:05:07") << screen.Name();
    }
}

TEST_F(ScreensTest, Clock_IsBoldWhiteAtTheFootOfTheWindowFromForm2On) {
    for (const Clock& clock : kClocks) {
        if (clock.id == ScreenId::Form1) continue;
        const auto screen = AsLaidOut(clock.id);
        const Row& row = screen->FindControl(clock.label)->row;
        EXPECT_TRUE(row.look.bold) << screen->Name();
        EXPECT_EQ(row.look.fore, 0xFFFFFFU) << screen->Name();
        EXPECT_EQ(row.look.points, 8.25) << screen->Name();
        EXPECT_GE(row.box.top, 7900) << screen->Name();
    }
}

// Form1

// clang-format off
constexpr std::array<Placed, 8> kOnForm1 = {{
    {"Picture1", {1680, 1200,  9255, 4575}, ""},
    {"Label1",   { 720,  120, 11055,  615}, "Velmora"},
    {"Label6",   {2760,  600,  7935,  255}, "Conforme a la norma UNE-689  y  a la Guía de Agentes Químicos"},
    {"Label4",   {5520, 6000,  6255,  375}, "Material didactico de apoyo para cursos de actualización  "},
    {"Label7",   {5640, 6480,  3135,  255}, "Version V.1.0        800 x 600 pixels"},
    {"Label2",   {4200, 6840,  7215,  255}, ""}, // the two credits are ours to word
    {"Label3",   {4440, 7200,  7455,  255}, ""},
    {"Label5",   {9120, 7680,  2295,  375}, ""},
}};
// clang-format on

TEST_F(ScreensTest, Form1_HasItsControlsInTheirPlacesWithTheirTexts) {
    const auto form1 = AsLaidOut(ScreenId::Form1);
    EXPECT_EQ(form1->Controls().size(), kOnForm1.size());
    for (const Placed& expected : kOnForm1) {
        const Control* control = form1->FindControl(expected.name);
        ASSERT_NE(control, nullptr) << expected.name;
        ExpectPlace(*control, expected.box);
        if (!expected.text.empty()) {
            EXPECT_EQ(CaptionOf(*form1, expected.name), expected.text);
        }
    }
}

TEST_F(ScreensTest, Form1_TheTwoCreditsSaySomething) {
    const auto form1 = AsLaidOut(ScreenId::Form1);
    EXPECT_NE(CaptionOf(*form1, "Label2"), "");
    EXPECT_NE(CaptionOf(*form1, "Label3"), "");
}

TEST_F(ScreensTest, Form1_TheHeadingIsLargeBoldDarkBlueOnWhiteAndCentred) {
    const auto form1 = AsLaidOut(ScreenId::Form1);
    const Look& heading = form1->FindControl("Label1")->row.look;
    EXPECT_EQ(heading.points, 14.25);
    EXPECT_TRUE(heading.bold);
    EXPECT_EQ(heading.fore, 0x800000U);  // blue in the third byte
    EXPECT_EQ(heading.back, 0xFFFFFFU);
    EXPECT_EQ(heading.align, Align::Center);
    EXPECT_EQ(heading.family, Family::Verdana);
}

TEST_F(ScreensTest, Form1_TheLineOnTheNormIsBoldDarkBlueInSerifs) {
    const auto form1 = AsLaidOut(ScreenId::Form1);
    const Look& norm = form1->FindControl("Label6")->row.look;
    EXPECT_EQ(norm.points, 12);
    EXPECT_TRUE(norm.bold);
    EXPECT_EQ(norm.fore, 0x800000U);
    EXPECT_EQ(norm.family, Family::TimesNewRoman);
}

TEST_F(ScreensTest, Form1_TheLineOnItsUseIsTwelvePointsAndTheClockSmallAndBlack) {
    const auto form1 = AsLaidOut(ScreenId::Form1);
    EXPECT_EQ(form1->FindControl("Label4")->row.look.points, 12);
    const Look& clock = form1->FindControl("Label5")->row.look;
    EXPECT_EQ(clock.points, 8.25);
    EXPECT_FALSE(clock.bold);
    EXPECT_EQ(clock.fore, 0x000000U);
}

TEST_F(ScreensTest, Form1_HasNoLoadHandlerOfItsOwn) {
    record.DatosEmpresa(1) = "Talleres";
    const EvaluacionRecord before = record;
    const auto laid_out = AsLaidOut(ScreenId::Form1);
    EXPECT_EQ(StateOf(Show(ScreenId::Form1)), StateOf(*laid_out));
    EXPECT_EQ(record, before);
}

}  // namespace
}  // namespace velmora::test
