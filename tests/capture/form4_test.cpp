#include "capture/form4.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "capture/form2.h"
#include "support/messages.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

constexpr KeyCode kPoint = 46;

/// The seven texts of a row as they stand on the screen, from left to right.
struct RowTexts {
    std::string number{}, name{}, vla_ed{}, vla_ec{}, tm{}, mark{}, unit{};

    friend bool operator==(const RowTexts&, const RowTexts&) = default;
};

void PrintTo(const RowTexts& row, std::ostream* out) {
    for (const std::string& text :
         {row.number, row.name, row.vla_ed, row.vla_ec, row.tm, row.mark, row.unit}) {
        *out << "[" << text << "]";
    }
}

class Form4Test : public VelmoraTest {
protected:
    Form4& OpenForm4() { return Open<Form4>(ScreenId::Form4); }

    /// Opens the screen on a plan of one day with these contaminants in each task.
    Form4& OpenWith(const std::vector<int>& contaminants) {
        record.NumJornadas = 1;
        record.NumTareas = static_cast<int>(contaminants.size());
        for (int t = 1; t <= static_cast<int>(contaminants.size()); ++t) {
            record.NumContaminantes(t) = contaminants[static_cast<std::size_t>(t - 1)];
        }
        return OpenForm4();
    }

    void Type(int i, std::string_view text) { VelmoraTest::Type(Indexed("Text1", i), text); }
    void DoubleClick(int i) { VelmoraTest::DoubleClick(Indexed("Text3", i)); }

    /// Whether the filter of `Text1(i)` lets the key through.
    bool Takes(int i, KeyCode key) {
        const KeyCode before = key;
        Find(Indexed("Text1", i)).events.KeyPress(key);
        EXPECT_TRUE(key == before || key == 0) << "a key is passed or refused, never another one";
        return key != 0;
    }

    /// Fills row r by keys, picks and double-clicks.
    void FillRow(int r, std::string_view name, std::string_view vla_ed, std::string_view vla_ec,
                 std::string_view mark, std::string_view unit, int double_clicks = 1) {
        Type(5 * r - 4, name);
        Type(5 * r - 3, vla_ed);
        Type(5 * r - 2, vla_ec);
        for (int n = 0; n < double_clicks; ++n) DoubleClick(r - 1);
        Type(5 * r - 1, mark);
        Pick(Indexed("Combo13", r - 1), unit);
    }

    RowTexts RowOf(int r) {
        const auto& form = Current<Form4>();
        return {form.Text1(5 * r - 5).Text, form.Text1(5 * r - 4).Text, form.Text1(5 * r - 3).Text,
                form.Text1(5 * r - 2).Text, form.Text3(r - 1).Text,     form.Text1(5 * r - 1).Text,
                form.Combo13(r - 1).Text};
    }

    /// Presses the button: this message, and the record as it was.
    void ExpectRefused(const std::string& button, std::string_view message) {
        const EvaluacionRecord before = record;
        host.ExpectBox(std::string(message));
        Press(button);
        EXPECT_TRUE(record == before);
    }

    /// Rows 1 to n are open, with their number alone locked; the others are closed and empty.
    void ExpectOpenRows(int n) {
        const auto& form = Current<Form4>();
        for (int r = 1; r <= 6; ++r) {
            SCOPED_TRACE(r);
            const bool open = r <= n;
            for (int i = 5 * r - 5; i <= 5 * r - 1; ++i) {
                EXPECT_EQ(form.Text1(i).Visible, open) << i;
                EXPECT_EQ(form.Text1(i).Locked, !open || i == 5 * r - 5) << i;
            }
            EXPECT_EQ(form.Text3(r - 1).Visible, open);
            EXPECT_EQ(form.Text3(r - 1).Locked, !open);
            EXPECT_EQ(form.Combo13(r - 1).Visible, open);
            EXPECT_EQ(form.Combo13(r - 1).Locked, !open);
            if (!open) {
                EXPECT_EQ(RowOf(r), RowTexts{});
            }
        }
    }

    /// A stored list of task 1: toluene, with limits that are halves.
    void StoreHalves() {
        record.NumJornadas = 1;
        record.NumTareas = 1;
        record.NumContaminantes(1) = 1;
        record.NombreContaminante(1, 1) = "Tolueno";
        record.VlaEd(1, 1) = 0.5;
        record.VlaEc(1, 1) = 12.5;
        record.TiempoMuestreo(1, 1) = 30;
        record.Aditivo(1, 1) = 1;
        record.Unidades(1, 1) = "ppm";
    }
};

bool HeadingsVisible(const Form4& form) {
    return form.Label5.Visible &&
           std::ranges::all_of(form.Label4, [](const Label& heading) { return heading.Visible; });
}

bool HeadingsHidden(const Form4& form) {
    return !form.Label5.Visible &&
           std::ranges::none_of(form.Label4, [](const Label& heading) { return heading.Visible; });
}

// ---- layout

