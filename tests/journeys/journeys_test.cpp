// Whole journeys, from an empty start to the saved file, by mouse and keys alone. What a journey
// must come to is computed by evaluations.py beside this file, or by hand where the test says so.

#include <QTemporaryDir>

#include "forms/screen.h"
#include "journeys/journey.h"
#include "journeys/second_run.h"
#include "support/messages.h"

namespace velmora::journeys {
namespace {

class Journeys : public JourneyTest {
protected:
    std::string FileNamed(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name)).toStdString();
    }

private:
    QTemporaryDir folder_;
};

TEST_F(Journeys, OneDayAndOneTaskEndsWithTheComputedFile) {
    const Expected expected("one_day");
    Journey journey(run, expected);
    journey.EnterAll();
    journey.TypeDay(1);
    journey.PressChain();
    journey.ExpectDay(1);
    EXPECT_THAT(journey.Marked(), IsEmpty());
    journey.ShowFinalTable();
    journey.Save(FileNamed("one"));
    EXPECT_EQ(BytesOf(FileNamed("one.doc")), expected.Bytes());
}

TEST_F(Journeys, ThreeDaysOfThreeTasksOfSixAgentsComeBackInASecondProcess) {
    const Expected expected("three_days");
    Journey journey(run, expected);
    journey.EnterAll();
    // Day 2: lead of the third task in C2 over three times its VLA-ED, taken in 30 minutes. Day 3:
    // isopropanol of the second task in C3 over its VLA-EC, taken in 15.
    const std::vector<std::vector<std::string>> marked = {
        {}, {"Text1(260) red 250"}, {"Text1(171) red 255"}};
    for (int day = 1; day <= 3; ++day) {
        journey.TypeDay(day);
        journey.PressChain();
        journey.ExpectDay(day);
        // The mark of an earlier day goes with the validation of its task.
        EXPECT_EQ(journey.Marked(), marked.at(static_cast<std::size_t>(day - 1))) << "day " << day;
    }
    journey.RecoverDay(1);
    journey.ExpectDay(1);
    journey.ShowFinalTable();
    journey.Save(FileNamed("first"));
    EXPECT_EQ(BytesOf(FileNamed("first.doc")), expected.Bytes());

    EXPECT_TRUE(RunAgain({"three_days", FileNamed("first.doc"), FileNamed("second.doc")}));
    EXPECT_EQ(BytesOf(FileNamed("second.doc")), expected.Bytes());
}

class RestartedPlan : public Journeys {
protected:
    /// Three lines of a plan of three days and tasks, and the agents of its first task.
    void BeginALargePlan() {
        journey.EnterCompany();
        journey.FixPlan(3, 3);
        journey.EnterLine({"1", "1", "8", "1", "2", "3"});
        journey.EnterLine({"2", "1", "6", "1", "2", "3"});
        journey.EnterLine({"1", "2", "4", "0", "2", "2"});
        robot.ExpectBox(IncompletePlan(QMessageBox::Yes));
        robot.Choose("continuar", "contaminantes");
        journey.TypeAgents(1, 3);
        robot.Press("Command1");
        robot.Choose("continuar", "datosiniciales");
    }

    /// The list shows the new number, and a line is judged by the old one.
    void AnswerNo() {
        robot.ExpectBox(RestartQuestion(QMessageBox::No));
        robot.Pick("Combo1(0)", "1");
        EXPECT_EQ(robot.Text("Combo1(0)"), "1");
        journey.EnterLine({"2", "1", "6", "1", "2", "3"});
        EXPECT_EQ(journey.Texts("Text1", 18, 23),
                  (std::vector<std::string>{"2", "1", "6", "1", "2", "3"}));
    }

    /// Back to the choice, for which both numbers are wanted.
    void AnswerYes() {
        robot.ExpectBox(RestartQuestion(QMessageBox::Yes));
        robot.Pick("Combo1(0)", "1");
        EXPECT_EQ(robot.Text("Command1"), "Validar");
        EXPECT_FALSE(robot.Visible("Command2"));
        EXPECT_FALSE(robot.Visible("Text1(0)"));
        robot.ExpectBox(Refusal(messages::kNoPick));
        robot.Press("Command1");
    }

