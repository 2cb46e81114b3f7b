// record_drawings FOLDER SVG...: writes the strokes that each drawing takes into FOLDER, as a file
// of the same name that ends in ".pic". Played they give its pixels, but for the shade of an edge
// that lies between two of them.

#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPicture>
#include <QSvgRenderer>

#include <cstdlib>

namespace {

bool Record(const QString& drawing, const QString& file) {
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid()) return false;
    const QRect whole(QPoint(), renderer.defaultSize());
    QPicture strokes;
    strokes.setBoundingRect(whole);  // of what is recorded it would be that of the strokes
    QPainter painter(&strokes);
    renderer.render(&painter, whole);
    painter.end();
    return strokes.save(file);
}

}  // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    for (qsizetype i = 2; i < words.size(); ++i) {
        const QString name = QFileInfo(words[i]).completeBaseName();
        if (!Record(words[i], words[1] + QLatin1Char('/') + name + QStringLiteral(".pic"))) {
            qCritical("%s: not recorded", qPrintable(words[i]));
            return EXIT_FAILURE;
        }
    }
}