TEST_F(Form4Test, HeadingsAndButtonsStandWhereTheDesignPutsThemWithTheirTexts) {
    const Form4& form = OpenForm4();
    // clang-format off
    const std::vector<Placed> labels = {
        {"Label2",    { 120,    0, 11895, 375}, "Cararcteristicas de los contaminates  analizados por  tareas "},
        {"Label3(0)", { 120,  480,   975, 255}, "Tarea"},
        {"Label4(0)", { 120, 1200,   375, 255}, "Nº"},
        {"Label4(1)", { 600, 1200,  2055, 255}, "Nombre del contaminante"},
        {"Label4(2)", {2760, 1200,   615, 255}, "VLA-ED"},
        {"Label4(3)", {3480, 1200,   615, 255}, "VLA-EC"},
        {"Label4(4)", {4680, 1200,   375, 255}, "Adit."},
        {"Label4(5)", {5160, 1200,   735, 255}, "Unidades"},
        {"Label5",    {4200, 1200,   375, 255}, "TM"},
    };
    // clang-format on
    for (const Placed& expected : labels) {
        const Control& label = Find(std::string(expected.name));
        ExpectPlaced(label, expected);
        EXPECT_EQ(label.row.tab, kNoTab) << label.name;
    }
    ExpectPlace(Find("Command3"), {2040, 480, 3855, 255});
    EXPECT_EQ(form.Command3.Caption, "Visualizar / Modificar");
    ExpectPlace(Find("Command1"), {120, 840, 5775, 255});
    EXPECT_EQ(form.Command1.Caption, "Validar");
}

TEST_F(Form4Test, TheTaskListOffersOneToThreeAndStartsEmpty) {
    const Form4& form = OpenForm4();
    ExpectPlace(Find("Combo1"), {1080, 480, 855, 315});
    const auto items = Find("Combo1").row.items;
    EXPECT_EQ(std::vector(items.begin(), items.end()),
              (std::vector<std::string_view>{"1", "2", "3"}));
    EXPECT_EQ(form.Combo1.Text, "");
}

TEST_F(Form4Test, TheSixRowsStandWhereTheDesignPutsThem) {
    OpenForm4();
    struct Column {
        int offset, left, width;
    };
    for (int r = 1; r <= 6; ++r) {
        const int top = 1560 + 360 * (r - 1);
        for (const Column& column :
             {Column{5, 120, 375}, Column{4, 600, 2055}, Column{3, 2760, 615}, Column{2, 3480, 615},
              Column{1, 4680, 375}}) {
            ExpectPlace(Find(Indexed("Text1", 5 * r - column.offset)),
                        {column.left, top, column.width, 285});
        }
        ExpectPlace(Find(Indexed("Text3", r - 1)), {4200, top, 375, 285});
        ExpectPlace(Find(Indexed("Combo13", r - 1)), {5160, top, 735, 330});
        const auto items = Find(Indexed("Combo13", r - 1)).row.items;
        EXPECT_EQ(std::vector(items.begin(), items.end()),
                  (std::vector<std::string_view>{"mg/m3", "ppm"}));
    }
}

TEST_F(Form4Test, TheTabKeyRunsDownTheColumns) {
    const Form4& form = OpenForm4();
    std::map<int, std::string> by_tab;
    for (const Control& control : form.Controls()) {
        if (control.row.tab != kNoTab) by_tab[control.row.tab] = control.name;
    }
    std::vector<std::string> order;
    order.reserve(by_tab.size());
    for (const auto& [tab, name] : by_tab) order.push_back(name);
    std::vector<std::string> expected;
    for (int r = 1; r <= 6; ++r) expected.push_back(Indexed("Combo13", r - 1));
    for (int r = 1; r <= 6; ++r) expected.push_back(Indexed("Text3", r - 1));
    for (const int offset : {4, 3, 2, 1, 5}) {  // names, VLA-ED, VLA-EC, marks, row numbers
        for (int r = 1; r <= 6; ++r) expected.push_back(Indexed("Text1", 5 * r - offset));
    }
    expected.insert(expected.end(), {"Command1", "Command3", "Combo1"});
    EXPECT_EQ(order, expected);
    EXPECT_EQ(by_tab.rbegin()->first, 44) << "45 controls, counted from 0";
}

TEST_F(Form4Test, TheScreenHasTheControlsOfTheDesignAndNoOthers) {
    const Form4& form = OpenForm4();
    std::map<std::string_view, int> count;
    for (const Control& control : form.Controls()) ++count[control.row.name];
    EXPECT_EQ(count, (std::map<std::string_view, int>{{"Label1", 1},
                                                      {"Label2", 1},
                                                      {"Label3", 1},
                                                      {"Label4", 6},
                                                      {"Label5", 1},
                                                      {"Combo1", 1},
                                                      {"Combo13", 6},
                                                      {"Command1", 1},
                                                      {"Command3", 1},
                                                      {"Text1", 30},
                                                      {"Text3", 6}}));
}

