#include "core/record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "capture/form2.h"
#include "capture/form3.h"
#include "core/form1.h"
#include "sheet/form5.h"
#include "store/evaluation_file.h"
#include "support/files.h"
#include "support/messages.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kSubscript = ErrorKind::SubscriptOutOfRange;

/// Something other than its start value in each field of the record.
EvaluacionRecord FilledRecord() {
    EvaluacionRecord r;
    for (std::string& text : r.DatosEmpresa) text = "dato";
    r.NumJornadas = 3;
    r.NumTareas = 2;
    for (int a = 1; a <= 3; ++a) {
        r.NumContaminantes(a) = a + 1;
        for (int b = 1; b <= 3; ++b) {
            r.TiempoExposicion(a, b) = a + 0.5;
            r.Muestras30(a, b) = a;
            r.Muestras15(a, b) = b;
        }
        for (int c = 1; c <= 6; ++c) {
            r.NombreContaminante(a, c) = "agente";
            r.VlaEd(a, c) = c + 0.25;
            r.VlaEc(a, c) = c + 0.75;
            r.TiempoMuestreo(a, c) = 30;
            r.Aditivo(a, c) = c;
            r.Unidades(a, c) = "ppm";
            for (int d = 1; d <= 3; ++d) {
                r.MG(d, a, c) = d + 0.1;
                r.GSD(d, a, c) = d + 0.2;
                r.MGmas(d, a, c) = d + 0.3;
                r.GSDmas(d, a, c) = d + 0.4;
            }
        }
    }
    for (DaySheet* sheet : {&r.HojaPrimerDia, &r.HojaSegundoDia, &r.HojaTercerDia}) {
        std::ranges::fill(*sheet, "celda");
    }
    for (auto& row : r.HojaFinal) std::ranges::fill(row, "final");
    return r;
}

class RecordTest : public VelmoraTest {};

// At start

TEST_F(RecordTest, TheCompanyAndThePlanStartEmptyAndAtZero) {
    for (const std::string& text : record.DatosEmpresa) EXPECT_EQ(text, "");
    EXPECT_EQ(record.NumJornadas, 0);
    EXPECT_EQ(record.NumTareas, 0);
    for (int a = 1; a <= 3; ++a) {
        EXPECT_EQ(record.NumContaminantes(a), 0);
        for (int b = 1; b <= 3; ++b) {
            EXPECT_EQ(record.TiempoExposicion(a, b), 0.0);
            EXPECT_EQ(record.Muestras30(a, b), 0);
            EXPECT_EQ(record.Muestras15(a, b), 0);
        }
    }
}

TEST_F(RecordTest, TheContaminantsAndTheStatisticsStartEmptyAndAtZero) {
    for (int task = 1; task <= 3; ++task) {
        for (int agent = 1; agent <= 6; ++agent) {
            EXPECT_EQ(record.NombreContaminante(task, agent), "");
            EXPECT_EQ(record.VlaEd(task, agent), 0.0);
            EXPECT_EQ(record.VlaEc(task, agent), 0.0);
            EXPECT_EQ(record.TiempoMuestreo(task, agent), 0);
            EXPECT_EQ(record.Aditivo(task, agent), 0);
            EXPECT_EQ(record.Unidades(task, agent), "");
            for (int day = 1; day <= 3; ++day) {
                EXPECT_EQ(record.MG(day, task, agent), 0.0);
                EXPECT_EQ(record.GSD(day, task, agent), 0.0);
                EXPECT_EQ(record.MGmas(day, task, agent), 0.0);
                EXPECT_EQ(record.GSDmas(day, task, agent), 0.0);
            }
        }
    }
}

TEST_F(RecordTest, TheSheetsAndTheFinalTableStartEmpty) {
    for (int entry = 1; entry <= 401; ++entry) {
        EXPECT_EQ(record.HojaPrimerDia(entry), "");
        EXPECT_EQ(record.HojaSegundoDia(entry), "");
        EXPECT_EQ(record.HojaTercerDia(entry), "");
    }
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) EXPECT_EQ(record.HojaFinal(row, column), "");
    }
}

