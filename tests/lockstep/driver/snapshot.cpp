#include "snapshot.h"

#include "actions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaEnum>
#include <QPalette>
#include <QPrintDialog>
#include <QPushButton>
#include <QRegularExpression>

namespace lockstep {

namespace {

QString text(const char* latin) { return QString::fromLatin1(latin); }

bool isControlName(const QString& name) {
    static const QRegularExpression pattern(
        text("^(Text|Combo|Command|Label|Picture)[0-9]+(\\([0-9]+\\))?$"));
    return pattern.match(name).hasMatch();
}

/// The cells whose colours matter: columns 7 to 12 of the sheet.
bool isSampleCell(const QString& window, const QString& name) {
    if (window != QLatin1String("Form5") || !name.startsWith(QLatin1String("Text1("))) return false;
    const int column = name.mid(6, name.size() - 7).toInt() % 18;
    return column >= 7 && column <= 12;
}

QJsonArray describe(const QWidget* widget, bool withColours) {
    QString kind = text("other");
    QJsonValue caption;
    if (const auto* cell = qobject_cast<const QLineEdit*>(widget)) {
        kind = text("cell");
        caption = cell->text();
    } else if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
        kind = text("list");
        caption = list->currentText();
    } else if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
        kind = text("button");
        caption = button->text();
    } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        kind = text("label");
        caption = label->text();
    }
    const QVariant locked = widget->property("Locked");
    QJsonArray told{kind, caption, widget->isVisible(), widget->isEnabled(),
                    locked.isValid() ? QJsonValue(locked.toBool()) : QJsonValue()};
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
        QJsonArray items;
        for (int i = 0; i < list->count(); ++i) items.append(list->itemText(i));
        told.append(items);
        told.append(QJsonValue());
    } else if (withColours) {
        told.append(widget->palette().color(QPalette::Base).name());
        told.append(widget->palette().color(QPalette::Text).name());
    } else {
        told.append(QJsonValue());
        told.append(QJsonValue());
    }
    return told;
}

QJsonArray describe(const QMenuBar* bar) {
    QJsonArray entries;
    for (const QAction* entry : bar->actions()) {
        QJsonArray list;
        if (const QMenu* menu = entry->menu())
            for (const QAction* item : menu->actions())
                list.append(QJsonArray{item->objectName(), item->text()});
        entries.append(QJsonArray{entry->objectName(), entry->text(), list});
    }
    return entries;
}

/// The controls in the order in which Tab reaches them, hidden ones included.
QJsonArray tabOrder(const QMainWindow* window) {
    QJsonArray order;
    const QWidget* first = window->centralWidget();
    for (const QWidget* at = first ? first->nextInFocusChain() : nullptr;
         at != nullptr && at != first; at = at->nextInFocusChain())
        if (isControlName(at->objectName()) && (at->focusPolicy() & Qt::TabFocus))
            order.append(at->objectName());
    return order;
}

/// "ok", "yes" or "no".
QString nameOf(QMessageBox::StandardButton button) {
    const auto names = QMetaEnum::fromType<QMessageBox::StandardButtons>();
    return QString::fromLatin1(names.valueToKey(button)).toLower();
}

/// The toolkit's own name of it: "NoIcon", "Information", "Question", "Warning" or "Critical".
QString nameOf(QMessageBox::Icon icon) {
    return QString::fromLatin1(QMetaEnum::fromType<QMessageBox::Icon>().valueToKey(icon));
}

QJsonObject describeBox(const QMessageBox* box) {
    QJsonArray buttons;
    QString preset;
    for (QAbstractButton* button : box->buttons()) {
        const QString name = nameOf(box->standardButton(button));
        buttons.append(name);
        const auto* push = qobject_cast<const QPushButton*>(button);
        if (push != nullptr && push->isDefault()) preset = name;
    }
    return {{text("kind"), text("box")},
            {text("text"), box->text()},
            {text("title"), box->windowTitle()},
            {text("icon"), nameOf(box->icon())},
            {text("buttons"), buttons},
            {text("default"), preset},
            {text("ofDialog"), qobject_cast<const QFileDialog*>(box->parentWidget()) != nullptr}};
}

QJsonValue describeModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) return QJsonValue();
    if (const auto* box = qobject_cast<const QMessageBox*>(modal)) return describeBox(box);
    if (const auto* file = qobject_cast<const QFileDialog*>(modal))
        return QJsonObject{{text("kind"), text("file")}, {text("title"), file->windowTitle()}};
    if (qobject_cast<const QPrintDialog*>(modal) != nullptr)
        return QJsonObject{{text("kind"), text("print")}};
    return QJsonObject{{text("kind"), text("other")},
                       {text("title"), modal->windowTitle()},
                       {text("class"), text(modal->metaObject()->className())}};
}

}  // namespace

QJsonObject Snapshot::changes() {
    QJsonObject told;
    told.insert(text("modal"), describeModal());
    const QMainWindow* window = mainWindow();
    if (window == nullptr) return told;

    const QString name = window->objectName();
    const QString heading = name + QChar(u'\n') + window->windowTitle();
    if (heading != window_) {
        window_ = heading;
        told.insert(text("window"), QJsonArray{name, window->windowTitle()});
        told.insert(text("tabs"), tabOrder(window));
    }
    const QJsonArray entries = describe(window->menuBar());
    const QString menu = QString::fromUtf8(QJsonDocument(entries).toJson(QJsonDocument::Compact));
    if (menu != menu_) {
        menu_ = menu;
        told.insert(text("menu"), entries);
    }

    QHash<QString, QJsonArray> present;
    QJsonObject set;
    QJsonArray gone;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const QString control = widget->objectName();
        if (control.isEmpty() || !isControlName(control)) continue;
        QJsonArray state = describe(widget, isSampleCell(name, control));
        if (present.contains(control)) state.append(text("twice"));
        const auto known = controls_.constFind(control);
        if (known == controls_.constEnd() || *known != state) set.insert(control, state);
        present.insert(control, state);
    }
    for (auto it = controls_.constBegin(); it != controls_.constEnd(); ++it)
        if (!present.contains(it.key())) gone.append(it.key());
    controls_ = present;
    if (!set.isEmpty()) told.insert(text("set"), set);
    if (!gone.isEmpty()) told.insert(text("gone"), gone);
    return told;
}

}  // namespace lockstep