TEST_F(Form4Test, EveryCellAndListHasASpokenNameOfItsOwnAndTheButtonsAreToldApart) {
    const Form4& form = OpenForm4();
    std::set<std::string> names;
    for (const Control& control : form.Controls()) {
        if (control.row.tab == kNoTab || control.name == "Command3") continue;
        EXPECT_FALSE(control.spoken.empty()) << control.name;
        names.insert(control.spoken);
    }
    EXPECT_EQ(names.size(), 44u);
    EXPECT_EQ(Find("Text1(7)").spoken, "Contaminante 2, VLA-ED");
    EXPECT_EQ(Find("Combo1").spoken, "Tarea");
    EXPECT_EQ(Find("Command1").spoken, "Validar los contaminantes de la tarea");
}

TEST_F(Form4Test, OnlyTheNamesAreFreeText) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) {
        EXPECT_EQ(Find(Indexed("Text1", i)).events.free_text, i % 5 == 1) << i;
    }
    for (int i = 0; i <= 5; ++i) EXPECT_FALSE(Find(Indexed("Text3", i)).events.free_text) << i;
}

TEST_F(Form4Test, TheUnitListsHaveNoClickHandler) {
    OpenForm4();
    for (int i = 0; i <= 5; ++i) EXPECT_FALSE(Find(Indexed("Combo13", i)).events.Click) << i;
    EXPECT_TRUE(Find("Combo1").events.Click);
}

// ---- load

TEST_F(Form4Test, Load_OpensWithNoRowsWhateverHasBeenStored) {
    StoreHalves();
    const EvaluacionRecord before = record;
    const Form4& form = OpenForm4();
    EXPECT_EQ(form.Combo1.Text, "");
    for (int i = 0; i <= 29; ++i) {
        EXPECT_FALSE(form.Text1(i).Visible) << i;
        EXPECT_EQ(form.Text1(i).Text, "") << i;
        EXPECT_FALSE(form.Text1(i).Locked) << "load hides the cells without locking them";
    }
    for (int i = 0; i <= 5; ++i) {
        EXPECT_FALSE(form.Combo13(i).Visible) << i;
        EXPECT_TRUE(form.Combo13(i).Locked) << i;
        EXPECT_EQ(form.Combo13(i).Text, "") << i;
        EXPECT_FALSE(form.Text3(i).Visible) << i;
        EXPECT_FALSE(form.Text3(i).Locked) << i;
        EXPECT_EQ(form.Text3(i).Text, "") << i;
    }
    EXPECT_TRUE(HeadingsHidden(form));
    EXPECT_TRUE(form.Label2.Visible && form.Label3(0).Visible);
    EXPECT_TRUE(form.Command1.Visible && form.Command1.Enabled);
    EXPECT_TRUE(form.Command3.Visible && form.Command3.Enabled);
    EXPECT_TRUE(record == before);
}

TEST_F(Form4Test, Load_EmptiesWhatStandsInTheControls) {
    Form4& form = OpenWith({2});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "50", "100", "0", "ppm");
    form.Form_Load();
    EXPECT_EQ(RowOf(1), RowTexts{});
    EXPECT_FALSE(form.Text1(1).Visible);
    EXPECT_FALSE(form.Text1(1).Locked);
    EXPECT_TRUE(form.Combo13(0).Locked);
}

// ---- the pick of a task

TEST_F(Form4Test, APickOpensAsManyRowsAsTheTaskHasContaminants) {
    const Form4& form = OpenWith({4, 6, 1});
    for (const auto& [task, rows] : {std::pair{"1", 4}, {"2", 6}, {"3", 1}, {"1", 4}}) {
        Pick("Combo1", task);
        ExpectOpenRows(rows);
        for (int r = 1; r <= rows; ++r) EXPECT_EQ(RowOf(r), RowTexts{.number = TextoEntero(r)});
        EXPECT_TRUE(HeadingsVisible(form));
    }
}

TEST_F(Form4Test, APickStoresNothing) {
    OpenWith({3, 2});
    const EvaluacionRecord before = record;
    Pick("Combo1", "2");
    EXPECT_TRUE(record == before);
}

TEST_F(Form4Test, APickOfATaskWithoutACountOpensNoRowsAndCommand1SaysNothing) {
    const Form4& form = OpenWith({0, 2});
    Pick("Combo1", "1");
    ExpectOpenRows(0);
    EXPECT_TRUE(HeadingsVisible(form));
    const EvaluacionRecord before = record;
    Press("Command1");
    Press("Command3");
    EXPECT_TRUE(record == before);
    ExpectOpenRows(0);
}

TEST_F(Form4Test, WithoutAPlanAnyPickGivesTheMessageOnTheAssignedValue) {
    const Form4& form = OpenForm4();
    for (const char* task : {"1", "2", "3"}) {
        host.ExpectBox(messages::kTaskAboveOnPick);
        Pick("Combo1", task);
        ExpectOpenRows(0);
        EXPECT_TRUE(HeadingsVisible(form)) << "the headings come before the message";
    }
}

