// A picture of every state of every screen, at 100 % and at 150 %, in the folder "pictures" of the
// build, for people to look at.

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMenuBar>
#include <QPainter>

#include <map>

#include "forms/screen.h"
#include "journeys/journey.h"
#include "support/messages.h"
#include "support/robot_input.h"

namespace velmora::journeys {
namespace {

constexpr std::array kPercents = {100, 150};

class Pictures : public JourneyTest, public ::testing::WithParamInterface<int> {
protected:
    Pictures() {
        QDir().mkpath(QStringLiteral(PICTURES_FOLDER));
        run.window.resize(825 * GetParam() / 100, 607 * GetParam() / 100);
        QCoreApplication::processEvents();
        robot.on_modal = [this](QDialog& /*modal*/) {
            if (!with_box_.empty()) Take(std::exchange(with_box_, {}));
        };
    }

    /// Takes the picture of a state, which must be of the window's size, show something, and differ
    /// from the state before it by more than the time of the clock.
    void Take(const std::string& state) {
        SCOPED_TRACE(state);
        const std::string file =
            PICTURES_FOLDER "/" + state + "-" + std::to_string(GetParam()) + ".png";
        QFile::remove(QString::fromStdString(file));
        robot.Snapshot(file);
        QImage picture(QString::fromStdString(file));
        ASSERT_FALSE(picture.isNull()) << "no picture";
        EXPECT_EQ(picture.size(), run.window.size());
        EXPECT_LT(LargestShare(picture), 0.9) << "it is blank";
        HideClock(picture);
        EXPECT_NE(picture, last_) << "it shows what the one before it shows";
        last_ = picture;
    }

    /// The next box is in this picture.
    void TakeWithBox(const std::string& state, const Robot::Box& box) {
        with_box_ = state;
        robot.ExpectBox(box);
    }

    void TearDown() override {
        EXPECT_EQ(with_box_, "") << "no box opened for this picture";
        JourneyTest::TearDown();
    }