// Shapes: the last element exists, its neighbours outside don't.

template <class Field>
void ExpectBounds(Field& field, int last) {
    EXPECT_NO_THROW(field(1));
    EXPECT_NO_THROW(field(last));
    ExpectError(kSubscript, [&] { field(0); });
    ExpectError(kSubscript, [&] { field(last + 1); });
}

template <class Field>
void ExpectBounds(Field& field, int rows, int columns) {
    ExpectBounds(field, rows);
    for (int row = 1; row <= rows; ++row) ExpectBounds(field(row), columns);
}

TEST_F(RecordTest, EachOfThreeDaysHasItsSheetAndNoOtherDayHas) {
    EXPECT_EQ(&record.Hoja(1), &record.HojaPrimerDia);
    EXPECT_EQ(&record.Hoja(2), &record.HojaSegundoDia);
    EXPECT_EQ(&record.Hoja(3), &record.HojaTercerDia);
    ExpectError(kSubscript, [this] { record.Hoja(0); });
    ExpectError(kSubscript, [this] { record.Hoja(4); });
}

TEST_F(RecordTest, TheListsHaveTheirFixedBounds) {
    ExpectBounds(record.DatosEmpresa, 19);
    ExpectBounds(record.NumContaminantes, 3);
    ExpectBounds(record.HojaPrimerDia, 401);
    ExpectBounds(record.HojaSegundoDia, 401);
    ExpectBounds(record.HojaTercerDia, 401);
}

TEST_F(RecordTest, TheTablesHaveTheirFixedBounds) {
    ExpectBounds(record.TiempoExposicion, 3, 3);
    ExpectBounds(record.Muestras30, 3, 3);
    ExpectBounds(record.Muestras15, 3, 3);
    ExpectBounds(record.NombreContaminante, 3, 6);
    ExpectBounds(record.VlaEd, 3, 6);
    ExpectBounds(record.VlaEc, 3, 6);
    ExpectBounds(record.TiempoMuestreo, 3, 6);
    ExpectBounds(record.Aditivo, 3, 6);
    ExpectBounds(record.Unidades, 3, 6);
    ExpectBounds(record.HojaFinal, 18, 9);
}

TEST_F(RecordTest, TheStatisticsHaveDayTaskAndContaminantInThisOrder) {
    for (auto* field : {&record.MG, &record.GSD, &record.MGmas, &record.GSDmas}) {
        ExpectBounds(*field, 3, 3);
        ExpectBounds((*field)(3, 3), 6);
    }
}

TEST_F(RecordTest, HoursAndSamplesAreByDayThenTask) {
    record.TiempoExposicion(3, 1) = 8;
    record.Muestras30(3, 1) = 4;
    record.Muestras15(3, 1) = 2;
    EXPECT_EQ(record.TiempoExposicion(1, 3), 0.0);
    EXPECT_EQ(record.Muestras30(1, 3), 0);
    EXPECT_EQ(record.Muestras15(1, 3), 0);
}

// Other tests compare whole evaluations: that sees each field, up to its last element.

