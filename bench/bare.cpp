#include "bare.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

#include <variant>

#include "qt/text.h"

namespace velmora::bench {

namespace {

constexpr double kPixelsPerTwip = 1.0 / 15;

struct Maker {
    const Control& control;
    QWidget* page;

    QWidget* operator()(const TextCell* cell) const {
        auto* const edit = new QLineEdit(ToQt(cell->Text), page);
        edit->setVisible(cell->Visible);
        return edit;
    }
    QWidget* operator()(const ComboBox* list) const {
        auto* const box = new QComboBox(page);
        for (const std::string_view item : control.row.items) box->addItem(ToQt(item));
        box->setVisible(list->Visible);
        return box;
    }
    QWidget* operator()(const Label* label) const {
        auto* const text = new QLabel(ToQt(label->Caption), page);
        text->setVisible(label->Visible);
        return text;
    }
    QWidget* operator()(const Button* button) const {
        auto* const press = new QPushButton(ToQt(button->Caption), page);
        press->setVisible(button->Visible);
        return press;
    }
    QWidget* operator()(const Picture& /*picture*/) const { return new QWidget(page); }
};

void Fill(QMenu& menu, const MenuEntry& title) {
    for (const MenuEntry& entry : title.list) menu.addAction(ToQt(entry.caption));
}

}  // namespace

BareWindow::BareWindow() { resize(825, 585); }

void BareWindow::Show(const Screen& screen) {
    auto* const bar = new QMenuBar(this);
    for (const MenuEntry& title : screen.Menu()) {
        if (title.list.empty())
            bar->addAction(ToQt(title.caption));
        else
            Fill(*bar->addMenu(ToQt(title.caption)), title);
    }
    setMenuBar(bar);

    auto* const page = new QWidget(this);
    widgets_.clear();
    for (const Control& control : screen.Controls()) {
        QWidget* const widget = std::visit(Maker{control, page}, control.state);
        const Box& box = control.row.box;
        widget->setGeometry(QRectF(box.left * kPixelsPerTwip, box.top * kPixelsPerTwip,
                                   box.width * kPixelsPerTwip, box.height * kPixelsPerTwip)
                                .toRect());
        widgets_.push_back(widget);
    }
    setCentralWidget(page);
}

void BareWindow::SetText(std::size_t control, const Control::State& state) {
    QWidget* const widget = widgets_[control];
    if (const auto* cell = std::get_if<TextCell*>(&state)) {
        static_cast<QLineEdit*>(widget)->setText(ToQt((*cell)->Text));
        widget->setVisible((*cell)->Visible);
    } else if (const auto* label = std::get_if<Label*>(&state)) {
        static_cast<QLabel*>(widget)->setText(ToQt((*label)->Caption));
        widget->setVisible((*label)->Visible);
    } else if (const auto* button = std::get_if<Button*>(&state)) {
        widget->setEnabled((*button)->Enabled);
        widget->setVisible((*button)->Visible);
    }
}

}  // namespace velmora::bench
