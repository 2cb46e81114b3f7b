#include "support/qt_tests.h"

int main(int argc, char* argv[]) {
    // What the toolkit says of a print without a printer.
    return velmora::test::RunQtTests(argc, argv,
                                     QStringLiteral("QPainter::begin(): Returned false"));
}
