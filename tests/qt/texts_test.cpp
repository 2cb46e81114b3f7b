// What a text may be, and how it is read out part by part: whatever stands in a file is text.

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QToolTip>

#include "qt/local_time.h"
#include "qt/text.h"
#include "qt/window_test.h"

namespace velmora::test {
namespace {

constexpr std::array kBoundaries = {QAccessible::CharBoundary,      QAccessible::WordBoundary,
                                    QAccessible::SentenceBoundary,  QAccessible::LineBoundary,
                                    QAccessible::ParagraphBoundary, QAccessible::NoBoundary};

class TextTest : public WindowTest {
protected:
    TextTest() { Open(ScreenId::Form2); }

    QAccessibleTextInterface& Spoken(const QString& text) {
        auto& cell = robot.Find<QLineEdit>("Text1(1)");
        cell.setText(text);
        return *QAccessible::queryAccessibleInterface(&cell)->textInterface();
    }

    /// The part before, at and after the offset, as "before|at|after".
    static std::string Parts(const QAccessibleTextInterface& spoken, int offset,
                             QAccessible::TextBoundaryType boundary) {
        int begin = 0;
        int end = 0;
        return (spoken.textBeforeOffset(offset, boundary, &begin, &end) + u'|' +
                spoken.textAtOffset(offset, boundary, &begin, &end) + u'|' +
                spoken.textAfterOffset(offset, boundary, &begin, &end))
            .toStdString();
    }
};

TEST_F(TextTest, TheWordsAroundTheCaretAreThoseOfTheText) {  // told apart by hand
    const QAccessibleTextInterface& spoken = Spoken(QStringLiteral("Acme 0.19"));
    EXPECT_EQ(Parts(spoken, 0, QAccessible::WordBoundary), "|Acme| ");
    EXPECT_EQ(Parts(spoken, 4, QAccessible::WordBoundary), "Acme| |0.19");
    EXPECT_EQ(Parts(spoken, 6, QAccessible::WordBoundary), " |0.19|");
    EXPECT_EQ(Parts(spoken, 9, QAccessible::WordBoundary), " |0.19|") << "behind the last";
    EXPECT_EQ(Parts(spoken, 0, QAccessible::CharBoundary), "|A|c");
    EXPECT_EQ(Parts(spoken, 9, QAccessible::CharBoundary), "9||");
    EXPECT_EQ(Parts(spoken, 3, QAccessible::LineBoundary), "|Acme 0.19|");
}

TEST_F(TextTest, EveryQuestionAboutAPartEnds) {
    for (const char* const text : {"", " ", ".", "-", "---", "----", ".61", "0.19", "2026", "Acme",
                                   "Acme, S.A.", " blanco ", "añil. Otra.", "a\tb", "e\xCC\x81"}) {
        const QAccessibleTextInterface& spoken = Spoken(ToQt(text));
        const QString whole = ToQt(text);
        for (const auto boundary : kBoundaries) {
            for (int offset = -1; offset <= whole.size() + 1; ++offset) {
                int begin = 0;
                int end = 0;
                const QString part = spoken.textAtOffset(offset, boundary, &begin, &end);
                if (begin >= 0) {
                    EXPECT_LE(begin, offset) << text;
                    EXPECT_GE(end, offset) << text;
                    EXPECT_EQ(part, whole.mid(begin, end - begin)) << text;
                } else {
                    EXPECT_EQ(part, QString()) << text;
                }
                Parts(spoken, offset, boundary);
            }
        }
    }
}

TEST_F(TextTest, ALettersPlaceIsWhereItsInkIs) {
    const QAccessibleTextInterface& spoken = Spoken(QStringLiteral("    l    "));
    auto& cell = robot.Find<QLineEdit>("Text1(1)");
    cell.clearFocus();  // so that no blinking cursor is among the ink
    const QImage seen = cell.grab().toImage();
    const QRect letter = spoken.characterRect(4).adjusted(-1, 0, 1, 0);  // to a pixel
    int ink = 0;
    for (int x = 2; x < seen.width() - 2; ++x) {
        if (seen.pixelColor(x, seen.height() / 2).lightness() > 128) continue;
        ++ink;
        EXPECT_TRUE(letter.contains(cell.mapToGlobal(QPoint(x, seen.height() / 2)))) << x;
    }
    EXPECT_GT(ink, 0);
}

/// An image, named by a text as markup would.
class MarkupTest : public TextTest {
protected:
    MarkupTest() {
        QImage image(kSide, kSide, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(folder.filePath(QStringLiteral("i.png"))));
        markup = QStringLiteral("<img src='%1'>").arg(folder.filePath(QStringLiteral("i.png")));
    }

    static constexpr int kSide = 400;
    QTemporaryDir folder;
    QString markup;
};

TEST_F(MarkupTest, AToolTipShowsItAsText) {
    auto& cell = robot.Find<QLineEdit>("Text1(13)");
    markup += QString(100, u'x');  // longer than the cell is wide
    cell.setText(markup);
    QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), cell.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&cell, &event);
    EXPECT_EQ(QToolTip::text(), markup);
    int seen = 0;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        if (!widget->inherits("QTipLabel")) continue;
        ++seen;
        EXPECT_LT(widget->height(), kSide) << "the image is in it";
    }
    EXPECT_EQ(seen, 1);
    QToolTip::hideText();
}

TEST_F(MarkupTest, AToolTipIsShort) {
    auto& cell = robot.Find<QLineEdit>("Text1(13)");
    cell.setText(QString(60000, u'x'));
    QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), cell.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&cell, &event);
    EXPECT_EQ(QToolTip::text(), QString(160, u'x') + u'…');
    QToolTip::hideText();
}

TEST_F(MarkupTest, ABoxOfTheToolkitsOwnShowsItAsText) {
    QMessageBox box(QMessageBox::NoIcon, {}, markup);
    box.show();
    EXPECT_LT(box.height(), kSide);
    for (const QLabel* const label : box.findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
}

TEST_F(TextTest, TheTimeOfDayFollowsAChangedTimeZone) {
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", "UTC0");
    EXPECT_EQ(LocalTime(86400 * 365).tm_hour, 0);
    qputenv("TZ", "JST-9");  // nine hours east
    EXPECT_EQ(LocalTime(86400 * 365 + 1).tm_hour, 9);
    if (before.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", before);
    LocalTime(0);
}

}  // namespace
}  // namespace velmora::test
