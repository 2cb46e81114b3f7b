#include "capture/form2.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "capture/form3.h"
#include "support/messages.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

constexpr std::string_view kHint = messages::kNameHint;

/// A folder of its own for a test's files.
class Folder {
public:
    Folder()
        : path_(std::filesystem::path(::testing::TempDir()) /
                (std::string("velmora_form2_") +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    /// Writes the lines with CR LF and gives the file's name.
    std::string Write(const std::string& name, const std::vector<std::string>& lines) const {
        std::ofstream file(path_ / name, std::ios::binary);
        for (const std::string& line : lines) file << line << "\r\n";
        return Name(name);
    }
    std::string Name(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

/// The first nineteen lines of an evaluation file, "E1" to "E19" with this ahead.
std::vector<std::string> CompanyLines(const std::string& ahead) {
    std::vector<std::string> lines;
    for (int i = 1; i <= 19; ++i) lines.push_back('"' + ahead + TextoEntero(i) + '"');
    return lines;
}

class Form2Test : public VelmoraTest {
protected:
    Form2& OpenForm2() { return Open<Form2>(ScreenId::Form2); }

    void ExpectStored(const std::map<int, std::string>& fields) {
        for (const auto& [field, text] : fields) EXPECT_EQ(record.DatosEmpresa(field), text);
    }

    void FillCompany() {
        for (int i = 1; i <= 19; ++i) record.DatosEmpresa(i) = "dato " + TextoEntero(i);
    }

    static std::vector<std::string> Texts(const Form2& form) {
        std::vector<std::string> texts;
        for (const TextCell& box : form.Text1) texts.push_back(box.Text);
        return texts;
    }
};

enum class Hue { Red, Blue, Bright, Other };

/// Pure red, pure blue at its brightest, or a darker pure blue.
Hue HueOf(Color color) {
    if (color == 0x0000FF) return Hue::Red;
    if (color == 0xFF0000) return Hue::Bright;
    return color > 0x800000 && color < 0xFF0000 && (color & 0xFFFF) == 0 ? Hue::Blue : Hue::Other;
}

// ---- layout

TEST_F(Form2Test, BoxesAndLabelsStandWhereTheDesignPutsThemInItsTabOrder) {
    OpenForm2();
    using enum Hue;
    struct Line {
        int tab, box, label, top;
        bool right;
        std::string_view text;
        Hue hue;
        int width, height;
        double points;
    };
    // clang-format off
    const std::vector<Line> lines = {
        { 0,  1,  0,  480, false, "Nombre de la empresa ",             Red,    3495, 285, 8.25},
        { 1,  4,  3,  840, false, "Calle/ Ctra./ Avedida/ Plaza",      Blue,   3495, 285, 8.25},
        { 2,  3,  2, 1200, false, "Parcela",                           Blue,   3495, 285, 8.25},
        { 3,  5,  4, 1560, false, "Número",                            Blue,   3495, 285, 8.25},
        { 4,  2,  1, 1920, false, "Poligono Industrial",               Blue,   3495, 285, 8.25},
        { 5,  6,  5, 2280, false, "Localidad",                         Blue,   3495, 285, 8.25},
        { 6,  7,  6, 2640, false, "Provincia",                         Blue,   3495, 285, 8.25},
        { 7, 11, 10, 3000, false, "Teléfono / Fax",                    Blue,   3495, 285, 8.25},
        { 8, 10,  9, 3360, false, "Número  C.I.F.",                    Blue,   3495, 285, 8.25},
        { 9, 12, 11, 3720, false, "E-mail",                            Blue,   3495, 285, 8.25},
        {10, 13, 12, 4080, false, "Página WEB",                        Blue,   3495, 285, 8.25},
        {11, 15, 14, 4440, false, "Número de centros de trabajo",      Blue,   3495, 270, 9.75},
        {12, 14, 13, 4800, false, "Número total de trabajadores",      Blue,   3495, 285, 8.25},
        {13, 16, 15,  840, true,  " Evaluación: Centro de trabajo ",   Bright, 3255, 285, 9.75},
        {14, 18, 19, 1200, true,  " Identificación de la evaluacion:", Bright, 3135, 285, 9.75},
        {15, 19, 18, 1560, true,  " Código de evaluación:",            Bright, 3135, 270, 9.75},
        {16,  8,  7, 1920, true,  "  Fecha de la evaluación",          Blue,   3135, 285, 8.25},
        {17, 17, 16, 2280, true,  "  Nº de trabajadores expuestos",    Blue,   3135, 270, 9.75},
        {18,  9,  8, 2640, true,  "Responsable de la empresa ",        Bright, 3135, 285, 8.25},
    };
    // clang-format on
    for (const Line& line : lines) {
        SCOPED_TRACE(line.text);
        const Control& box = Find(Indexed("Text1", line.box));
        ExpectPlace(box, {line.right ? 8520 : 2640, line.top, line.width, line.height});
        EXPECT_EQ(box.row.tab, line.tab);
        EXPECT_EQ(box.row.look.points, line.points);

        const Control& label = Find(Indexed("Label1", line.label));
        ExpectPlace(label, {line.right ? 6240 : 480, line.top, line.right ? 2295 : 2175, 255});
        EXPECT_EQ(std::get<Label*>(label.state)->Caption, line.text);
        EXPECT_EQ(HueOf(label.row.look.fore), line.hue);
        EXPECT_EQ(label.row.look.back, 0xFFFFFFu);
        EXPECT_EQ(label.row.look.bold, line.label == 0);
        EXPECT_EQ(label.row.tab, kNoTab);
    }
}

TEST_F(Form2Test, TheHeadingsAndTheClockStandWhereTheDesignPutsThem) {
    const Form2& form = OpenForm2();
    ExpectPlace(Find("Label2"), {480, 0, 11175, 375});
    EXPECT_EQ(form.Label2.Caption, "Datos de la Empresa");
    EXPECT_EQ(Find("Label2").row.look.points, 14.25);
    EXPECT_EQ(Find("Label2").row.look.back, 0xFFFFFFu);
    EXPECT_EQ(Find("Label2").row.look.align, Align::Center);
    EXPECT_EQ(Find("Label2").row.tool_tip,
              "Solamente los datos requeridos en color rojo son imprescindibles.");

    ExpectPlace(Find("Label4"), {6240, 480, 5175, 255});
    EXPECT_EQ(form.Label4.Caption, "DATOS DE LA EVALUACIÓN");
    EXPECT_EQ(Find("Label4").row.look.back, 0xFFFFFFu);
    EXPECT_EQ(Find("Label4").row.look.align, Align::Center);

    ExpectPlace(Find("Label3"), {9720, 7920, 2655, 255});
    EXPECT_TRUE(Find("Label3").row.look.bold);
    EXPECT_EQ(Find("Label3").row.look.fore, 0xFFFFFFu);
    EXPECT_EQ(Find("Label3").row.look.points, 8.25);
}

TEST_F(Form2Test, OnlyTheCompanysNameAndTheHeadingHaveAToolTip) {
    const Form2& form = OpenForm2();
    std::vector<std::string> with_tip;
    for (const Control& control : form.Controls()) {
        if (!control.row.tool_tip.empty()) with_tip.push_back(control.name);
    }
    EXPECT_EQ(with_tip, (std::vector<std::string>{"Label2", "Label1(0)"}));
    EXPECT_EQ(Find("Label1(0)").row.tool_tip, kHint);
}

TEST_F(Form2Test, TheScreenHasNineteenBoxesNineteenLabelsAndNothingElse) {
    const Form2& form = OpenForm2();
    std::multiset<std::string_view> names;
    for (const Control& control : form.Controls()) names.insert(control.row.name);
    EXPECT_EQ(names.size(), 41u);
    EXPECT_EQ(names.count("Text1"), 19u);
    EXPECT_EQ(names.count("Label1"), 19u);
    EXPECT_EQ(form.FindControl("Label1(17)"), nullptr);
}

TEST_F(Form2Test, EveryBoxIsFreeTextWithoutAKeyFilterOpenAndVisible) {
    const Form2& form = OpenForm2();
    for (int i = 1; i <= 19; ++i) {
        const Control& box = Find(Indexed("Text1", i));
        EXPECT_TRUE(box.events.free_text) << i;
        EXPECT_FALSE(box.events.KeyPress) << i;
        EXPECT_FALSE(form.Text1(i).Locked) << i;
        EXPECT_TRUE(form.Text1(i).Visible) << i;
    }
}

TEST_F(Form2Test, EveryBoxHasASpokenNameOfItsOwn) {
    OpenForm2();
    std::set<std::string> names;
    for (int i = 1; i <= 19; ++i) names.insert(Find(Indexed("Text1", i)).spoken);
    EXPECT_EQ(names.size(), 19u);
    EXPECT_FALSE(names.contains(""));
}

// ---- load

TEST_F(Form2Test, AFirstVisitShowsTheHintOneBlankAndSeventeenEmptyBoxes) {
    const Form2& form = OpenForm2();
    for (int i = 1; i <= 19; ++i) {
        EXPECT_EQ(form.Text1(i).Text, i == 1 ? kHint : std::string_view(i == 9 ? " " : "")) << i;
    }
}

TEST_F(Form2Test, LoadShowsAllElementsOnceTheCompanysNameIsStored) {
    FillCompany();
    record.DatosEmpresa(9) = "";  // an empty element empties the box that starts with a blank
    const Form2& form = OpenForm2();
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(form.Text1(i).Text, record.DatosEmpresa(i)) << i;
}

TEST_F(Form2Test, LoadWithoutACompanysNameIgnoresTheOtherElements) {
    FillCompany();
    record.DatosEmpresa(1) = "";
    const Form2& form = OpenForm2();
    EXPECT_EQ(form.Text1(1).Text, kHint);
    EXPECT_EQ(form.Text1(2).Text, "");
    EXPECT_EQ(form.Text1(9).Text, " ");
    EXPECT_EQ(form.Text1(19).Text, "");
}

TEST_F(Form2Test, LoadChangesNothingInTheRecord) {
    FillCompany();
    const EvaluacionRecord before = record;
    OpenForm2();
    EXPECT_TRUE(record == before);
}

// ---- the four entries of continuar

struct Way {
    std::string_view entry;
    ScreenId target;
};

void PrintTo(const Way& way, std::ostream* out) { *out << way.entry; }

class Form2WayTest : public Form2Test, public ::testing::WithParamInterface<Way> {};

TEST_P(Form2WayTest, AnUntouchedScreenStoresTheHintOneBlankAndDashes) {
    OpenForm2();
    Choose(GetParam().entry);
    EXPECT_EQ(chain.Current().Id(), GetParam().target);
    for (int i = 1; i <= 19; ++i) {
        EXPECT_EQ(record.DatosEmpresa(i), i == 1 ? kHint : std::string_view(i == 9 ? " " : "---"))
            << i;
    }
}

TEST_P(Form2WayTest, AnEmptyNameIsRefusedWithTheMessageAndStoresNothing) {
    FillCompany();
    Form2& form = OpenForm2();
    form.Text1(1).Text = "";
    form.Text1(2).Text = "recién tecleado";
    const EvaluacionRecord before = record;
    host.ExpectBox(messages::kNoName);
    Choose(GetParam().entry);
    EXPECT_EQ(&chain.Current(), &form);
    EXPECT_EQ(form.Text1(2).Text, "recién tecleado");
    EXPECT_TRUE(record == before);
}

TEST_P(Form2WayTest, ANameOfOneBlankIsAcceptedAndStoredAsItStands) {
    Form2& form = OpenForm2();
    form.Text1(1).Text = " ";
    Choose(GetParam().entry);
    EXPECT_EQ(chain.Current().Id(), GetParam().target);
    EXPECT_EQ(record.DatosEmpresa(1), " ");
}

TEST_P(Form2WayTest, EachBoxGoesToTheElementOfItsOwnIndexAsItStands) {
    Form2& form = OpenForm2();
    for (int i = 1; i <= 19; ++i) form.Text1(i).Text = "  campo " + TextoEntero(i) + " ";
    Choose(GetParam().entry);
    for (int i = 1; i <= 19; ++i) {
        EXPECT_EQ(record.DatosEmpresa(i), "  campo " + TextoEntero(i) + " ");
    }
}

INSTANTIATE_TEST_SUITE_P(Continuar, Form2WayTest,
                         ::testing::Values(Way{"datosiniciales", ScreenId::Form3},
                                           Way{"contaminantes", ScreenId::Form4},
                                           Way{"calculos", ScreenId::Form5},
                                           Way{"resulatadofinal", ScreenId::Form6}),
                         [](const auto& way) { return std::string(way.param.entry); });

TEST_F(Form2Test, LeavingStoresNothingBesidesTheCompanysData) {
    record.NumJornadas = 3;
    record.HojaFinal(18, 9) = "50";
    EvaluacionRecord expected = record;
    Form2& form = OpenForm2();
    for (int i = 1; i <= 19; ++i) {
        form.Text1(i).Text = "x";
        expected.DatosEmpresa(i) = "x";
    }
    Choose("contaminantes");
    EXPECT_TRUE(record == expected);
}

TEST_F(Form2Test, ASecondVisitShowsDashesAndStoresThemAgain) {
    OpenForm2().Text1(1).Text = "Acme";
    Choose("contaminantes");
    Form2& again = OpenForm2();
    EXPECT_EQ(again.Text1(1).Text, "Acme");
    EXPECT_EQ(again.Text1(2).Text, "---");
    EXPECT_EQ(again.Text1(9).Text, " ");
    const EvaluacionRecord before = record;
    Choose("contaminantes");
    EXPECT_TRUE(record == before);
}

TEST_F(Form2Test, ABoxEmptiedOnASecondVisitIsStoredAsDashes) {
    FillCompany();
    Form2& form = OpenForm2();
    form.Text1(9).Text = "";
    form.Text1(19).Text = "";
    Choose("contaminantes");
    ExpectStored({{9, "---"}, {19, "---"}, {18, "dato 18"}});
}

TEST_F(Form2Test, ARefusalIsOverOnceANameStandsInTheBox) {
    Form2& form = OpenForm2();
    form.Text1(1).Text = "";
    host.ExpectBox(messages::kNoName);
    Choose("calculos");
    form.Text1(1).Text = "Acme";
    Choose("calculos");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form5);
}

// ---- Regresar

TEST_F(Form2Test, Regresar_OnNoStaysWithWhatWasTyped) {
    Form2& form = OpenForm2();
    form.Text1(2).Text = "Los Olivos";
    host.ExpectBox(messages::kGoBack, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::No);
    Choose("Regresar");
    EXPECT_EQ(&chain.Current(), &form);
    EXPECT_EQ(form.Text1(2).Text, "Los Olivos");
}

TEST_F(Form2Test, Regresar_OnYesGoesToForm1AndStoresNothing) {
    FillCompany();
    const EvaluacionRecord before = record;
    OpenForm2().Text1(1).Text = "otra";
    host.ExpectBox(messages::kGoBack, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::Yes);
    Choose("Regresar");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form1);
    EXPECT_TRUE(record == before);
    EXPECT_EQ(OpenForm2().Text1(1).Text, "dato 1") << "what was typed is gone";
}

TEST_F(Form2Test, AnEmptyNameDoesNotStandInTheWayOfTheOtherEntries) {
    Form2& form = OpenForm2();
    form.Text1(1).Text = "";
    host.ExpectBox(messages::PrintQuestion(ScreenId::Form2), MsgBoxStyle::YesNo, MsgBoxAnswer::Yes);
    Choose("imprimir");
    EXPECT_EQ(host.printed, 1);
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    host.ExpectBox(messages::kExit, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::Yes);
    host.ExpectEnd();
    Choose("salir");
    host.ExpectBox(messages::kGoBack, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::Yes);
    Choose("Regresar");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form1);
}

// ---- recuperardatos

TEST_F(Form2Test, Recuperardatos_ShowsTheSaveKindOfDialogUnderTheWritersTitle) {
    OpenForm2();
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    ASSERT_EQ(host.dialogs_shown.size(), 1u);
    EXPECT_EQ(host.dialogs_shown[0].DialogTitle, " Guardar datos");
    EXPECT_EQ(host.dialogs_shown[0].Flags, 524288u);
    EXPECT_EQ(host.dialogs_shown[0].DefaultExt, "doc");
    EXPECT_EQ(host.dialogs_shown[0].FileName, "");
}

TEST_F(Form2Test, Recuperardatos_CancelledAtAFirstVisitEmptiesAllBoxesAndContinuarIsRefused) {
    Form2& form = OpenForm2();
    form.Text1(1).Text = "Acme";
    form.Text1(5).Text = "17";
    const EvaluacionRecord before = record;
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    EXPECT_EQ(Texts(form), std::vector<std::string>(19));
    EXPECT_TRUE(record == before);
    EXPECT_EQ(&chain.Current(), &form);

    host.ExpectBox(messages::kNoName);
    Choose("datosiniciales");
    EXPECT_EQ(&chain.Current(), &form);
}

TEST_F(Form2Test, Recuperardatos_CancelledLaterBringsTheStoredCompanyBack) {
    FillCompany();
    Form2& form = OpenForm2();
    form.Text1(1).Text = "tecleado y perdido";
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(form.Text1(i).Text, "dato " + TextoEntero(i));
}

TEST_F(Form2Test, Recuperardatos_OfAMissingFileActsAsACancel) {
    const Folder folder;
    FillCompany();
    const EvaluacionRecord before = record;
    Form2& form = OpenForm2();
    form.Text1(3).Text = "tecleado y perdido";
    host.ExpectFileDialog(folder.Name("no_hay.doc"));
    Choose("recuperardatos");
    EXPECT_TRUE(record == before);
    EXPECT_EQ(form.Text1(3).Text, "dato 3");
    EXPECT_FALSE(std::filesystem::exists(folder.Name("no_hay.doc")));
}

TEST_F(Form2Test, Recuperardatos_OfAFolderActsAsACancel) {
    const Folder folder;
    const EvaluacionRecord before = record;
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Name(""));
    Choose("recuperardatos");
    EXPECT_TRUE(record == before);
    EXPECT_EQ(Texts(form), std::vector<std::string>(19));
}

