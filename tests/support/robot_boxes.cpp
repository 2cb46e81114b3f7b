#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "qt/text.h"
#include "support/robot.h"
#include "support/robot_input.h"

namespace velmora {

namespace {

std::string NameOf(QMessageBox::Icon icon) {
    switch (icon) {
        case QMessageBox::NoIcon:
            return "none";
        case QMessageBox::Information:
            return "information";
        case QMessageBox::Warning:
            return "warning";
        case QMessageBox::Critical:
            return "critical";
        case QMessageBox::Question:
            return "question";
    }
    return "unknown";
}

std::string NamesOf(QMessageBox::StandardButtons buttons) {
    std::string names;
    for (const auto& [button, name] :
         {std::pair{QMessageBox::Ok, "OK "}, std::pair{QMessageBox::Yes, "Yes "},
          std::pair{QMessageBox::No, "No "}, std::pair{QMessageBox::Cancel, "Cancel "}}) {
        if (buttons.testFlag(button)) names += name;
    }
    return names.empty() ? "none" : names;
}

QMessageBox::StandardButton PresetOf(const QMessageBox& box) {
    QPushButton* const preset = box.defaultButton();
    return preset == nullptr ? QMessageBox::NoButton : box.standardButton(preset);
}

/// What an unexpected box or dialog says.
std::string Described(const QDialog& modal) {
    if (const auto* const box = qobject_cast<const QMessageBox*>(&modal)) {
        return "the box " + Quoted(box->text().toStdString());
    }
    return std::string("a ") + modal.metaObject()->className();
}

void Dismiss(QDialog& modal) {
    if (const auto* const box = qobject_cast<QMessageBox*>(&modal)) {
        if (box->escapeButton() != nullptr) return box->escapeButton()->click();
        if (!box->buttons().empty()) return box->buttons().front()->click();
    }
    modal.reject();
}

QAbstractButton* ButtonOf(const QDialog& dialog, QDialogButtonBox::StandardButton which) {
    const auto* const box = dialog.findChild<QDialogButtonBox*>();
    return box == nullptr ? nullptr : box->button(which);
}

}  // namespace

void Robot::ExpectBox(const Box& box) {
    expected_.push_back(
        {"the box " + Quoted(box.text), [this, box](QDialog& modal) {
             auto* const shown = qobject_cast<QMessageBox*>(&modal);
             if (shown == nullptr) return false;
             const QString text =
                 ToQt(box.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
             Compare("text", shown->text().toStdString(), text.toStdString());
             Compare("title", shown->windowTitle().toStdString(), box.title);
             Compare("icon", NameOf(shown->icon()), NameOf(box.icon));
             Compare("buttons", NamesOf(shown->standardButtons()), NamesOf(box.buttons));
             Compare("default button", NamesOf(PresetOf(*shown)), NamesOf(box.preset));
             switch (box.by) {
                 case By::Click:
                     ClickButton(shown->button(box.answer));
                     break;
                 case By::Enter:
                     QTest::keyClick(shown->windowHandle(), Qt::Key_Return);
                     break;
                 case By::Escape:
                     QTest::keyClick(shown->windowHandle(), Qt::Key_Escape);
                     break;
                 case By::Close:
                     shown->close();
                     break;
             }
             return true;
         }});
}

void Robot::ExpectFileDialog(const std::optional<std::string>& name, const std::string& title) {
    expected_.push_back(
        {"the file dialog", [this, name, title](QDialog& modal) {
             auto* const dialog = qobject_cast<QFileDialog*>(&modal);
             if (dialog == nullptr) return false;
             Compare("title", dialog->windowTitle().toStdString(), title);
             if (!name) {
                 ClickButton(ButtonOf(*dialog, QDialogButtonBox::Cancel));
                 return true;
             }
             auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
             ClickAt(*edit, edit->rect().center());
             QTest::keyClick(dialog->windowHandle(), Qt::Key_A, Qt::ControlModifier);
             TypeKeys(*edit, *name, KeyPause());
             while (QWidget* const proposals = QApplication::activePopupWidget()) {
                 QTest::keyClick(proposals->windowHandle(), Qt::Key_Escape);
             }
             ClickButton(ButtonOf(*dialog, QDialogButtonBox::Save));
             return true;
         }});
}

void Robot::ExpectPrompt(const std::string& part, QMessageBox::StandardButton answer) {
    expected_.push_back({"the question " + Quoted(part), [this, part, answer](QDialog& modal) {
                             auto* const box = qobject_cast<QMessageBox*>(&modal);
                             if (box == nullptr ||
                                 qobject_cast<QFileDialog*>(box->parentWidget()) == nullptr) {
                                 return false;
                             }
                             if (!box->text().contains(ToQt(part))) {
                                 Compare("question", box->text().toStdString(), part);
                             }
                             ClickButton(box->button(answer));
                             return true;
                         }});
}

void Robot::ExpectPrintDialog(Print answer, const std::function<void(QPrintDialog&)>& look) {
    expected_.push_back({"the print dialog", [this, answer, look](QDialog& modal) {
                             auto* const dialog = qobject_cast<QPrintDialog*>(&modal);
                             if (dialog == nullptr) return false;
                             if (look) look(*dialog);
                             ClickButton(ButtonOf(*dialog, answer == Print::Accept
                                                               ? QDialogButtonBox::Ok
                                                               : QDialogButtonBox::Cancel));
                             return true;
                         }});
}

void Robot::Watch() {
    watch_.start();  // again at once: an answer may open a further box inside this call
    const QPointer<QDialog> modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!modal || std::ranges::count(answering_, modal) > 0) return;
    answering_.push_back(modal);
    try {
        AnswerModal(*modal);
    } catch (const std::exception& error) {
        Fault(error.what());
        if (modal) Dismiss(*modal);
    }
    answering_.pop_back();
}

void Robot::AnswerModal(QDialog& modal) {
    Wait(pace);
    if (on_modal) on_modal(modal);
    if (expected_.empty()) {
        Fault(Described(modal) + " opened, which wasn't expected");
        return Dismiss(modal);
    }
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    if (expected.answer(modal)) return;
    Fault(Described(modal) + " opened in place of " + expected.what);
    Dismiss(modal);
}

void Robot::Compare(std::string_view what, const std::string& seen, const std::string& expected) {
    if (seen == expected) return;
    Fault("its " + std::string(what) + " is " + Quoted(seen) + ", not " + Quoted(expected));
}

void Robot::ClickButton(QAbstractButton* button) {
    if (button == nullptr) throw std::runtime_error("the button to press isn't there");
    if (!button->isEnabled()) throw std::runtime_error("the button to press is disabled");
    ClickAt(*button, button->rect().center());
}

Robot::Box BoxOf(std::string text, MsgBoxStyle style, QMessageBox::StandardButton answer,
                 std::string title) {
    struct Style {
        MsgBoxStyle style;
        QMessageBox::StandardButtons buttons;
        QMessageBox::Icon icon;
        QMessageBox::StandardButton preset;
    };
    constexpr auto kYesNo = QMessageBox::Yes | QMessageBox::No;
    // clang-format off
    static const std::array<Style, 5> kStyles = {{
        {MsgBoxStyle::Ok,           QMessageBox::Ok, QMessageBox::NoIcon,      QMessageBox::Ok},
        {MsgBoxStyle::YesNo,              kYesNo,          QMessageBox::NoIcon,      QMessageBox::Yes},
        {MsgBoxStyle::YesNoInformation,   kYesNo,          QMessageBox::Information, QMessageBox::Yes},
        {MsgBoxStyle::YesNoQuestionNo,    kYesNo,          QMessageBox::Question,    QMessageBox::No},
        {MsgBoxStyle::YesNoInformationNo, kYesNo,          QMessageBox::Information, QMessageBox::No},
    }};
    // clang-format on
    const auto found = std::ranges::find(kStyles, style, &Style::style);
    return {.text = std::move(text),
            .answer = answer,
            .icon = found->icon,
            .buttons = found->buttons,
            .preset = found->preset,
            .title = std::move(title)};
}

}  // namespace velmora
