#include "support/robot.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <stdexcept>
#include <utility>

#include "qt/text.h"

namespace velmora {

namespace {

constexpr int kWatchMilliseconds = 5;
constexpr int kSettlingRounds = 3;
constexpr int kKeysPerPace = 20;

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

QWindow& NativeWindowOf(const QWidget& widget) {
    QWindow* const native = widget.window()->windowHandle();
    if (native == nullptr) throw std::runtime_error("a window that isn't shown");
    return *native;
}

QPoint InWindow(const QWidget& widget, QPoint place) {
    return widget.mapTo(widget.window(), place);
}

QPoint CenterOf(const QWidget& widget) { return InWindow(widget, widget.rect().center()); }

void ClickAt(const QWidget& widget, QPoint place) {
    QWindow& native = NativeWindowOf(widget);
    QTest::mouseMove(&native, InWindow(widget, place));
    QTest::mouseClick(&native, Qt::LeftButton, {}, InWindow(widget, place));
}

/// Whether a click in the middle of the widget would reach it.
bool IsReached(const QWidget& widget) {
    const QWidget* const hit = widget.window()->childAt(CenterOf(widget));
    return hit == &widget || widget.isAncestorOf(hit);
}

Qt::Key KeyOf(QChar character) {
    constexpr char16_t kLastOfAscii = 0x7F;
    if (character.unicode() <= kLastOfAscii) return QTest::asciiToKey(character.toLatin1());
    return static_cast<Qt::Key>(character.toUpper().unicode());
}

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

Robot::Robot(Window& window) : window_(window) {
    watch_.setSingleShot(true);
    watch_.setInterval(kWatchMilliseconds);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { Watch(); });
}

void Robot::Act(std::string_view what, const std::function<void()>& action) {
    faults_.clear();
    watch_.start();
    std::string failure;
    try {
        action();
    } catch (const std::exception& error) {
        failure = error.what();
    }
    Wait(pace);
    watch_.stop();
    for (const Expected& expected : std::exchange(expected_, {})) {
        Fault(expected.what + " didn't open");
    }
    for (const std::string& fault : faults_) failure += (failure.empty() ? "" : "; ") + fault;
    if (!failure.empty()) throw std::runtime_error(std::string(what) + ": " + failure);
}

void Robot::Press(std::string_view button) {
    Act("pressing " + Quoted(button), [&] {
        const QWidget& widget = FindToClick(button);
        if (!widget.isEnabled()) throw std::runtime_error("it is disabled");
        ClickAt(widget, widget.rect().center());
    });
}

void Robot::Choose(std::string_view title, std::string_view entry) {
    Act("choosing " + Quoted(title) + ", " + Quoted(entry), [&] {
        QAction& action = FindTitle(title);
        QMenu* const list = action.menu();
        if (list == nullptr) throw std::runtime_error("the title has no list");
        const QMenuBar& bar = *window_.menuBar();
        ClickAt(bar, bar.actionGeometry(&action).center());
        if (!list->isVisible()) throw std::runtime_error("the list didn't open");
        Wait(pace);
        auto* const line = list->findChild<QAction*>(ToQt(entry), Qt::FindDirectChildrenOnly);
        if (line == nullptr) throw std::runtime_error("the list has no such entry");
        ClickAt(*list, list->actionGeometry(line).center());
    });
}

void Robot::Choose(std::string_view title) {
    Act("choosing " + Quoted(title), [&] {
        const QMenuBar& bar = *window_.menuBar();
        ClickAt(bar, bar.actionGeometry(&FindTitle(title)).center());
        if (QApplication::activePopupWidget() != nullptr) {
            throw std::runtime_error("a list opened");
        }
    });
}

void Robot::Type(std::string_view cell, std::string_view text) {
    Act("typing into " + Quoted(cell), [&] {
        QWidget& widget = FindToClick(cell);
        FocusByClick(widget);
        SendKey(Qt::Key_End);
        TypeInto(widget, text);
    });
}

void Robot::Retype(std::string_view cell, std::string_view text) {
    Act("typing anew into " + Quoted(cell), [&] {
        QWidget& widget = FindToClick(cell);
        FocusByClick(widget);
        SendKey(Qt::Key_Home);
        SendKey(Qt::Key_End, Qt::ShiftModifier);
        SendKey(Qt::Key_Backspace);
        TypeInto(widget, text);
    });
}

void Robot::Key(std::string_view control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Act("a key on " + Quoted(control), [&] {
        QWidget& widget = FindToClick(control);
        if (window_.focusWidget() != &widget) FocusByClick(widget);
        SendKey(key, modifiers);
    });
}

void Robot::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Act("a key", [&] { SendKey(key, modifiers); });
}

void Robot::Click(std::string_view control) {
    Act("clicking " + Quoted(control), [&] {
        const QWidget& widget = FindToClick(control);
        ClickAt(widget, widget.rect().center());
    });
}

void Robot::DoubleClick(std::string_view cell) {
    Act("double-clicking " + Quoted(cell), [&] {
        const QWidget& widget = FindToClick(cell);
        QTest::mouseDClick(&NativeWindowOf(widget), Qt::LeftButton, {}, CenterOf(widget));
    });
}