TEST_F(Form4Test, TaskThreeOfAPlanOfTwoGivesTheLongMessageAndThenTheShortOnes) {
    OpenWith({2, 2});
    record.NumContaminantes(3) = 2;  // left from a longer plan: it opens nothing
    host.ExpectBox(messages::kTaskAboveOnPick);
    Pick("Combo1", "3");
    ExpectOpenRows(0);
    ExpectRefused("Command1", messages::kTaskAbove);
    ExpectRefused("Command3", messages::kTaskAbove);
    ExpectOpenRows(0);
}

TEST_F(Form4Test, APickEmptiesTypedRowsWithoutAQuestionTheSameTaskIncluded) {
    OpenWith({2, 2});
    for (const char* again : {"1", "2"}) {
        Pick("Combo1", "1");
        FillRow(1, "Tolueno", "50", "100", "1", "ppm");
        const EvaluacionRecord before = record;
        Pick("Combo1", again);
        ExpectOpenRows(2);
        EXPECT_EQ(RowOf(1), RowTexts{.number = "1"});
        EXPECT_TRUE(record == before);
    }
}

TEST_F(Form4Test, ARefusedPickClosesTheRowsToo) {
    OpenWith({2, 2});
    Pick("Combo1", "1");
    host.ExpectBox(messages::kTaskAboveOnPick);
    Pick("Combo1", "3");
    ExpectOpenRows(0);
}

TEST_F(Form4Test, WithoutATaskEveryHandlerAsksForOne) {
    Form4& form = OpenWith({2});
    ExpectRefused("Command1", messages::kNoTask);
    ExpectRefused("Command3", messages::kNoTask);
    EXPECT_TRUE(HeadingsHidden(form));
    host.ExpectBox(messages::kNoTask);
    form.Combo1_Click();  // a list whose text is empty can't be picked from
    ExpectOpenRows(0);
    EXPECT_TRUE(HeadingsVisible(form));
}

TEST_F(Form4Test, TextThatIsNoNumberFailsInThePickAndInTheTwoButtons) {
    Form4& form = OpenWith({1});
    form.Combo1.Text = "x";
    ExpectError(ErrorKind::TypeMismatch, [&] { form.Combo1_Click(); });
    // By the leading-number rule it is task 0, of which there is none.
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command1_Click(); });
    ExpectError(ErrorKind::TypeMismatch, [&] { form.Command3_Click(); });
}

TEST_F(Form4Test, ARestoredCountOfSevenEndsOnTheSubscriptErrorAtThePick) {
    Form4& form = OpenWith({7});
    form.Combo1.Text = "1";
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Combo1_Click(); });
}

TEST_F(Form4Test, ARestoredCountWhoseCellsDoNotFitAnIntegerEndsOnTheOverflow) {
    Form4& form = OpenWith({6554});  // 5 x 6554 = 32770
    form.Combo1.Text = "1";
    ExpectError(ErrorKind::Overflow, [&] { form.Combo1_Click(); });
    record.NumContaminantes(1) = 6553;  // 32765 is an Integer, but there is no cell 30
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Combo1_Click(); });
}

// ---- Command1

TEST_F(Form4Test, Command1_StoresEveryColumnOfTheTaskAndTheNamesOfTheFinalTable) {
    OpenWith({2});
    EvaluacionRecord expected = record;
    expected.NombreContaminante(1, 1) = "Tolueno";
    expected.VlaEd(1, 1) = 191;
    expected.VlaEc(1, 1) = 384.5;
    expected.Aditivo(1, 1) = 1;
    expected.Unidades(1, 1) = "mg/m3";
    expected.TiempoMuestreo(1, 1) = 30;
    expected.HojaFinal(1, 2) = "Tolueno";
    expected.NombreContaminante(1, 2) = "m-Xileno ";
    expected.VlaEd(1, 2) = 50;
    expected.VlaEc(1, 2) = 0;
    expected.Aditivo(1, 2) = 9;
    expected.Unidades(1, 2) = "ppm";
    expected.TiempoMuestreo(1, 2) = 15;
    expected.HojaFinal(2, 2) = "m-Xileno ";
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "191", "384.5", "1", "mg/m3");
    FillRow(2, "m-Xileno ", "50", "0", "9", "ppm", 2);
    Press("Command1");
    EXPECT_TRUE(record == expected);
    EXPECT_EQ(RowOf(2), (RowTexts{"2", "m-Xileno ", "50", "0", "15", "9", "ppm"}))
        << "the rows stay as they stand";
}

