// The five styles of message box, on a real box.

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <map>
#include <optional>

#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

using ::testing::_;
using ::testing::Pair;
using By = Robot::By;

struct Answered {
    const char* name;
    MsgBoxStyle style;
    By by;
    QMessageBox::StandardButton button;  ///< where it is clicked
    MsgBoxAnswer answer;
};

constexpr auto kAny = QMessageBox::NoButton;

// clang-format off
constexpr std::array<Answered, 23> kAnswers = {{
    {"OkByClick",                  MsgBoxStyle::Ok,           By::Click,  QMessageBox::Ok,  MsgBoxAnswer::Ok},
    {"OkByEnter",                  MsgBoxStyle::Ok,           By::Enter,  kAny,             MsgBoxAnswer::Ok},
    {"OkByEscape",                 MsgBoxStyle::Ok,           By::Escape, kAny,             MsgBoxAnswer::Ok},
    {"OkByTheCross",               MsgBoxStyle::Ok,           By::Close,  kAny,             MsgBoxAnswer::Ok},
    {"YesNoByYes",                 MsgBoxStyle::YesNo,              By::Click,  QMessageBox::Yes, MsgBoxAnswer::Yes},
    {"YesNoByNo",                  MsgBoxStyle::YesNo,              By::Click,  QMessageBox::No,  MsgBoxAnswer::No},
    {"YesNoByEnter",               MsgBoxStyle::YesNo,              By::Enter,  kAny,             MsgBoxAnswer::Yes},
    {"YesNoByEscape",              MsgBoxStyle::YesNo,              By::Escape, kAny,             MsgBoxAnswer::No},
    {"YesNoByTheCross",            MsgBoxStyle::YesNo,              By::Close,  kAny,             MsgBoxAnswer::No},
    {"InformationByYes",           MsgBoxStyle::YesNoInformation,   By::Click,  QMessageBox::Yes, MsgBoxAnswer::Yes},
    {"InformationByNo",            MsgBoxStyle::YesNoInformation,   By::Click,  QMessageBox::No,  MsgBoxAnswer::No},
    {"InformationByEnter",         MsgBoxStyle::YesNoInformation,   By::Enter,  kAny,             MsgBoxAnswer::Yes},
    {"InformationByEscape",        MsgBoxStyle::YesNoInformation,   By::Escape, kAny,             MsgBoxAnswer::No},
    {"InformationByTheCross",      MsgBoxStyle::YesNoInformation,   By::Close,  kAny,             MsgBoxAnswer::No},
    {"QuestionByYes",              MsgBoxStyle::YesNoQuestionNo,    By::Click,  QMessageBox::Yes, MsgBoxAnswer::Yes},
    {"QuestionByNo",               MsgBoxStyle::YesNoQuestionNo,    By::Click,  QMessageBox::No,  MsgBoxAnswer::No},
    {"QuestionByEnter",            MsgBoxStyle::YesNoQuestionNo,    By::Enter,  kAny,             MsgBoxAnswer::No},
    {"QuestionByEscape",           MsgBoxStyle::YesNoQuestionNo,    By::Escape, kAny,             MsgBoxAnswer::No},
    {"QuestionByTheCross",         MsgBoxStyle::YesNoQuestionNo,    By::Close,  kAny,             MsgBoxAnswer::No},
    {"InformationNoByYes",         MsgBoxStyle::YesNoInformationNo, By::Click,  QMessageBox::Yes, MsgBoxAnswer::Yes},
    {"InformationNoByEnter",       MsgBoxStyle::YesNoInformationNo, By::Enter,  kAny,             MsgBoxAnswer::No},
    {"InformationNoByEscape",      MsgBoxStyle::YesNoInformationNo, By::Escape, kAny,             MsgBoxAnswer::No},
    {"InformationNoByTheCross",    MsgBoxStyle::YesNoInformationNo, By::Close,  kAny,             MsgBoxAnswer::No},
}};
// clang-format on

class BoxTest : public WindowTest {
protected:
    MsgBoxAnswer Show(std::string_view prompt, MsgBoxStyle style,
                      std::string_view title = "Velmora") {
        std::optional<MsgBoxAnswer> answer;
        robot.Act("showing a box",
                  [&] { window.Run([&] { answer = host.MsgBox(prompt, style, title); }); });
        return answer.value();
    }
};

class BoxAnswerTest : public BoxTest, public ::testing::WithParamInterface<Answered> {};