void Robot::Pick(std::string_view list, std::string_view item) {
    Act("picking " + Quoted(item) + " in " + Quoted(list), [&] {
        FindToClick(list);
        auto& box = Find<QComboBox>(list);
        const int index = box.findText(ToQt(item), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index < 0) throw std::runtime_error("no such item");
        ClickAt(box, box.rect().center());
        QAbstractItemView& view = *box.view();
        if (!view.isVisible()) throw std::runtime_error("the list didn't open");
        Wait(pace);
        const QModelIndex line = box.model()->index(index, box.modelColumn());
        view.scrollTo(line);
        ClickAt(*view.viewport(), view.visualRect(line).center());
    });
}

void Robot::CloseWindow() {
    Act("closing the window", [this] { window_.close(); });
}

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
             TypeInto(*edit, *name);
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

std::string Robot::Text(std::string_view control) const {
    const QWidget& widget = Find(control);
    if (const auto* const cell = qobject_cast<const QLineEdit*>(&widget)) {
        return cell->text().toStdString();
    }
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
        return list->currentText().toStdString();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->text().toStdString();
    }
    return Find<QPushButton>(control).text().toStdString();
}

bool Robot::Visible(std::string_view control) const { return Find(control).isVisible(); }

bool Robot::Enabled(std::string_view control) const { return Find(control).isEnabled(); }

bool Robot::Locked(std::string_view control) const {
    const QVariant locked = Find(control).property("Locked");
    if (!locked.isValid()) throw std::runtime_error(std::string(control) + " has no lock");
    return locked.toBool();
}

std::vector<std::string> Robot::Items(std::string_view list) const {
    const auto& box = Find<QComboBox>(list);
    std::vector<std::string> items;
    for (int i = 0; i < box.count(); ++i) items.push_back(box.itemText(i).toStdString());
    return items;
}

std::string Robot::WindowCaption() const { return window_.windowTitle().toStdString(); }

std::string Robot::ScreenName() const { return window_.objectName().toStdString(); }

std::string Robot::Focused() const {
    const QWidget* const focused = window_.focusWidget();
    return focused == nullptr ? std::string() : focused->objectName().toStdString();
}

QPixmap Robot::Picture() const {
    struct Layer {
        QPixmap image;
        QRect place;
    };
    std::vector<Layer> layers;
    QRect whole;
    for (QWidget* widget : {static_cast<QWidget*>(&window_), QApplication::activeModalWidget(),
                            QApplication::activePopupWidget()}) {
        if (widget == nullptr) continue;
        const QRect place(widget->mapToGlobal(QPoint()), widget->size());
        layers.push_back({widget->grab(), place});
        whole |= place;
    }
    QPixmap picture(whole.size() * window_.devicePixelRatio());
    picture.setDevicePixelRatio(window_.devicePixelRatio());
    picture.fill(Qt::darkGray);
    QPainter painter(&picture);
    for (const Layer& layer : layers) {
        const QRect place = layer.place.translated(-whole.topLeft());
        painter.drawPixmap(place.topLeft(), layer.image);
        painter.drawRect(place.adjusted(0, 0, -1, -1));
    }
    return picture;
}

void Robot::Snapshot(const std::string& file_name) const {
    if (!Picture().save(ToQt(file_name), "PNG")) {
        throw std::runtime_error("can't write " + file_name);
    }
}

QWidget* Robot::FindWidget(std::string_view name) const {
    return window_.findChild<QWidget*>(ToQt(name));
}

QWidget& Robot::FindToClick(std::string_view name) const {
    auto& widget = Find(name);
    if (!widget.isVisible()) throw std::runtime_error(std::string(name) + " is hidden");
    if (!IsReached(widget)) throw std::runtime_error(std::string(name) + " is covered");
    return widget;
}

QAction& Robot::FindTitle(std::string_view name) const {
    for (QAction* const action : window_.menuBar()->actions()) {
        if (action->objectName() == ToQt(name) && !name.empty()) return *action;
    }
    throw std::runtime_error("no such title: " + std::string(name));
}

void Robot::FocusByClick(QWidget& widget) {
    ClickAt(widget, widget.rect().center());
    if (window_.focusWidget() != &widget) throw std::runtime_error("it takes no focus");
}

void Robot::SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    const QWidget* const popup = QApplication::activePopupWidget();
    QTest::keyClick(&NativeWindowOf(popup == nullptr ? window_ : *popup), key, modifiers);
}

void Robot::TypeInto(QWidget& widget, std::string_view text) const {
    for (const QChar character : ToQt(text)) {
        QTest::sendKeyEvent(QTest::Click, &NativeWindowOf(widget), KeyOf(character),
                            QString(character), Qt::NoModifier);
        if (pace > 0) QTest::qWait(pace / kKeysPerPace);
    }
}

void Robot::Watch() {
    watch_.start();  // again at once: an answer may open a further box inside this call
    auto* const modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (modal == nullptr || waiting_) return;
    const QPointer<QDialog> still_there(modal);
    try {
        AnswerModal(*modal);
    } catch (const std::exception& error) {
        Fault(error.what());
        if (still_there) Dismiss(*modal);
    }
}

void Robot::AnswerModal(QDialog& modal) {
    waiting_ = true;
    Wait(pace);
    if (on_modal) on_modal(modal);
    waiting_ = false;
    if (expected_.empty()) {
        Fault(Described(modal) + " opened, which wasn't expected");
        Dismiss(modal);
        return;
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

void Robot::Wait(int milliseconds) {
    if (milliseconds > 0) QTest::qWait(milliseconds);
    for (int i = 0; i < kSettlingRounds; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace velmora
