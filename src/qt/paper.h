#pragma once

#include <QRectF>
#include <QString>

#include <vector>

class QPainter;
class QPrinter;

namespace velmora {

/// What stands on a printed page beside the screen's image, each text on one line.
struct Imprint {
    QString company;
    QString code;     ///< of the evaluation
    QString caption;  ///< of the window
    QString program;  ///< with its version
    QString time;
    std::vector<QString> cut;  ///< texts that the image shows cut, in full, each with its name
};

/// The title of a print job and of a PDF.
QString TitleOf(const Imprint& imprint);

/// Paints the imprint in the page's margin, above the image and under it, and gives the place of
/// the image: as large as the printer's page rectangle lets it, in the middle. It is smaller only
/// where the cut texts need more room than the margin has; they get up to a fifth of the page, and
/// what doesn't fit there is counted. A text of more than 400 characters is cut with its length
/// told, a company too long for its line stands among the cut ones.
QRectF PaintImprint(QPainter& painter, const QPrinter& printer, const Imprint& imprint,
                    double shape_of_image);

}  // namespace velmora