TEST(RecordComparisonTest, EvaluationsThatDifferInAnyOneFieldAreDifferent) {
    using Change = void (*)(EvaluacionRecord&);
    // clang-format off
    constexpr std::array<Change, 21> kChanges = {
        [](EvaluacionRecord& r) { r.DatosEmpresa(19) += "x"; },
        [](EvaluacionRecord& r) { ++r.NumJornadas; },
        [](EvaluacionRecord& r) { ++r.NumTareas; },
        [](EvaluacionRecord& r) { r.TiempoExposicion(3, 3) += 1; },
        [](EvaluacionRecord& r) { ++r.Muestras30(3, 3); },
        [](EvaluacionRecord& r) { ++r.Muestras15(3, 3); },
        [](EvaluacionRecord& r) { ++r.NumContaminantes(3); },
        [](EvaluacionRecord& r) { r.NombreContaminante(3, 6) += "x"; },
        [](EvaluacionRecord& r) { r.VlaEd(3, 6) += 1; },
        [](EvaluacionRecord& r) { r.VlaEc(3, 6) += 1; },
        [](EvaluacionRecord& r) { ++r.TiempoMuestreo(3, 6); },
        [](EvaluacionRecord& r) { ++r.Aditivo(3, 6); },
        [](EvaluacionRecord& r) { r.Unidades(3, 6) += "x"; },
        [](EvaluacionRecord& r) { r.MG(3, 3, 6) += 1; },
        [](EvaluacionRecord& r) { r.GSD(3, 3, 6) += 1; },
        [](EvaluacionRecord& r) { r.MGmas(3, 3, 6) += 1; },
        [](EvaluacionRecord& r) { r.GSDmas(3, 3, 6) += 1; },
        [](EvaluacionRecord& r) { r.HojaPrimerDia(401) += "x"; },
        [](EvaluacionRecord& r) { r.HojaSegundoDia(401) += "x"; },
        [](EvaluacionRecord& r) { r.HojaTercerDia(401) += "x"; },
        [](EvaluacionRecord& r) { r.HojaFinal(18, 9) += "x"; },
    };
    // clang-format on
    const EvaluacionRecord whole = FilledRecord();
    EXPECT_EQ(whole, FilledRecord());
    for (std::size_t i = 0; i < kChanges.size(); ++i) {
        EvaluacionRecord changed = whole;
        kChanges.at(i)(changed);
        EXPECT_NE(changed, whole) << i;
    }
}

TEST_F(RecordTest, StringsHaveAnyLength) {
    record.DatosEmpresa(1) = std::string(100000, 'x');
    EXPECT_EQ(record.DatosEmpresa(1).size(), 100000U);
}

TEST_F(RecordTest, WholeNumbersHaveSixteenBits) {
    record.NumJornadas = 32767;
    ExpectError(ErrorKind::Overflow, [&] { ++record.NumJornadas; });
}

// A new evaluation

TEST_F(RecordTest, Nuevaempresa_ClearsTheNineteenElementsOfDatosEmpresa) {
    record = FilledRecord();
    Open<Form1>(ScreenId::Form1).Nuevaempresa_Click();
    for (int i = 1; i <= 19; ++i) EXPECT_EQ(record.DatosEmpresa(i), "") << i;
}

TEST_F(RecordTest, Nuevaempresa_LeavesEveryOtherFieldUnchanged) {
    record = FilledRecord();
    Open<Form1>(ScreenId::Form1).Nuevaempresa_Click();
    EvaluacionRecord expected = FilledRecord();
    std::ranges::fill(expected.DatosEmpresa, "");
    EXPECT_EQ(record, expected);
}

TEST_F(RecordTest, Nuevaempresa_ALoadedPlanSurvivesIt) {
    record = FilledRecord();
    Open<Form1>(ScreenId::Form1);
    Choose("Nuevaempresa");
    Current<Form2>().Text1(1).Text = "Otra empresa";
    Choose("datosiniciales");
    const auto& form3 = Current<Form3>();
    EXPECT_EQ(form3.Command1.Caption, " NO OPERATIVO");
    EXPECT_EQ(form3.Text1(2).Text, "1.5");  // hours of day 1, task 1
    EXPECT_EQ(form3.Text1(5).Text, "2");    // contaminants of task 1
}

TEST_F(RecordTest, Regresar_ChangesNothingOfTheRecordInSpiteOfItsWarning) {
    record = FilledRecord();
    host.ExpectBox(messages::kGoBack, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::Yes);
    Open<Form2>(ScreenId::Form2);
    Choose("Regresar");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form1);
    EXPECT_EQ(record, FilledRecord());
}

// Before a plan