    /// Presses a title of the menu bar or a list, takes the picture with what has opened, and
    /// closes it again.
    void TakeOpened(const std::string& state, const QWidget& widget, QPoint place) {
        robot.Act("opening for " + state, [&] {
            ClickAt(widget, place);
            QCoreApplication::processEvents();
            ASSERT_NE(QApplication::activePopupWidget(), nullptr) << state << ": nothing opened";
            Take(state);
            while (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
        });
    }
    void TakeMenu(const std::string& state, const char* title) {
        const QMenuBar& bar = *run.window.menuBar();
        auto* const action = bar.findChild<QAction*>(QLatin1String(title));
        TakeOpened(state, bar, bar.actionGeometry(action).center());
    }
    void TakeList(const std::string& state, std::string_view list) {
        const QWidget& box = robot.Find(list);
        TakeOpened(state, box, box.rect().center());
    }

    /// From the first screen to the company's, with everything restored.
    void Restore(const Expected& expected) {
        robot.Choose("Nuevaempresa");
        Journey(run, expected).Restore(expected.Path());
    }

    /// The next box or dialog is in this picture.
    std::string with_box_;

private:
    /// The part of the picture that its most frequent colour takes, by every third pixel.
    static double LargestShare(const QImage& picture) {
        constexpr int kStep = 3;
        std::map<QRgb, int> counts;
        int largest = 0;
        int all = 0;
        for (int y = 0; y < picture.height(); y += kStep) {
            for (int x = 0; x < picture.width(); x += kStep, ++all) {
                largest = std::max(largest, ++counts[picture.pixel(x, y)]);
            }
        }
        return static_cast<double>(largest) / all;
    }

    void HideClock(QImage& picture) const {
        const Screen& screen = run.chain.Current();
        for (const Control& control : screen.Controls()) {
            const auto* const label = std::get_if<Label*>(&control.state);
            if (label == nullptr || *label != &screen.Clock()) continue;
            const QWidget& clock = robot.Find(control.name);
            QPainter(&picture).fillRect(QRect(clock.mapTo(&run.window, QPoint()), clock.size()),
                                        Qt::black);
        }
    }

    QImage last_;
};

TEST_P(Pictures, OfTheFirstScreen) {
    Take("form1");
    TakeWithBox("form1-exit-question", {.text = messages::kExit,
                                        .answer = QMessageBox::No,
                                        .icon = QMessageBox::Information,
                                        .buttons = QMessageBox::Yes | QMessageBox::No,
                                        .preset = QMessageBox::Yes});
    robot.Choose("salir");
}

TEST_P(Pictures, OfTheCompany) {
    const Expected expected("three_days");
    robot.Choose("Nuevaempresa");
    Take("form2-first-visit");
    for (int field = 1; field <= 19; ++field) {
        robot.Retype(Indexed("Text1", field), expected.Company(field));
    }
    Take("form2-filled");
    TakeMenu("form2-menu", "continuar");
    robot.Retype("Text1(1)", "");
    TakeWithBox("form2-refused", Refusal(messages::kNoName));
    robot.Choose("continuar", "datosiniciales");
    with_box_ = "form2-file-dialog";
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("recuperardatos");
}

TEST_P(Pictures, OfThePlan) {
    const Expected expected("three_days");
    Journey journey(run, expected);
    journey.EnterCompany();
    Take("form3-without-plan");
    TakeWithBox("form3-refused-numbers", Refusal(messages::kNoPick));
    robot.Press("Command1");
    journey.FixPlan(3, 3);
    Take("form3-with-plan");
    TakeWithBox("form3-refused-line", Refusal(messages::kEntryIncomplete));
    robot.Press("Command2");
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) journey.EnterLine(expected.PlanOf(day, task));
    }
    Take("form3-filled");
    TakeList("form3-list", "Combo1(4)");
    TakeWithBox("form3-restart-question", RestartQuestion(QMessageBox::No));
    robot.Pick("Combo1(0)", "1");
}

TEST_P(Pictures, OfTheContaminants) {
    const Expected expected("three_days");
    Restore(expected);
    robot.Choose("continuar", "contaminantes");
    Take("form4-closed");
    robot.Pick("Combo1", "1");
    Take("form4-rows-open");
    TakeWithBox("form4-refused", Refusal(messages::kRowsIncomplete));
    robot.Press("Command1");
    robot.Press("Command3");
    Take("form4-filled");
    TakeList("form4-list", "Combo13(0)");
}

TEST_P(Pictures, OfTheSheet) {
    const Expected expected("three_days");
    Restore(expected);
    Journey journey(run, expected);
    robot.Choose("continuar", "calculos");
    Take("form5-blank");
    TakeMenu("form5-menu", "recuperar");
    robot.Choose("introducirdatos", "introprimero");
    Take("form5-laid-out");
    robot.Click("Text1(8)");
    Take("form5-cell-with-focus");
    journey.TypeDay(1);
    Take("form5-measurements");
    for (int number = 1; number <= 8; ++number) {
        const std::string button = "Command" + std::to_string(number);
        robot.Press(button);
        Take("form5-after-" + button);
    }
    // Day 2 has a sample over three times its VLA-ED, day 3 one over its VLA-EC.
    journey.RecoverDay(2);
    Take("form5-recovered");
    robot.Press("Command8");
    EXPECT_EQ(journey.Marked().size(), 1U);
    Take("form5-marked-30");
    journey.RecoverDay(3);
    journey.PressChain();
    EXPECT_EQ(journey.Marked().size(), 1U);
    Take("form5-marked-15");
}

TEST_P(Pictures, OfARefusedDay) {
    Restore(Expected("one_day"));
    robot.Choose("continuar", "calculos");
    TakeWithBox("form5-refused-day", Refusal(messages::kIncoherentDay));
    robot.Choose("introducirdatos", "introsegundo");
    robot.Choose("recuperar", "recupprimerdia");
    Take("form5-one-task");
}

TEST_P(Pictures, OfTheFinalTable) {
    Restore(Expected("three_days"));
    robot.Choose("continuar", "resulatadofinal");
    Take("form6-hidden");
    robot.Press("Command1");
    Take("form6-filled");
    TakeWithBox("form6-print-question", BoxOf(messages::PrintQuestion(ScreenId::Form6),
                                              MsgBoxStyle::YesNo, QMessageBox::No));
    robot.Choose("imprimir");
}

INSTANTIATE_TEST_SUITE_P(AtPerCent, Pictures, ::testing::ValuesIn(kPercents),
                         [](const auto& test) { return std::to_string(test.param); });

}  // namespace
}  // namespace velmora::journeys
