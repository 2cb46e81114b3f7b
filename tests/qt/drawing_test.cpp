#include "qt/drawing.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "support/qt_tests.h"

namespace velmora {
namespace {

class DrawingTest : public testing::TestWithParam<std::string> {};

/// What a painter leaves on a white ground.
template <typename Paint>
QImage Painted(const QSize& size, const Paint& paint) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter);
    return image;
}

/// Of a colour of a pixel, 0 to 255.
int LargestDifference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (qsizetype i = 0; i < one.sizeInBytes(); ++i) {
        largest = std::max(largest, std::abs(one.constBits()[i] - other.constBits()[i]));
    }
    return largest;
}

TEST_P(DrawingTest, ItsStrokesGiveThePixelsOfItsSource) {
    constexpr int kRounded = 3;  // where an edge between two shades isn't on a pixel's
    const QString name = QString::fromStdString(GetParam());
    QSvgRenderer source(QStringLiteral(ASSETS "/%1.svg").arg(name));
    ASSERT_TRUE(source.isValid());
    for (const double scale : {0.25, 1.0, 1.85}) {
        const QSize size = source.defaultSize() * scale;
        const QRect whole(QPoint(), size);
        const QImage played =
            Painted(size, [&](QPainter& painter) { Drawing(name).Draw(painter, whole); });
        const QImage drawn =
            Painted(size, [&](QPainter& painter) { source.render(&painter, whole); });
        EXPECT_LE(LargestDifference(played, drawn), kRounded) << scale;
    }
}

TEST_P(DrawingTest, OnADenserDisplayItIsAsSharpAsOneOfTwiceTheSize) {
    Drawing drawing(QString::fromStdString(GetParam()));
    const QSize size(200, 150);
    QImage dense(2 * size, QImage::Format_ARGB32_Premultiplied);
    dense.fill(Qt::white);
    dense.setDevicePixelRatio(2);
    QPainter painter(&dense);
    drawing.Draw(painter, QRect(QPoint(), size));
    painter.end();
    const QImage twice =
        Painted(2 * size, [&](QPainter& large) { drawing.Draw(large, QRect(QPoint(), 2 * size)); });
    EXPECT_EQ(LargestDifference(dense, twice), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, DrawingTest,
                         testing::Values("splash", "velmora", "fondo2", "fondo3", "fondo4",
                                         "fondo5", "fondo6"),
                         [](const auto& drawing) { return drawing.param; });

}  // namespace
}  // namespace velmora

int main(int argc, char* argv[]) { return velmora::test::RunQtTests(argc, argv); }
