// The five styles of message box, on a real box.

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <optional>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

using By = Robot::By;

struct Answered {
    const char* name;
    Estilo estilo;
    By by;
    QMessageBox::StandardButton button;  ///< where it is clicked
    Respuesta respuesta;
};

constexpr auto kAny = QMessageBox::NoButton;

// clang-format off
constexpr std::array<Answered, 23> kAnswers = {{
    {"OkByClick",                  Estilo::Aceptar,           By::Click,  QMessageBox::Ok,  Respuesta::Aceptar},
    {"OkByEnter",                  Estilo::Aceptar,           By::Enter,  kAny,             Respuesta::Aceptar},
    {"OkByEscape",                 Estilo::Aceptar,           By::Escape, kAny,             Respuesta::Aceptar},
    {"OkByTheCross",               Estilo::Aceptar,           By::Close,  kAny,             Respuesta::Aceptar},
    {"YesNoByYes",                 Estilo::SiNo,              By::Click,  QMessageBox::Yes, Respuesta::Si},
    {"YesNoByNo",                  Estilo::SiNo,              By::Click,  QMessageBox::No,  Respuesta::No},
    {"YesNoByEnter",               Estilo::SiNo,              By::Enter,  kAny,             Respuesta::Si},
    {"YesNoByEscape",              Estilo::SiNo,              By::Escape, kAny,             Respuesta::No},
    {"YesNoByTheCross",            Estilo::SiNo,              By::Close,  kAny,             Respuesta::No},
    {"InformationByYes",           Estilo::SiNoInformacion,   By::Click,  QMessageBox::Yes, Respuesta::Si},
    {"InformationByNo",            Estilo::SiNoInformacion,   By::Click,  QMessageBox::No,  Respuesta::No},
    {"InformationByEnter",         Estilo::SiNoInformacion,   By::Enter,  kAny,             Respuesta::Si},
    {"InformationByEscape",        Estilo::SiNoInformacion,   By::Escape, kAny,             Respuesta::No},
    {"InformationByTheCross",      Estilo::SiNoInformacion,   By::Close,  kAny,             Respuesta::No},
    {"QuestionByYes",              Estilo::SiNoPreguntaNo,    By::Click,  QMessageBox::Yes, Respuesta::Si},
    {"QuestionByNo",               Estilo::SiNoPreguntaNo,    By::Click,  QMessageBox::No,  Respuesta::No},
    {"QuestionByEnter",            Estilo::SiNoPreguntaNo,    By::Enter,  kAny,             Respuesta::No},
    {"QuestionByEscape",           Estilo::SiNoPreguntaNo,    By::Escape, kAny,             Respuesta::No},
    {"QuestionByTheCross",         Estilo::SiNoPreguntaNo,    By::Close,  kAny,             Respuesta::No},
    {"InformationNoByYes",         Estilo::SiNoInformacionNo, By::Click,  QMessageBox::Yes, Respuesta::Si},
    {"InformationNoByEnter",       Estilo::SiNoInformacionNo, By::Enter,  kAny,             Respuesta::No},
    {"InformationNoByEscape",      Estilo::SiNoInformacionNo, By::Escape, kAny,             Respuesta::No},
    {"InformationNoByTheCross",    Estilo::SiNoInformacionNo, By::Close,  kAny,             Respuesta::No},
}};
// clang-format on

class BoxTest : public WindowTest {
protected:
    Respuesta Show(std::string_view prompt, Estilo estilo, std::string_view title = "Velmora") {
        std::optional<Respuesta> answer;
        robot.Act("showing a box",
                  [&] { window->Run([&] { answer = host.MsgBox(prompt, estilo, title); }); });
        return answer.value();
    }
};

class BoxAnswerTest : public BoxTest, public ::testing::WithParamInterface<Answered> {};

TEST_P(BoxAnswerTest, GivesTheAnswerOfItsStyle) {
    const Answered& row = GetParam();
    Robot::Box box = BoxOf("¿Sí o no?", row.estilo, row.button);
    box.by = row.by;
    robot.ExpectBox(box);
    EXPECT_EQ(Show("¿Sí o no?", row.estilo), row.respuesta);
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
    robot.ExpectBox(BoxOf("  dos  blancos \n \n<b>no</b> &es marcado ", Estilo::Aceptar));
    Show("  dos  blancos \r\n \r\n<b>no</b> &es marcado ", Estilo::Aceptar);
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
    for (const Estilo estilo : {Estilo::Aceptar, Estilo::SiNo, Estilo::SiNoInformacion,
                                Estilo::SiNoPreguntaNo, Estilo::SiNoInformacionNo}) {
        const auto answer = estilo == Estilo::Aceptar ? QMessageBox::Ok : QMessageBox::No;
        robot.ExpectBox(BoxOf("¿Desea continuar?", estilo, answer));
        Show("¿Desea continuar?", estilo);
        EXPECT_THAT(said, ::testing::ElementsAre("¿Desea continuar?"));
    }
}

TEST_F(BoxTest, ItsTitleIsTheOneGiven) {
    robot.ExpectBox(BoxOf("x", Estilo::SiNoPreguntaNo, QMessageBox::No, "Aviso"));
    Show("x", Estilo::SiNoPreguntaNo, "Aviso");
}

TEST_F(BoxTest, ItsButtonsAreSpanish) {
    std::vector<std::string> captions;
    robot.on_modal = [&](QDialog& modal) {
        for (const QAbstractButton* const button : modal.findChildren<QAbstractButton*>()) {
            captions.push_back(button->text().remove(QLatin1Char('&')).toStdString());
        }
    };
    robot.ExpectBox(BoxOf("x", Estilo::SiNo, QMessageBox::No));
    Show("x", Estilo::SiNo);
    EXPECT_THAT(captions, ::testing::UnorderedElementsAre("Sí", "No"));

    captions.clear();
    robot.ExpectBox(BoxOf("x", Estilo::Aceptar));
    Show("x", Estilo::Aceptar);
    EXPECT_THAT(captions, ::testing::ElementsAre("Aceptar"));
}

TEST_F(BoxTest, NothingOfTheWindowIsReachedWhileItIsOpen) {
    Open(ScreenId::Form2);
    robot.on_modal = [&](QDialog& modal) {
        EXPECT_TRUE(modal.isModal());
        const QWidget& cell = robot.Find("Text1(4)");
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          cell.mapTo(window.get(), cell.rect().center()));
        QTest::keyClick(window->windowHandle(), Qt::Key_A);
    };
    robot.ExpectBox(BoxOf("x", Estilo::Aceptar));
    Show("x", Estilo::Aceptar);
    EXPECT_EQ(robot.Focused(), "Text1(1)");
    EXPECT_EQ(robot.Text("Text1(4)"), "");
    EXPECT_EQ(robot.Text("Text1(1)"), " El nombre de la empresa es imprescindible.");
}

}  // namespace
}  // namespace velmora::test
