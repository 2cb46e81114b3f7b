#include "qt/window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QPicture>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <exception>
#include <map>
#include <utility>

#include "qt/appearance.h"
#include "qt/canvas.h"
#include "qt/cell_edit.h"
#include "qt/list_box.h"
#include "qt/menu_bar.h"
#include "qt/splash.h"
#include "qt/text.h"
#include "qt/text_line.h"
#include "runtime/error.h"

namespace velmora {

/// A control, its widget, and the state that the widget shows.
struct Window::Shown {
    using State = std::variant<std::monostate, TextCell, ComboBox, Label, Button>;

    const Control* control;
    State state;  ///< at first that of a widget just made: a control as it is by default
    QWidget* widget = nullptr;
    int opened = 0;  ///< of a button: its place in the order in which they opened; 0 while closed

    explicit Shown(const Control& shown)
        : control(&shown), state(std::visit(Fresh{}, shown.state)) {}

    bool CanTakeFocus() const {
        return control->row.tab != kNoTab && std::visit(Reachable{}, state);
    }

    /// What the widget reads.
    QString Text() const { return ToQt(std::visit(Reads{}, state)); }

private:
    struct Reads {
        std::string_view operator()(std::monostate /*picture*/) const { return {}; }
        std::string_view operator()(const Label& label) const { return label.Caption; }
        std::string_view operator()(const Button& button) const { return button.Caption; }
        std::string_view operator()(const auto& control) const { return control.Text; }
    };
    struct Fresh {
        State operator()(const Picture& /*picture*/) const { return {}; }
        template <class Data>
        State operator()(const Data* /*control*/) const {
            return Data{};
        }
    };
    struct Reachable {
        bool operator()(std::monostate /*picture*/) const { return false; }
        bool operator()(const Button& button) const { return button.Visible && button.Enabled; }
        bool operator()(const auto& control) const { return control.Visible; }
    };
};

namespace {

Qt::Alignment AlignmentOf(Align align) {
    switch (align) {
        case Align::Center:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        case Align::Left:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

/// The back colour of a cell that a handler hasn't coloured.
Color BackOf(const Look& look) {
    return look.back == Look::kTransparent ? kWindowBackground : look.back;
}

// A widget's step from what it shows to what its control holds now.

void Update(QLabel& widget, const Label& before, const Label& now) {
    if (now.Caption != before.Caption) widget.setText(ToQt(now.Caption));
    if (now.Visible != before.Visible) widget.setVisible(now.Visible);
}

void Update(QPushButton& widget, const Button& before, const Button& now) {
    if (now.Caption != before.Caption) widget.setText(ToQt(now.Caption));
    if (now.Enabled != before.Enabled) widget.setEnabled(now.Enabled);
    if (now.Visible != before.Visible) widget.setVisible(now.Visible);
}

/// Says what a screen reader is to call the widget.
void GiveName(QWidget& widget, const QString& name) {
    if (auto* const line = qobject_cast<TextLine*>(&widget)) {
        line->SetSpokenName(name);
    } else if (!name.isEmpty()) {  // to be given an empty one is an event, too
        widget.setAccessibleName(name);
    }
}

void Update(CellEdit& widget, const TextCell& before, const TextCell& now, const Look& look) {
    if (now.Locked != before.Locked) widget.SetLocked(now.Locked);
    if (now.Text != before.Text) widget.Show(ToQt(now.Text));
    if (now.BackColor != before.BackColor || now.ForeColor != before.ForeColor) {
        const bool as_laid_out = now.BackColor == kWindowBackground;
        Paint(widget, now.ForeColor == kWindowText ? look.fore : now.ForeColor,
              as_laid_out ? BackOf(look) : now.BackColor);
        widget.SetMarked(!as_laid_out && now.BackColor != look.back);
    }
    if (now.Visible != before.Visible) widget.setVisible(now.Visible);
}

void Update(ListBox& widget, const ComboBox& before, const ComboBox& now) {
    if (now.Locked != before.Locked) widget.SetLocked(now.Locked);
    if (now.Text != before.Text) widget.Show(ToQt(now.Text));
    if (now.Visible != before.Visible) widget.setVisible(now.Visible);
}

/// The size of the window at which a twip is a fifteenth of a pixel.
constexpr QSize kLayoutSize(825, 585);

/// Pixels per twip of a screen in a window of this size, its menu bar taken off.
double ScaleFor(const QSize& size) {
    constexpr double kTwipsPerPixel = 15;
    return std::min(static_cast<double>(size.width()) / kLayoutSize.width(),
                    static_cast<double>(size.height()) / kLayoutSize.height()) /
           kTwipsPerPixel;
}

}  // namespace

FirstSize FirstSizeOn(const QSize& room) {
    constexpr double kShare = 0.7;
    constexpr double kSmallest = 1.2;  // times the layout; below it small letters are hard to read
    const QSizeF largest = QSizeF(kLayoutSize).scaled(QSizeF(room), Qt::KeepAspectRatio);
    const QSize size = (largest * kShare).toSize();
    return {size, size.width() < kSmallest * kLayoutSize.width()};
}

Window::Window(ScreenChain& chain, WindowHost& host) : chain_(chain), host_(host) {
    resize(kLayoutSize);
    BuildScreen();
    timer_.setInterval(1);
    connect(&timer_, &QTimer::timeout, this, &Window::Tick);
    timer_.start();
}

void Window::Start() {
    const FirstSize first = FirstSizeOn(screen()->availableSize());
    resize(first.size);
    ScaleMenu();
    if (first.maximized)
        showMaximized();
    else
        show();
}

Window::~Window() = default;

void Window::Run(const std::function<void()>& handler) {
    if (running_) return;
    running_ = true;
    if (!Guard(handler)) return;
    running_ = false;
    if (&chain_.Current() == screen_)
        ShowChanges();
    else
        BuildScreen();
    if (std::exchange(screen_->LaidOutAnew, false)) FocusFirst();
    chain_.Settle();
}

bool Window::Guard(const std::function<void()>& handler) {
    try {
        if (handler) handler();
        return true;
    } catch (const ErrorEjecucion& error) {
        EndWith(error.what());
    } catch (const std::exception&) {
        EndWith("Error en tiempo de ejecución: error interno.");
    }
    return false;
}

void Window::EndWith(std::string_view message) {
    ShowChanges();
    host_.ShowError(message);
    host_.End(1);
}

void Window::closeEvent(QCloseEvent* event) {
    event->ignore();  // the process ends by the screen's own exit or not at all
    if (const MenuEntry* const exit = screen_->Exit()) Run(exit->Click);
}

void Window::BuildScreen() {
    bonds_ = std::make_unique<QObject>();
    // A list that stands open would hand its keys on to a menu bar that is gone.
    while (QWidget* const open = QApplication::activePopupWidget()) open->close();
    screen_ = &chain_.Current();
    setObjectName(ToQt(screen_->Name()));
    setWindowTitle(ToQt(screen_->Caption));
    BuildMenu();

    // The widgets being left may still be inside an event of theirs: they go when it is over.
    // What has the focus may be known to the window alone, which would keep it beyond its life.
    if (QWidget* const focused = focusWidget()) focused->clearFocus();
    QWidget* const left = takeCentralWidget();
    if (left != nullptr) {
        left->hide();
        left->setParent(nullptr);
        left->deleteLater();
    }
    canvas_ = new Canvas(*screen_, left != nullptr ? left->size() : QSize(), this);
    ListenToCells();
    shown_.clear();
    shown_.reserve(screen_->Controls().size());
    clock_ = nullptr;
    openings_ = 0;
    for (const Control& control : screen_->Controls()) AddWidget(control);
    SetTabOrder();
    setCentralWidget(canvas_);
    // Left to the toolkit, both would be shown after the first picture and painted once more.
    menu_->show();
    canvas_->show();
    FocusFirst();
}

void Window::AddWidget(const Control& control) {
    Shown& shown = shown_.emplace_back(control);
    shown.widget = MakeWidget(shown);
    shown.widget->setObjectName(ToQt(control.name));
    GiveName(*shown.widget, ToQt(control.spoken));
    if (!control.row.tool_tip.empty()) shown.widget->setToolTip(ToQt(control.row.tool_tip));
    canvas_->Place(*shown.widget, control.row);
    ShowChange(shown);
    const auto* const label = std::get_if<Label*>(&control.state);
    if (label != nullptr && *label == &screen_->Clock()) clock_ = &shown;
}

void Window::BuildMenu() {
    menu_ = new MenuBar(
        screen_->Menu(), [this](const std::function<void()>& handler) { Run(handler); }, *bonds_,
        this);
    if (isVisible()) ScaleMenu();  // until it is seen its size isn't known
    setMenuBar(menu_);
}

void Window::ScaleMenu() {
    constexpr Look kMenu{.points = 9};
    const double scale = ScaleFor(size());
    menu_->SetFont(FontOf(kMenu, scale));
    GrowDialogs(scale);
}

void Window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    ScaleMenu();
    layout()->activate();  // the bar's new height is in the very next picture, not in the one after
}

void Window::keyPressEvent(QKeyEvent* event) {
    constexpr auto kNone = ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if ((event->modifiers() & kNone) != Qt::NoModifier) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
        case Qt::Key_F1:
            return host_.OpenGuide(screen_->GuideSection());
        case Qt::Key_F6:
            return FocusNewestButton();
        case Qt::Key_F10:
            return menu_->TakeKeyboard();
        case Qt::Key_F11:
            return setWindowState(windowState() ^ Qt::WindowFullScreen);
        case Qt::Key_Up:
            return FocusRow(-1);
        case Qt::Key_Down:
            return FocusRow(1);
        default:
            QMainWindow::keyPressEvent(event);
    }
}

QWidget* Window::MakeWidget(Shown& shown) {
    const Control& control = *shown.control;
    const Row& row = control.row;
    if (std::holds_alternative<TextCell*>(control.state)) return MakeCell(control);
    if (std::holds_alternative<ComboBox*>(control.state)) return MakeList(shown);
    if (std::holds_alternative<Button*>(control.state)) {
        auto* const button = new QPushButton(canvas_);
        SharePalette(*button);
        button->setAutoDefault(true);  // Enter presses it, as the space bar does
        Bind(*button, &QPushButton::clicked, [this, &control] { Run(control.events.Click); });
        return button;
    }
    if (std::holds_alternative<Label*>(control.state)) {
        constexpr int kTwoLines = 375;  // twips
        constexpr int kIndent = 2;      // pixels
        auto* const label = new QLabel(canvas_);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(AlignmentOf(row.look.align));
        if (row.look.align == Align::Left && row.look.back != Look::kTransparent) {
            label->setIndent(kIndent);
        }
        label->setWordWrap(row.box.height >= kTwoLines);
        label->setAutoFillBackground(row.look.back != Look::kTransparent);
        Paint(*label, row.look.fore, row.look.back);
        return label;
    }
    return new Splash(ToQt(std::get<Picture>(control.state).drawing), canvas_);
}

void Window::ListenToCells() {
    cells_ = new CellSignals(canvas_);
    Bind(*cells_, &CellSignals::KeyPressed,
         [this](const CellEdit& cell, KeyCode key, bool& passes) {
             const Control& control = *ShownBy(cell).control;
             if (control.events.KeyPress) Filter(control, key, passes);
         });
    Bind(*cells_, &CellSignals::Typed, [this](const CellEdit& cell, const QString& text) {
        Shown& shown = ShownBy(cell);
        auto& state = *std::get<TextCell*>(shown.control->state);
        state.Text = text.toStdString();
        std::get<TextCell>(shown.state).Text = state.Text;
    });
    Bind(*cells_, &CellSignals::DoubleClicked, [this](const CellEdit& cell) {
        const Events& events = ShownBy(cell).control->events;
        if (events.DblClick) Run(events.DblClick);
    });
    Bind(*cells_, &CellSignals::Refused, [this] { host_.Beep(); });
    Bind(*cells_, &CellSignals::TableWanted, [this] { CopyTable(); });
}

Window::Shown& Window::ShownBy(const QWidget& widget) {
    return *std::ranges::find(shown_, &widget, &Shown::widget);
}

QWidget* Window::MakeCell(const Control& control) {
    const Events& events = control.events;
    const bool free = events.free_text || !events.KeyPress;
    auto* const cell =
        new CellEdit(free ? CellEdit::Entry::Free : CellEdit::Entry::Filtered, *cells_, canvas_);
    cell->setAlignment(AlignmentOf(control.row.look.align));
    const Look& look = control.row.look;
    if (look.fore != kWindowText || BackOf(look) != kWindowBackground) {
        Paint(*cell, look.fore, BackOf(look));
    }
    if (control.row.tab == kNoTab) cell->setFocusPolicy(Qt::NoFocus);
    if (control.row.in_table) cell->SetInTable();
    return cell;
}

QWidget* Window::MakeList(Shown& shown) {
    const Control& control = *shown.control;
    QStringList items;
    for (const std::string_view item : control.row.items) items << ToQt(item);
    auto* const list = new ListBox(items, canvas_);
    SharePalette(*list);
    if (control.events.KeyPress) {
        Bind(*list, &ListBox::KeyPressed, [this, &control](KeyCode key) {
            bool ignored = false;
            Filter(control, key, ignored);
        });
    }
    Bind(*list, &QComboBox::activated, [this, &shown, list](int item) {
        auto& state = *std::get<ComboBox*>(shown.control->state);
        auto& seen = std::get<ComboBox>(shown.state);
        seen.Text = shown.control->row.items[static_cast<std::size_t>(item)];
        list->Show(ToQt(seen.Text));
        if (!state.Locked && state.Visible) {
            state.Text = seen.Text;
            Run(shown.control->events.Click);
        } else {
            ShowChanges();
        }
    });
    return list;
}

void Window::Filter(const Control& control, KeyCode key, bool& passes) {
    passes = false;
    Run([&] {
        control.events.KeyPress(key);
        passes = key != kKeyRefused;
    });
}

void Window::SetTabOrder() {
    std::vector<const Shown*> order;
    for (const Shown& shown : shown_) {
        if (shown.control->row.tab != kNoTab) order.push_back(&shown);
    }
    std::ranges::stable_sort(order, {}, [](const Shown* s) { return s->control->row.tab; });
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1]->widget, order[i]->widget);
    }
}