TEST_P(BoxAnswerTest, GivesTheAnswerOfItsStyle) {
    const Answered& row = GetParam();
    Robot::Box box = BoxOf("¿Sí o no?", row.style, row.button);
    box.by = row.by;
    robot.ExpectBox(box);
    EXPECT_EQ(Show("¿Sí o no?", row.style), row.answer);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, BoxAnswerTest, ::testing::ValuesIn(kAnswers),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(BoxTest, ItsTextKeepsLeadingTrailingAndDoubledBlanksAndItsLines) {
    std::string shown;
    Qt::TextFormat format = Qt::AutoText;
    robot.on_modal = [&](QDialog& modal) {
        const auto* const label = modal.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        ASSERT_NE(label, nullptr);
        shown = label->text().toStdString();
        format = label->textFormat();
    };
    robot.ExpectBox(BoxOf("  dos  blancos \n \n<b>no</b> &es marcado ", MsgBoxStyle::Ok));
    Show("  dos  blancos \r\n \r\n<b>no</b> &es marcado ", MsgBoxStyle::Ok);
    EXPECT_EQ(shown, "  dos  blancos \n \n<b>no</b> &es marcado ");
    EXPECT_EQ(format, Qt::PlainText);
}

/// Every text that stands on the box, its buttons' left out.
std::vector<std::string> TextsOn(const QDialog& box) {
    std::vector<std::string> texts;
    for (const QWidget* const widget : box.findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        for (const char* const name : {"text", "plainText"}) {
            if (qobject_cast<const QPushButton*>(widget) != nullptr) continue;
            const std::string text = widget->property(name).toString().toStdString();
            if (!text.empty()) texts.push_back(text);
        }
    }
    return texts;
}

TEST_F(BoxTest, ItSaysItsPromptAndNothingMore) {
    std::vector<std::string> said;
    robot.on_modal = [&](QDialog& modal) { said = TextsOn(modal); };
    for (const MsgBoxStyle style :
         {MsgBoxStyle::Ok, MsgBoxStyle::YesNo, MsgBoxStyle::YesNoInformation,
          MsgBoxStyle::YesNoQuestionNo, MsgBoxStyle::YesNoInformationNo}) {
        const auto answer = style == MsgBoxStyle::Ok ? QMessageBox::Ok : QMessageBox::No;
        robot.ExpectBox(BoxOf("¿Desea continuar?", style, answer));
        Show("¿Desea continuar?", style);
        EXPECT_THAT(said, ::testing::ElementsAre("¿Desea continuar?"));
    }
}

TEST_F(BoxTest, ItsTitleIsTheOneGiven) {
    robot.ExpectBox(BoxOf("x", MsgBoxStyle::YesNoQuestionNo, QMessageBox::No, "Aviso"));
    Show("x", MsgBoxStyle::YesNoQuestionNo, "Aviso");
}

TEST_F(BoxTest, ItsButtonsAreSpanishAndStandInTheirOrder) {
    std::map<int, std::string> captions;  // by their place from the left
    robot.on_modal = [&](QDialog& modal) {
        for (const QAbstractButton* const button : modal.findChildren<QAbstractButton*>()) {
            captions[button->x()] = button->text().remove(QLatin1Char('&')).toStdString();
        }
    };
    robot.ExpectBox(BoxOf("x", MsgBoxStyle::YesNo, QMessageBox::No));
    Show("x", MsgBoxStyle::YesNo);
    EXPECT_THAT(captions, ElementsAre(Pair(_, "Sí"), Pair(_, "No")));

    captions.clear();
    robot.ExpectBox(BoxOf("x", MsgBoxStyle::Ok));
    Show("x", MsgBoxStyle::Ok);
    EXPECT_THAT(captions, ElementsAre(Pair(_, "Aceptar")));
}

TEST_F(BoxTest, NothingOfTheWindowIsReachedWhileItIsOpen) {
    Open(ScreenId::Form2);
    robot.on_modal = [&](QDialog& modal) {
        EXPECT_TRUE(modal.isModal());
        const QWidget& cell = robot.Find("Text1(4)");
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          cell.mapTo(&window, cell.rect().center()));
        QTest::keyClick(window.windowHandle(), Qt::Key_A);
    };
    robot.ExpectBox(BoxOf("x", MsgBoxStyle::Ok));
    Show("x", MsgBoxStyle::Ok);
    EXPECT_EQ(robot.Focused(), "Text1(1)");
    EXPECT_EQ(robot.Text("Text1(4)"), "");
    EXPECT_EQ(robot.Text("Text1(1)"), messages::kNameHint);
}

}  // namespace
}  // namespace velmora::test