TEST_F(Form4Test, Command1_PutsTheNamesOfTask2InRows7To12AndKeepsTheRowsBehindTheCount) {
    OpenWith({1, 4});
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) {
            record.HojaFinal(row, column) = TextoEntero(row) + "/" + TextoEntero(column);
        }
    }
    record.NombreContaminante(2, 5) = "el quinto de antes";
    Pick("Combo1", "2");
    for (int r = 1; r <= 4; ++r) FillRow(r, "agente " + TextoEntero(r), "1", "2", "0", "ppm");
    auto expected = record.HojaFinal;
    for (int r = 1; r <= 4; ++r) expected(6 + r, 2) = "agente " + TextoEntero(r);
    Press("Command1");
    EXPECT_TRUE(record.HojaFinal == expected);
    EXPECT_EQ(record.HojaFinal(11, 2), "11/2");
    EXPECT_EQ(record.HojaFinal(12, 2), "12/2");
    EXPECT_EQ(record.NombreContaminante(2, 5), "el quinto de antes");
    EXPECT_EQ(record.NombreContaminante(1, 1), "");
}

TEST_F(Form4Test, Command1_PutsTheNamesOfTask3InRows13To18) {
    OpenWith({1, 1, 6});
    Pick("Combo1", "3");
    for (int r = 1; r <= 6; ++r) FillRow(r, "c" + TextoEntero(r), "1", "2", "0", "ppm");
    Press("Command1");
    for (int r = 1; r <= 6; ++r) EXPECT_EQ(record.HojaFinal(12 + r, 2), "c" + TextoEntero(r));
    EXPECT_EQ(record.HojaFinal(12, 2), "");
}

TEST_F(Form4Test, Command1_WithAnyOneCellEmptyIsRefusedBeforeTheFirstStore) {
    OpenWith({2});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "191", "384", "1", "mg/m3");
    FillRow(2, "Xileno", "50", "100", "1", "ppm");
    auto& form = Current<Form4>();
    std::vector<std::string*> texts;
    texts.reserve(12);
    for (int i = 0; i < 10; ++i) texts.push_back(&form.Text1(i).Text);
    for (int i = 0; i < 2; ++i) texts.push_back(&form.Text3(i).Text);
    for (int i = 0; i < 2; ++i) texts.push_back(&form.Combo13(i).Text);
    for (std::string* text : texts) {
        const std::string before = std::exchange(*text, "");
        ExpectRefused("Command1", messages::kRowsIncomplete);
        *text = before;
    }
    Press("Command1");
    EXPECT_EQ(record.NombreContaminante(1, 2), "Xileno");
}

TEST_F(Form4Test, Command1_DoesNotLookAtTheRowsBehindTheCount) {
    OpenWith({1});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "191", "384", "1", "mg/m3");
    Press("Command1");  // rows 2 to 6 are empty
    EXPECT_EQ(record.NombreContaminante(1, 1), "Tolueno");
}

TEST_F(Form4Test, Command1_ComparesNoValueWithAnother) {
    OpenWith({2});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "100", "50", "0", "ppm");  // EC below ED
    FillRow(2, "Tolueno", "0", "0", "0", "ppm");     // limits of 0, a name repeated
    Press("Command1");
    EXPECT_EQ(record.VlaEd(1, 1), 100);
    EXPECT_EQ(record.VlaEc(1, 1), 50);
    EXPECT_EQ(record.VlaEd(1, 2), 0);
    EXPECT_EQ(record.NombreContaminante(1, 2), "Tolueno");
}

TEST_F(Form4Test, Command1_LooksForTheTaskThenForThePlanThenForEmptyCells) {
    Form4& form = OpenWith({1});
    Pick("Combo1", "1");  // a row, all empty
    ExpectRefused("Command1", messages::kRowsIncomplete);
    record.NumTareas = 0;
    ExpectRefused("Command1", messages::kTaskAbove);
    form.Combo1.Text = "";
    ExpectRefused("Command1", messages::kNoTask);
}

TEST_F(Form4Test, Command1_ReplacesAStoredList) {
    StoreHalves();
    OpenForm4();
    Pick("Combo1", "1");
    FillRow(1, "Xileno", "50", "100", "0", "mg/m3", 2);
    Press("Command1");
    EXPECT_EQ(record.NombreContaminante(1, 1), "Xileno");
    EXPECT_EQ(record.VlaEd(1, 1), 50);
    EXPECT_EQ(record.TiempoMuestreo(1, 1), 15);
    EXPECT_EQ(record.HojaFinal(1, 2), "Xileno");
}

TEST_F(Form4Test, Command1_AMarkBeyondAnIntegerEndsOnTheOverflow) {
    Form4& form = OpenWith({1});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "1", "1", "1", "ppm");
    form.Text1(4).Text = "32768";
    ExpectError(ErrorKind::Overflow, [&] { form.Command1_Click(); });
}

TEST_F(Form4Test, Command1_RoundsMarkAndTmHalfToEven) {
    Form4& form = OpenWith({1});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "1", "1", "1", "ppm");
    form.Text1(4).Text = "2.5 x";
    form.Text3(0).Text = "15.5 min";
    Press("Command1");
    EXPECT_EQ(record.Aditivo(1, 1), 2);
    EXPECT_EQ(record.TiempoMuestreo(1, 1), 16);
}

// ---- Command3