void Window::FocusFirst() {
    const Shown* first = nullptr;
    for (const Shown& shown : shown_) {
        if (!shown.CanTakeFocus()) continue;
        if (first == nullptr || shown.control->row.tab < first->control->row.tab) first = &shown;
    }
    if (first != nullptr) first->widget->setFocus(Qt::OtherFocusReason);
}

/// Of buttons that opened at the same time, the newest is the last in the screen's table.
void Window::FocusNewestButton() {
    const auto newest = std::ranges::max_element(shown_, {}, &Shown::opened);
    if (newest != shown_.end() && newest->opened > 0) newest->widget->setFocus();
}

/// Gives the focus to the nearest cell of the same column above (-1) or below (1).
void Window::FocusRow(int step) {
    const auto here = std::ranges::find(shown_, focusWidget(), &Shown::widget);
    if (here == shown_.end() || !std::holds_alternative<TextCell>(here->state)) return;
    const Box& from = here->control->row.box;
    const auto distance = [&](const Shown& shown) {
        return (shown.control->row.box.top - from.top) * step;
    };
    const Shown* nearest = nullptr;
    for (const Shown& shown : shown_) {
        if (!std::holds_alternative<TextCell>(shown.state) || !shown.CanTakeFocus()) continue;
        if (shown.control->row.box.left != from.left || distance(shown) <= 0) continue;
        if (nearest == nullptr || distance(shown) < distance(*nearest)) nearest = &shown;
    }
    if (nearest == nullptr) return;
    nearest->widget->setFocus(step < 0 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
}

/// Hands the table that is seen to the clipboard, headings included: a line for each line of
/// controls, a tab between them.
void Window::CopyTable() const {
    std::map<int, std::map<int, QString>> lines;  // by top and left
    for (const Shown& shown : shown_) {
        const Row& row = shown.control->row;
        if (row.in_table && !shown.widget->isHidden()) {
            lines[row.box.top][row.box.left] = shown.Text().replace(u'\t', u' ');
        }
    }
    QString table;
    for (const auto& [top, texts] : lines) {
        QStringList line;
        for (const auto& [left, text] : texts) line << text;
        table += line.join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(table);
}

void Window::ShowChanges() {
    const QString title = ToQt(screen_->Caption);
    if (title != windowTitle()) setWindowTitle(title);
    for (Shown& shown : shown_) ShowChange(shown);
}

void Window::ShowChange(Shown& shown) {
    const auto show = [&shown](auto* control, auto& widget, const auto&... look) {
        using Data = std::decay_t<decltype(*control)>;
        auto& seen = std::get<Data>(shown.state);
        if (seen == *control) return;
        Update(widget, seen, *control, look...);
        seen = *control;
    };
    const Control::State& state = shown.control->state;
    if (const auto* cell = std::get_if<TextCell*>(&state)) {
        show(*cell, static_cast<CellEdit&>(*shown.widget), shown.control->row.look);
    } else if (const auto* list = std::get_if<ComboBox*>(&state)) {
        show(*list, static_cast<ListBox&>(*shown.widget));
    } else if (const auto* label = std::get_if<Label*>(&state)) {
        show(*label, static_cast<QLabel&>(*shown.widget));
    } else if (const auto* button = std::get_if<Button*>(&state)) {
        show(*button, static_cast<QPushButton&>(*shown.widget));
        if (!shown.CanTakeFocus())
            shown.opened = 0;
        else if (shown.opened == 0)
            shown.opened = ++openings_;
    }
}

void Window::Tick() {
    // Behind a box, too, while a handler runs; and of all controls it shows the clock alone.
    if (Guard([this] { screen_->Timer1_Timer(); }) && clock_ != nullptr) ShowChange(*clock_);
}

std::vector<QString> Window::CutTexts() const {
    std::vector<QString> texts;
    for (const Shown& shown : shown_) {
        const auto* line = qobject_cast<const TextLine*>(shown.widget);
        const auto* const list = qobject_cast<const ListBox*>(shown.widget);
        if (list != nullptr) line = &list->Line();
        if (line == nullptr || shown.widget->isHidden() || !line->IsTooNarrow()) continue;
        texts.push_back(ToQt(shown.control->spoken) + QStringLiteral(": ") + line->text());
    }
    return texts;
}

void Window::PaintScreen(QPainter& painter, const QRectF& target) {
    const QRect source = canvas_->ScreenRect();
    const double factor =
        std::min(target.width() / source.width(), target.height() / source.height());
    // Recorded first: painted straight on a printer, widgets would come out as a bitmap.
    QPicture record;
    QPainter recorder(&record);
    canvas_->render(&recorder, QPoint(), QRegion(source),
                    QWidget::DrawWindowBackground | QWidget::DrawChildren);
    recorder.end();
    painter.save();
    painter.translate(target.left() + (target.width() - source.width() * factor) / 2,
                      target.top() + (target.height() - source.height() * factor) / 2);
    // The canvas paints its edges beyond the screen, where the window is of another shape.
    painter.setClipRect(QRectF(0, 0, source.width() * factor, source.height() * factor));
    // A record is played back by inches, not by pixels: its own scaling is taken off.
    painter.scale(factor * record.logicalDpiX() / painter.device()->logicalDpiX(),
                  factor * record.logicalDpiY() / painter.device()->logicalDpiY());
    painter.drawPicture(0, 0, record);
    painter.restore();
}

}  // namespace velmora