TEST_F(RecordTest, BeforeAnyPlanTheSheetShowsNothingForAnyDay) {
    auto& form5 = Open<Form5>(ScreenId::Form5);
    for (const std::string_view entry : {"introprimero", "introsegundo", "introtercero",
                                         "recupprimerdia", "recupsegundodia", "recuptercerdia"}) {
        host.ExpectBox(messages::kIncoherentDay);
        Choose(entry);
        for (const TextCell& cell : form5.Text1) {
            EXPECT_FALSE(cell.Visible) << entry;
            EXPECT_EQ(cell.Text, "") << entry;
        }
        for (const TextCell& cell : form5.Text3) EXPECT_FALSE(cell.Visible) << entry;
        for (const Label& heading : form5.Label7) EXPECT_FALSE(heading.Visible) << entry;
    }
    EXPECT_EQ(record, EvaluacionRecord{});
}

// The plan

TEST_F(RecordTest, TheLaterLineOfATaskSetsItsContaminantsForAllDays) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    auto& form3 = Open<Form3>(ScreenId::Form3);
    const auto enter = [&](const std::string& day, const std::string& agents) {
        int list = 2;
        for (const std::string& pick :
             {day, std::string("2"), std::string("8"), agents, std::string("0"), agents}) {
            form3.Combo1(list++).Text = pick;
        }
        form3.Command2_Click();
    };
    enter("3", "4");
    enter("1", "3");
    EXPECT_EQ(record.NumContaminantes(2), 3);
    EXPECT_EQ(record.Muestras30(3, 2), 4);
    EXPECT_EQ(record.Muestras30(1, 2), 3);
    enter("2", "5");
    EXPECT_EQ(record.NumContaminantes(2), 5);
    EXPECT_EQ(record.NumContaminantes(1), 0);
}

// After a restore

class RestoredRecordTest : public RecordTest {
protected:
    void SetUp() override {
        folder = test::MakeTemporaryFolder();
        EvaluacionRecord saved = FilledRecord();
        saved.HojaPrimerDia(1 + 16) = "117.11";  // MG of the first row
        saved.HojaPrimerDia(1 + 17) = "1.21";    // its GSD
        saved.HojaPrimerDia(325 + 1) = "47.7";   // its MG+
        WriteEvaluation((folder / "a.doc").string(), saved);
    }
    void TearDown() override { fs::remove_all(folder); }

    void Restore() {
        host.ExpectFileDialog((folder / "a.doc").string());
        Open<Form2>(ScreenId::Form2);
        Choose("recuperardatos");
    }

    fs::path folder;
};

TEST_F(RestoredRecordTest, InAFreshRunTheStatisticsStayAtZero) {
    Restore();
    EXPECT_EQ(record.MG, EvaluacionRecord{}.MG);
    EXPECT_EQ(record.GSD, EvaluacionRecord{}.GSD);
    EXPECT_EQ(record.MGmas, EvaluacionRecord{}.MGmas);
    EXPECT_EQ(record.GSDmas, EvaluacionRecord{}.GSDmas);
    EXPECT_EQ(record.NumJornadas, 3);
}

TEST_F(RestoredRecordTest, InALaterRestoreTheStatisticsStayAsTheyStood) {
    record.MG(1, 1, 1) = 2.5;
    record.GSD(2, 1, 1) = 1.5;
    record.MGmas(3, 3, 6) = 7;
    record.GSDmas(1, 2, 3) = 9;
    const EvaluacionRecord before = record;
    Restore();
    EXPECT_EQ(record.MG, before.MG);
    EXPECT_EQ(record.GSD, before.GSD);
    EXPECT_EQ(record.MGmas, before.MGmas);
    EXPECT_EQ(record.GSDmas, before.GSDmas);
}

TEST_F(RestoredRecordTest, TheCellsThatShowedTheStatisticsComeBackFromTheSnapshot) {
    Restore();
    const auto& form5 = Open<Form5>(ScreenId::Form5);
    Choose("recupprimerdia");
    EXPECT_EQ(form5.Text1(16).Text, "117.11");
    EXPECT_EQ(form5.Text1(17).Text, "1.21");
    EXPECT_EQ(form5.Text3(1).Text, "47.7");
    EXPECT_EQ(record.MG(1, 1, 1), 0.0);
}

}  // namespace
}  // namespace velmora::test