TEST_F(Form4Test, Command3_BringsTheStoredListBackIntoTheRows) {
    StoreHalves();
    record.NumContaminantes(1) = 2;
    record.NombreContaminante(1, 2) = "  m-Xileno ";
    record.VlaEd(1, 2) = 221;
    record.VlaEc(1, 2) = 442;
    record.TiempoMuestreo(1, 2) = 15;
    record.Aditivo(1, 2) = 9;
    record.Unidades(1, 2) = "mg/m3";
    const EvaluacionRecord before = record;
    OpenForm4();
    Pick("Combo1", "1");
    Press("Command3");
    EXPECT_EQ(RowOf(1), (RowTexts{"1", "Tolueno", "0.5", "12.5", "30", "1", "ppm"}));
    EXPECT_EQ(RowOf(2), (RowTexts{"2", "  m-Xileno ", "221", "442", "15", "9", "mg/m3"}));
    ExpectOpenRows(2);
    EXPECT_TRUE(record == before);
}

TEST_F(Form4Test, Command3_AndCommand1KeepAStoredListUnderThePoint) {
    StoreHalves();
    EvaluacionRecord expected = record;
    expected.HojaFinal(1, 2) = "Tolueno";
    OpenForm4();
    Pick("Combo1", "1");
    Press("Command3");
    Press("Command1");
    EXPECT_TRUE(record == expected);
}

TEST_F(Form4Test, Command3_UnderTheCommaShowsACommaAtWhichCommand1Stops) {
    const WithSeparator comma(",");
    StoreHalves();
    OpenForm4();
    Pick("Combo1", "1");
    Press("Command3");
    EXPECT_EQ(RowOf(1).vla_ed, "0,5");
    EXPECT_EQ(RowOf(1).vla_ec, "12,5");
    Press("Command1");
    EXPECT_EQ(record.VlaEd(1, 1), 0);
    EXPECT_EQ(record.VlaEc(1, 1), 12);
}

TEST_F(Form4Test, UnderTheCommaAValueRetypedWithAPointIsKept) {
    const WithSeparator comma(",");
    StoreHalves();
    OpenForm4();
    Pick("Combo1", "1");
    Press("Command3");
    Type(2, "\b");
    Type(2, "0.5");
    Press("Command1");
    EXPECT_EQ(record.VlaEd(1, 1), 0.5);
}

TEST_F(Form4Test, Command3_OfATaskNeverStoredShowsAnEmptyNameAndZeros) {
    OpenWith({1, 2});
    Pick("Combo1", "2");
    Press("Command3");
    EXPECT_EQ(RowOf(1), (RowTexts{"1", "", "0", "0", "0", "0", ""}));
    EXPECT_EQ(RowOf(2), (RowTexts{"2", "", "0", "0", "0", "0", ""}));
}

TEST_F(Form4Test, Command3_OverwritesWhatWasTyped) {
    StoreHalves();
    OpenForm4();
    Pick("Combo1", "1");
    FillRow(1, "Otro", "1", "2", "3", "mg/m3", 2);
    Press("Command3");
    EXPECT_EQ(RowOf(1), (RowTexts{"1", "Tolueno", "0.5", "12.5", "30", "1", "ppm"}));
}

TEST_F(Form4Test, Command3_ShowsTheTaskPickedAndNoOther) {
    StoreHalves();
    record.NumTareas = 3;
    record.NumContaminantes(3) = 1;
    record.NombreContaminante(3, 1) = "Etilbenceno";
    OpenForm4();
    Pick("Combo1", "3");
    Press("Command3");
    EXPECT_EQ(RowOf(1).name, "Etilbenceno");
    ExpectOpenRows(1);
}

TEST_F(Form4Test, Command3_DoesNotOpenRows) {
    Form4& form = OpenWith({1});
    record.NombreContaminante(1, 1) = "Tolueno";
    form.Combo1.Text = "1";  // no pick has opened the row
    Press("Command3");
    EXPECT_EQ(form.Text1(1).Text, "Tolueno");
    EXPECT_FALSE(form.Text1(1).Visible);
    EXPECT_TRUE(HeadingsHidden(form));
}

// ---- the TM cells

TEST_F(Form4Test, DoubleClicksOnATmCellGive30ThenGo15And30InTurn) {
    OpenWith({6});
    Pick("Combo1", "1");
    for (int i = 0; i <= 5; ++i) {
        for (const char* tm : {"30", "15", "30", "15"}) {
            DoubleClick(i);
            EXPECT_EQ(RowOf(i + 1).tm, tm);
        }
        DoubleClick(i);
        EXPECT_EQ(RowOf(i + 1), (RowTexts{.number = TextoEntero(i + 1), .tm = "30"}));
    }
}

TEST_F(Form4Test, ThreeDoubleClicksOnAnEmptyTmCellLeave30) {
    OpenWith({1});
    Pick("Combo1", "1");
    for (int n = 0; n < 3; ++n) DoubleClick(0);
    EXPECT_EQ(RowOf(1).tm, "30");
}

