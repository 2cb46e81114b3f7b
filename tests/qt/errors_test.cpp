// A run-time error: one box, then the end with status 1.

#include <QAction>
#include <QPushButton>

#include <functional>
#include <stdexcept>

#include "qt/window_test.h"
#include "sheet/form5.h"

namespace velmora::test {
namespace {

class RunTimeErrorTest : public WindowTest {
protected:
    void ExpectErrorBox(const std::string& sentence) {
        robot.ExpectBox(ErrorBox("Error en tiempo de ejecución: " + sentence));
    }

    /// The step shows this error and ends the program.
    void ExpectEnd(const std::string& sentence, const std::function<void()>& step) {
        ExpectErrorBox(sentence);
        step();
        EXPECT_THAT(TakeEnds(), ElementsAre(1));
    }

    /// After the sentence: what it means for the work done, and where its causes are told.
    static Robot::Box ErrorBox(const std::string& sentence) {
        Robot::Box box =
            BoxOf(sentence +
                      "\n\nEl programa se cierra, y lo que no esté en un fichero se pierde.\n"
                      "Las causas están en la guía: «Conviene saber», «Algunos datos cierran el "
                      "programa».",
                  MsgBoxStyle::Ok);
        box.icon = QMessageBox::Critical;
        return box;
    }

    /// The sheet of one task with samples typed and everything computed up to `Command5`.
    void OpenSheetAtShortExposure() {
        OpenSheet(1, 1, 1);
        robot.Type("Text1(7)", "5");
        robot.Type("Text1(8)", "6");
        robot.Press("Command1");
        robot.Press("Command4");
    }
};

// One usable sample: its deviation is a sum of 0 over 1 - 1.
TEST_F(RunTimeErrorTest, ASingleSampleIsAnInvalidOperation) {
    OpenSheet(1, 1, 1);
    robot.Type("Text1(7)", "5");
    robot.Type("Text1(8)", "0");
    ExpectEnd("operación aritmética no válida.", [this] { robot.Press("Command1"); });
}

TEST_F(RunTimeErrorTest, FourHundredDigitsOverflow) {
    OpenSheet(1, 1, 1);
    robot.Type("Text1(7)", std::string(400, '9'));
    robot.Type("Text1(8)", "5");
    ExpectEnd("desbordamiento.", [this] { robot.Press("Command1"); });
}

// The MG cell, wiped by a backspace, reads 0: EC+ over MG+ is 200 / 0.
TEST_F(RunTimeErrorTest, AWipedGeometricMeanIsADivisionByZero) {
    OpenSheetAtShortExposure();
    robot.Key("Text1(16)", Qt::Key_Backspace);
    ExpectEnd("división por cero.", [this] { robot.Press("Command5"); });
}

TEST_F(RunTimeErrorTest, ANegativeSampleOfARestoredDayHasNoLogarithm) {
    SetPlan(1, 1, 1);
    record.HojaPrimerDia(3) = "100";  // ED
    record.HojaPrimerDia(8) = "-5";   // C1
    record.HojaPrimerDia(9) = "5";    // C2
    Open(ScreenId::Form5);
    robot.Choose("recuperar", "recupprimerdia");
    ExpectEnd("argumento no válido en una función.", [this] { robot.Press("Command1"); });
}

TEST_F(RunTimeErrorTest, ARestoredPlanOfFourDaysEndsOnThePlansScreenWithASubscript) {
    SetPlan(3, 3, 1);
    record.NumJornadas = 4;
    record.DatosEmpresa(1) = "Acme";
    Open(ScreenId::Form2);
    ExpectEnd("subíndice fuera de rango.", [this] { robot.Choose("continuar", "datosiniciales"); });
}

TEST_F(RunTimeErrorTest, ARestoredTaskOfSevenContaminantsEndsOnItsPick) {
    SetPlan(1, 1, 1);
    record.NumContaminantes(1) = 7;
    Open(ScreenId::Form4);
    ExpectEnd("subíndice fuera de rango.", [this] { robot.Pick("Combo1", "1"); });
}

TEST_F(RunTimeErrorTest, ATextThatIsNoNumberWhereAnIntegerIsWantedIsAMismatch) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    ExpectEnd("los tipos no coinciden.", [this] {
        robot.Act("a step with a bad text", [this] { window.Run([] { ConvertirEntero("dos"); }); });
    });
}

TEST_F(RunTimeErrorTest, AnyOtherFaultEndsTheProgramTheSameWay) {
    robot.ExpectBox(ErrorBox("Error en tiempo de ejecución: error interno."));
    robot.Act("a fault", [this] { window.Run([] { throw std::length_error("x"); }); });
    EXPECT_THAT(TakeEnds(), ElementsAre(1));
}

TEST_F(RunTimeErrorTest, AKeyFiltersErrorEndsTheProgramToo) {
    OpenSheet(1, 1, 1);
    // Digits are counted in 16 bits: the one past 32767 overflows.
    window.Run([this] {
        KeyCode digit = '1';
        for (int i = 0; i < 32767; ++i) Current<Form5>().Text1_KeyPress(7, digit);
    });
    ExpectEnd("desbordamiento.", [this] { robot.Type("Text1(7)", "1"); });
}

TEST_F(RunTimeErrorTest, NothingRunsBehindItsBoxNorAfterIt) {
    OpenSheet(1, 1, 1);
    robot.Type("Text1(7)", "5");
    robot.Type("Text1(8)", "0");
    std::vector<int> ends_while_open = {-1};
    robot.on_modal = [&](QDialog&) {
        ends_while_open = TakeEnds();
        Action("contaminantes").trigger();
        window.close();
    };
    ExpectErrorBox("operación aritmética no válida.");
    robot.Press("Command1");
    robot.on_modal = nullptr;
    EXPECT_THAT(ends_while_open, ::testing::IsEmpty()) << "the end comes after the box";
    EXPECT_THAT(TakeEnds(), ElementsAre(1));

    robot.Act("going on", [this] {
        Action("contaminantes").trigger();
        window.close();
        robot.Find<QPushButton>("Command1").click();
    });
    robot.Type("Text1(9)", "7");
    EXPECT_EQ(robot.ScreenName(), "Form5");
    EXPECT_EQ(robot.Text("Text1(9)"), "");
}

TEST_F(RunTimeErrorTest, WhatWasDoneBeforeItIsOnTheWindowBehindItsBox) {
    OpenSheet(1, 1, 2);
    for (const char* const cell : {"Text1(7)", "Text1(8)", "Text1(25)"}) robot.Type(cell, "5");
    robot.Type("Text1(26)", "0");  // the second row alone has one usable sample
    std::string first_mean;
    robot.on_modal = [&](QDialog&) { first_mean = robot.Text("Text1(13)"); };
    ExpectErrorBox("operación aritmética no válida.");
    robot.Press("Command1");
    EXPECT_EQ(first_mean, "5.") << "the first row's, of 5 and 5";
    EXPECT_THAT(TakeEnds(), ElementsAre(1));
}

}  // namespace
}  // namespace velmora::test