    /// The entry row has kept its picks: day 2, which the plan of one day no longer has.
    void TryTheOldLine() {
        EXPECT_EQ(robot.Text("Combo1(2)"), "2");
        robot.ExpectBox(Refusal(messages::kEntryIncoherent));
        robot.Press("Command2");
        robot.ExpectBox(IncompletePlan(QMessageBox::No));
        robot.Choose("continuar", "contaminantes");
        EXPECT_EQ(robot.ScreenName(), "Form3");
    }

    /// The task and the day that went with the old plan are refused.
    void EnterAgentsOfTheNewPlan() {
        robot.Choose("continuar", "contaminantes");
        robot.ExpectBox(Refusal(messages::kTaskAboveOnPick));
        robot.Pick("Combo1", "3");
        journey.TypeAgents(2, 2);
        robot.Press("Command1");
        robot.Choose("continuar", "pagina5");
        robot.ExpectBox(Refusal(messages::kIncoherentDay));
        robot.Choose("introducirdatos", "introsegundo");
    }

    Expected expected{"restarted"};
    Journey journey{run, expected};
};

TEST_F(RestartedPlan, GoesOnWithTheNewNumbersAndKeepsTheOldTraces) {
    BeginALargePlan();
    AnswerNo();
    AnswerYes();
    journey.FixPlan(1, 2);
    TryTheOldLine();
    // The first line stored brings back the one that the record still holds.
    journey.EnterLine({"1", "1", "5", "1", "1", "2"});
    EXPECT_EQ(
        journey.Texts("Text1", 0, 11),
        (std::vector<std::string>{"1", "1", "5", "1", "1", "2", "1", "2", "4", "0", "2", "2"}));
    EnterAgentsOfTheNewPlan();
    journey.TypeDay(1);
    journey.PressChain();
    journey.ExpectDay(1);
    journey.ShowFinalTable();
    journey.Save(FileNamed("restarted"));
    EXPECT_EQ(BytesOf(FileNamed("restarted.doc")), expected.Bytes());
}

/// A company's plan of one task of 8 hours, its agents entered, on the sheet.
class OneTask : public Journeys {
protected:
    OneTask(int days, const char* minutes30, const char* minutes15,
            const std::vector<Agent>& agents) {
        journey.EnterCompany();
        journey.FixPlan(days, 1);
        const auto count = static_cast<int>(agents.size());
        for (int day = 1; day <= days; ++day) {
            journey.EnterLine(
                {std::to_string(day), "1", "8", minutes30, minutes15, std::to_string(count)});
        }
        robot.Choose("continuar", "contaminantes");
        robot.Pick("Combo1", "1");
        for (int row = 0; row < count; ++row) {
            journey.TypeAgent(row, agents.at(static_cast<std::size_t>(row)));
        }
        robot.Press("Command1");
        robot.Choose("continuar", "pagina5");
    }

    std::string Cell(int row, int column) {
        return robot.Text(Indexed("Text1", 18 * row + column));
    }

    void TypeSamples(int row, const std::vector<std::string>& samples) {
        int column = 7;
        for (const std::string& sample : samples) {
            robot.Type(Indexed("Text1", 18 * row + column++), sample);
        }
    }

    /// The answers and sentences: greatest index, greatest class, over a limit, both sentences.
    std::vector<std::string> Conclusions() {
        std::vector<std::string> texts;
        for (const char* const cell : {"Text2", "Text4", "Text7", "Text5", "Text6"}) {
            texts.push_back(robot.Text(cell));
        }
        return texts;
    }

    /// One row of the final table, from the sheet and back to it.
    std::vector<std::string> FinalRow(int row) {
        robot.Choose("continuar", "resultadosfinales");
        robot.Press("Command1");
        std::vector<std::string> texts = journey.Texts("Text1", 9 * row + 1, 9 * row + 8);
        robot.Choose("regresar");
        EXPECT_EQ(robot.ScreenName(), "Form5");
        return texts;
    }

    Expected expected{"one_day"};  // for its company
    Journey journey{run, expected};
};