TEST_F(Form4Test, ATmOf0FromCommand3IsFreedOnlyByANewPickOfTheTask) {
    OpenWith({1});
    Pick("Combo1", "1");
    Press("Command3");
    DoubleClick(0);
    EXPECT_EQ(RowOf(1).tm, "0");
    Pick("Combo1", "1");
    DoubleClick(0);
    EXPECT_EQ(RowOf(1).tm, "30");
}

TEST_F(Form4Test, ATmCellIsSwitchedByItsLeadingNumberAndAnyOtherContentStays) {
    Form4& form = OpenWith({1});
    Pick("Combo1", "1");
    for (const auto& [before, after] : {std::pair{"30 min", "15"},
                                        {"15.0", "30"},
                                        {"3E1", "15"},
                                        {"20", "20"},
                                        {" 30", " 30"},
                                        {"30.5", "30.5"},
                                        {"x", "x"},
                                        {"-15", "-15"}}) {
        form.Text3(0).Text = before;
        DoubleClick(0);
        EXPECT_EQ(form.Text3(0).Text, after);
    }
}

TEST_F(Form4Test, ADoubleClickOutsideTheSixTmCellsEndsWithoutAnError) {
    Form4& form = OpenWith({6});
    Pick("Combo1", "1");
    for (const int outside : {-1, 6, 30}) form.Text3_DblClick(outside);
    for (int r = 1; r <= 6; ++r) EXPECT_EQ(RowOf(r).tm, "");
}

// ---- the key filters

TEST_F(Form4Test, NoKeyReachesAListOrATmCell) {
    Form4& form = OpenWith({6});
    Pick("Combo1", "1");
    DoubleClick(0);
    int filtered = 0;
    for (const Control& control : form.Controls()) {
        if (control.row.name != "Combo1" && control.row.name != "Combo13" &&
            control.row.name != "Text3") {
            continue;
        }
        ASSERT_TRUE(control.events.KeyPress) << control.name;
        ++filtered;
        for (int code = 0; code <= 255; ++code) {
            KeyCode key = code;
            control.events.KeyPress(key);
            ASSERT_EQ(key, 0) << control.name << " lets " << code << " through";
        }
    }
    EXPECT_EQ(filtered, 13);
    EXPECT_EQ(RowOf(1).tm, "30");
    EXPECT_EQ(form.Combo1.Text, "1");
}

TEST_F(Form4Test, NamesAndRowNumbersTakeAnyKey) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) {
        if (i % 5 > 1) continue;
        for (int code = 1; code <= 255; ++code) EXPECT_TRUE(Takes(i, code)) << i << ": " << code;
    }
}

TEST_F(Form4Test, ALimitValueTakesDigitsBackspaceAndNothingElseAsItsFirstKey) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) {
        if (i % 5 != 2 && i % 5 != 3) continue;
        for (int code = 1; code <= 255; ++code) {
            Takes(0, 'x');  // a visit elsewhere: no digit counted yet
            EXPECT_EQ(Takes(i, code), code == 8 || (code >= 48 && code <= 57)) << i << ": " << code;
        }
    }
}

TEST_F(Form4Test, ALimitValueTakesAPointTooOnceADigitIsCounted) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) {
        if (i % 5 != 2 && i % 5 != 3) continue;
        for (int code = 1; code <= 255; ++code) {
            Takes(0, 'x');
            Takes(i, '7');
            EXPECT_EQ(Takes(i, code), code == 8 || code == 46 || (code >= 48 && code <= 57))
                << i << ": " << code;
        }
    }
}

TEST_F(Form4Test, ALimitValueTakesNoSecondPoint) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) {
        if (i % 5 != 2 && i % 5 != 3) continue;
        for (int code = 1; code <= 255; ++code) {
            Takes(0, 'x');
            Takes(i, '7');
            Takes(i, kPoint);
            EXPECT_EQ(Takes(i, code), code == 8 || (code >= 48 && code <= 57)) << i << ": " << code;
        }
    }
}

TEST_F(Form4Test, AMarkTakesDigitsOnly) {
    OpenForm4();
    for (int i = 4; i <= 29; i += 5) {
        for (int code = 1; code <= 255; ++code) {
            EXPECT_EQ(Takes(i, code), code >= 48 && code <= 57) << i << ": " << code;
        }
    }
}

TEST_F(Form4Test, AKeyAlreadyRefusedStaysRefusedInEveryCell) {
    OpenForm4();
    for (int i = 0; i <= 29; ++i) EXPECT_FALSE(Takes(i, 0)) << i;
}

TEST_F(Form4Test, APointAsTheFirstKeyIsRefusedOneAndAHalfPassesASecondPointDoesNot) {
    OpenWith({1});
    Pick("Combo1", "1");
    for (const int cell : {2, 3}) {
        Type(cell, ".");
        EXPECT_EQ(Current<Form4>().Text1(cell).Text, "");
        Type(cell, "1.5.");
        EXPECT_EQ(Current<Form4>().Text1(cell).Text, "1.5");
    }
}