TEST_F(Form2Test, Recuperardatos_FillsTheBoxesFromTheFileAndStaysWithoutAMessage) {
    const Folder folder;
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Write("a.doc", CompanyLines("E")));
    Choose("recuperardatos");
    EXPECT_EQ(&chain.Current(), &form);
    for (int i = 1; i <= 19; ++i) {
        EXPECT_EQ(record.DatosEmpresa(i), "E" + TextoEntero(i));
        EXPECT_EQ(form.Text1(i).Text, "E" + TextoEntero(i));
    }
}

TEST_F(Form2Test, Recuperardatos_OfAShortFileShowsTheStoredElementsBehindItsEnd) {
    const Folder folder;
    FillCompany();
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Write("corto.doc", {"\"Otra\"", "\"\""}));
    Choose("recuperardatos");
    EXPECT_EQ(form.Text1(1).Text, "Otra");
    EXPECT_EQ(form.Text1(2).Text, "");
    EXPECT_EQ(form.Text1(3).Text, "dato 3");
    EXPECT_EQ(form.Text1(19).Text, "dato 19");
}

TEST_F(Form2Test, Recuperardatos_PutsThePlanOfTheFileInForceAtOnce) {
    const Folder folder;
    std::vector<std::string> lines = CompanyLines("E");
    lines.insert(lines.end(), {"1", "2",         // workdays, tasks
                               "8", "1", "2",    // day 1, task 1: hours, 30', 15'
                               "4", "0", "3"});  // day 1, task 2
    OpenForm2();
    host.ExpectFileDialog(folder.Write("plan.doc", lines));
    Choose("recuperardatos");
    Choose("datosiniciales");
    const auto& form3 = Current<Form3>();
    EXPECT_EQ(form3.Command1.Caption, " NO OPERATIVO");
    EXPECT_EQ(form3.Text1(8).Text, "4");  // row 2: hours of task 2
    EXPECT_EQ(form3.Text1(10).Text, "3");
}