/// One agent with VLA-ED 20 and VLA-EC 100 for 8 hours. Its samples are 2 and 8 times the day's
/// factor 1, 2 or 4. Worked by hand: the mean is the geometric one, 4, 8 and 16; the index is a
/// twentieth of it; the spread is exp(ln(4) / sqrt(2)) = 2.67; 100 over the mean is 25, 12.5 and
/// 6.25, where the first curve above 2.67 is that of 0.1, 1 and 5 (2.864, 2.990 and 3.036).
class DaysOutOfOrder : public OneTask {
protected:
    DaysOutOfOrder() : OneTask(3, "1", "0", {{"Disolvente", "20", "100", "30", "0", "ppm"}}) {}

    void Validate(int day) {
        struct Told {
            const char* entry;
            std::vector<std::string> samples;
            std::vector<std::string> conclusions;
        };
        static const std::string kLow =
            " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS";
        static const std::string kUncertain =
            " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS";
        // clang-format off
        static const std::vector<Told> days = {
            {"introprimero", {"2", "8"},  {"0.2", "0.1", "NO", "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS", kLow}},
            {"introsegundo", {"4", "16"}, {"0.4", "1",   "NO", "SE CONTINUA  CON EL PLAN DE MEDICIONES",          kUncertain}},
            {"introtercero", {"8", "32"}, {"0.8", "5",   "NO", "PLAN DE MEDICIONES FINALIZADO",                   kUncertain}},
        };
        // clang-format on
        const Told& told = days.at(static_cast<std::size_t>(day - 1));
        robot.Choose("introducirdatos", told.entry);
        TypeSamples(0, told.samples);
        journey.PressChain();
        EXPECT_EQ(Conclusions(), told.conclusions) << "day " << day;
    }

    /// Validates the day: the row of the final table behind its name.
    std::string ResultsAfter(int day) {
        Validate(day);
        std::string results;
        for (const std::string& cell : FinalRow(0)) results += (results.empty() ? "" : " ") + cell;
        return results;
    }
};

TEST_F(DaysOutOfOrder, ThirdFirstSecond_TheTableWaitsForTheSecondDay) {
    EXPECT_EQ(ResultsAfter(3), "Disolvente ---- ---- 0.8 ---- ---- ---- 5");
    EXPECT_EQ(ResultsAfter(1), "Disolvente 0.2 ---- 0.8 ---- 0.1 ---- 5");
    // The cube root of 0.2 x 0.4 x 0.8 = 0.064.
    EXPECT_EQ(ResultsAfter(2), "Disolvente 0.2 0.4 0.8 0.4 0.1 1 5");
}

TEST_F(DaysOutOfOrder, SecondFirstThird_TheIndexOfTwoDaysIsZeroUntilTheThirdComes) {
    Validate(2);
    EXPECT_EQ(ResultsAfter(1), "Disolvente 0.2 0.4 ---- 0 0.1 1 ----");
    EXPECT_EQ(ResultsAfter(3), "Disolvente 0.2 0.4 0.8 0.4 0.1 1 5");
    // Each day comes back as its own, whatever the order that they were closed in.
    const std::vector<std::string> samples = {"2", "4", "8"};
    for (int day = 1; day <= 3; ++day) {
        journey.RecoverDay(day);
        EXPECT_EQ(Cell(0, 7), samples.at(static_cast<std::size_t>(day - 1)));
    }
}

TEST_F(DaysOutOfOrder, ADayValidatedAgainReplacesItsIndexAndItsSlot) {
    for (const int day : {1, 2, 3}) Validate(day);
    journey.RecoverDay(2);
    // By hand: 16 and 64 have the mean 32, index 1.6; 100 / 32 = 3.125 lies under every curve
    // (1.002 x 3.125 ^ 0.6049 = 1.996); 64 is over three times 20.
    robot.Retype("Text1(7)", "16");
    robot.Retype("Text1(8)", "64");
    journey.PressChain();
    EXPECT_THAT(Conclusions(),
                ElementsAre("1.6", "50", "SI",
                            "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN",
                            "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"));
    EXPECT_THAT(journey.Marked(), ElementsAre("Text1(8) red 250"));
    // The cube root of 0.2 x 1.6 x 0.8 = 0.256 (Python: 0.256 ** (1 / 3)).
    EXPECT_THAT(FinalRow(0), ElementsAre("Disolvente", "0.2", "1.6", "0.8", "0.63496042078728",
                                         "0.1", "50", "5"));
    journey.RecoverDay(2);
    EXPECT_EQ(Cell(0, 8), "64");
    EXPECT_THAT(journey.Marked(), IsEmpty()) << "colours are not kept";
}