TEST_F(Form4Test, ComingBackToACellCountsAnewSoThat1_5CanBecome1_52_3) {
    OpenWith({1});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "1.5", "2", "0", "ppm");
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "1.5") << "no digit counted since the return";
    Type(2, "2.3");
    EXPECT_EQ(RowOf(1).vla_ed, "1.52.3");
    Press("Command1");
    EXPECT_EQ(record.VlaEd(1, 1), 1.52);
}

TEST_F(Form4Test, BackspaceEmptiesALimitValueAtOnceAndItsCounters) {
    OpenWith({1});
    Pick("Combo1", "1");
    for (const int cell : {2, 3}) {
        Type(cell, "123.45");
        Type(cell, "\b");
        EXPECT_EQ(Current<Form4>().Text1(cell).Text, "");
        Type(cell, ".");
        EXPECT_EQ(Current<Form4>().Text1(cell).Text, "") << "no digit counted any more";
        Type(cell, "6.7");
        EXPECT_EQ(Current<Form4>().Text1(cell).Text, "6.7") << "no point counted any more";
    }
}

TEST_F(Form4Test, BackspaceInAMarkDoesNothingAndTheLastDigitTypedStays) {
    OpenWith({1});
    Pick("Combo1", "1");
    Type(4, "1");
    Type(4, "\b");
    EXPECT_EQ(RowOf(1).mark, "1");
    Type(4, "0");
    EXPECT_EQ(RowOf(1).mark, "0");
    Type(4, "x.");
    EXPECT_EQ(RowOf(1).mark, "0");
}

TEST_F(Form4Test, ARefusedKeyStillCountsAsAVisitToItsCell) {
    OpenWith({1});
    Pick("Combo1", "1");
    Type(2, "1");
    Type(3, "a");  // refused
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "1");
    Type(2, "2");
    Type(4, "a");  // refused in a mark
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "12");
}

TEST_F(Form4Test, KeysInANameAreAVisitToo) {
    OpenWith({1});
    Pick("Combo1", "1");
    Type(2, "1");
    Type(1, "T");
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "1");
}

TEST_F(Form4Test, ThePicksOfTheTaskAndCommand3LeaveTheCounters) {
    StoreHalves();
    OpenForm4();
    Pick("Combo1", "1");
    Type(2, "1");
    Pick("Combo1", "1");  // the cell is empty again, its digit still counted
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, ".");
    Press("Command3");  // shows 0.5; the point typed is still counted
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "0.5");
    Type(2, "7");
    EXPECT_EQ(RowOf(1).vla_ed, "0.57");
}

TEST_F(Form4Test, DoubleClicksAndPicksOfAUnitAreNoVisit) {
    OpenWith({1});
    Pick("Combo1", "1");
    Type(2, "1");
    DoubleClick(0);
    Pick("Combo13(0)", "ppm");
    KeyCode key = 'x';
    Find("Text3(0)").events.KeyPress(key);
    Type(2, ".5");
    EXPECT_EQ(RowOf(1).vla_ed, "1.5");
}

TEST_F(Form4Test, ADigitInOneRowCountsNothingForTheNext) {
    OpenWith({2});
    Pick("Combo1", "1");
    Type(2, "1");
    Type(7, ".");
    EXPECT_EQ(RowOf(2).vla_ed, "");
    Type(7, "2.5");
    EXPECT_EQ(RowOf(2).vla_ed, "2.5");
}

TEST_F(Form4Test, TheCountersStartAnewWithTheScreen) {
    OpenWith({1});
    Pick("Combo1", "1");
    Type(2, "1");
    OpenForm4();
    Pick("Combo1", "1");
    Type(2, ".");
    EXPECT_EQ(RowOf(1).vla_ed, "");
}

TEST_F(Form4Test, TheCountersAreIntegersAndOverflowBeyond32767Digits) {
    Form4& form = OpenForm4();
    for (const int cell : {2, 3}) {
        KeyCode key = '1';
        for (int n = 0; n < 32767; ++n) form.Text1_KeyPress(cell, key);
        EXPECT_EQ(key, '1');
        ExpectError(ErrorKind::Overflow, [&] { form.Text1_KeyPress(cell, key); });
    }
}

// ---- moves

TEST_F(Form4Test, Datosdeempresa_ReliesOnTheLoadOfForm2Alone) {
    record.DatosEmpresa(2) = "Los Olivos";
    OpenForm4();
    Choose("datosdeempresa");
    EXPECT_EQ(Current<Form2>().Text1(1).Text, messages::kNameHint);
    EXPECT_EQ(Current<Form2>().Text1(2).Text, "");
}

TEST_F(Form4Test, LeavingWithoutCommand1LosesWhatWasTyped) {
    OpenWith({1});
    Pick("Combo1", "1");
    FillRow(1, "Tolueno", "50", "100", "1", "ppm");
    const EvaluacionRecord before = record;
    Choose("datosiniciales");
    EXPECT_TRUE(record == before);
    EXPECT_TRUE(HeadingsHidden(OpenForm4()));
}

}  // namespace
}  // namespace velmora::test