TEST_F(Form2Test, Recuperardatos_OfAnEmptyNameLeavesItsBoxEmptyAndContinuarIsRefused) {
    const Folder folder;
    std::vector<std::string> lines = CompanyLines("E");
    lines[0] = "\"\"";
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Write("sin_nombre.doc", lines));
    Choose("recuperardatos");
    EXPECT_EQ(form.Text1(1).Text, "");
    EXPECT_EQ(form.Text1(2).Text, "E2");
    host.ExpectBox(messages::kNoName);
    Choose("resulatadofinal");
    EXPECT_EQ(&chain.Current(), &form);
}

TEST_F(Form2Test, Recuperardatos_CancelledAfterAnAcceptedNameReadsThatFileAgain) {
    const Folder folder;
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Write("a.doc", CompanyLines("antes ")));
    Choose("recuperardatos");
    folder.Write("a.doc", CompanyLines("ahora "));
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    EXPECT_EQ(form.Text1(4).Text, "ahora 4");
}

TEST_F(Form2Test, Recuperardatos_ForgetsTheAcceptedNameWithTheScreen) {
    const Folder folder;
    OpenForm2();
    host.ExpectFileDialog(folder.Write("a.doc", CompanyLines("E")));
    Choose("recuperardatos");
    record.DatosEmpresa(4) = "cambiado";
    OpenForm2();
    host.ExpectFileDialog(std::nullopt);
    Choose("recuperardatos");
    EXPECT_EQ(record.DatosEmpresa(4), "cambiado");
}

TEST_F(Form2Test, ARestoredCompanyIsStoredAgainFromTheBoxesOnLeaving) {
    const Folder folder;
    Form2& form = OpenForm2();
    host.ExpectFileDialog(folder.Write("a.doc", CompanyLines("E")));
    Choose("recuperardatos");
    form.Text1(6).Text = "";
    form.Text1(7).Text = "Soria";
    Choose("contaminantes");
    ExpectStored({{5, "E5"}, {6, "---"}, {7, "Soria"}});
}

}  // namespace
}  // namespace velmora::test