/// Two agents measured for a day. Figures by hand, as above: samples 2 and 8 give 4, samples 4 and
/// 16 give 8, the spread is 2.67.
class ListChangedAfterResults : public OneTask {
protected:
    ListChangedAfterResults()
        : OneTask(1, "1", "1",
                  {{"Benceno", "8", "0", "30", "0", "ppm"},
                   {"Hexano", "20", "100", "15", "0", "ppm"}}) {
        MeasureAnew();
    }

    void MeasureAnew() {
        robot.Choose("introducirdatos", "introprimero");
        TypeSamples(0, {"2", "8"});
        TypeSamples(1, {"4", "16"});
        journey.PressChain();
    }

    /// Another name and limit for the first agent, another short limit for the second.
    void ChangeTheList() {
        robot.Choose("continuar", "contaminantes");
        robot.Pick("Combo1", "1");
        robot.Press("Command3");
        robot.Retype("Text1(1)", "Tolueno");
        robot.Retype("Text1(2)", "16");
        robot.Retype("Text1(8)", "16");
        robot.Press("Command1");
        robot.Choose("continuar", "pagina5");
    }

    std::vector<std::string> ShortExposures() { return journey.Texts("Text3", 0, 7); }
};

TEST_F(ListChangedAfterResults, TheTableShowsTheNewNameBesideTheIndexOfTheOldLimit) {
    // 24 / 4 = 6: the curve of 5 gives 2.96; 100 / 8 = 12.5: that of 1 gives 2.99.
    EXPECT_THAT(ShortExposures(), ElementsAre("24", "4", "2.67", "5", "100", "8", "2.67", "1"));
    EXPECT_THAT(FinalRow(0),
                ElementsAre("Benceno", "0.5", "----", "----", "----", "5", "----", "----"));
    ChangeTheList();
    EXPECT_THAT(FinalRow(0),
                ElementsAre("Tolueno", "0.5", "----", "----", "----", "5", "----", "----"));
}

TEST_F(ListChangedAfterResults, ARecoveredDayTakesTheNewLimitInItsIndexAlone) {
    ChangeTheList();
    journey.RecoverDay(1);
    EXPECT_THAT(journey.Texts("Text1", 0, 3), ElementsAre("1", "Benceno", "8", "0"));
    EXPECT_EQ(Cell(0, 14), ".5");
    journey.PressChain();
    EXPECT_THAT(journey.Texts("Text1", 0, 3), ElementsAre("1", "Benceno", "8", "0"));
    EXPECT_EQ(Cell(0, 14), ".25");
    EXPECT_EQ(Cell(0, 15), ".25");
    EXPECT_THAT(ShortExposures(), ElementsAre("24", "4", "2.67", "5", "100", "8", "2.67", "1"));
    EXPECT_EQ(robot.Text("Text2"), "0.4");
    EXPECT_EQ(robot.Text("Text7"), "NO");
    EXPECT_THAT(FinalRow(0),
                ElementsAre("Tolueno", "0.25", "----", "----", "----", "5", "----", "----"));
}

TEST_F(ListChangedAfterResults, ADayLaidOutAnewTakesTheNewListWhole) {
    ChangeTheList();
    MeasureAnew();
    EXPECT_THAT(journey.Texts("Text1", 0, 3), ElementsAre("1", "Tolueno", "16", "0"));
    EXPECT_EQ(Cell(1, 3), "16");
    // 48 / 4 = 12: the curve of 1 gives 2.94; 16 / 8 = 2 lies under every curve. 16 reaches 16.
    EXPECT_THAT(ShortExposures(), ElementsAre("48", "4", "2.67", "1", "16", "8", "2.67", "50"));
    EXPECT_THAT(Conclusions(),
                ElementsAre("0.4", "50", "SI", "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS",
                            "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"));
    EXPECT_THAT(journey.Marked(), ElementsAre("Text1(26) red 255"));
    EXPECT_THAT(FinalRow(1),
                ElementsAre("Hexano", "0.4", "----", "----", "----", "50", "----", "----"));
}

}  // namespace
}  // namespace velmora::journeys
