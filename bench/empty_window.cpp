// What the start and the memory of the program are measured against: an empty window of the same
// toolkit, of the width and height that the arguments tell; a third one is a text that it shows.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    const QStringList arguments = QApplication::arguments();
    window.resize(arguments.value(1).toInt(), arguments.value(2).toInt());
    if (arguments.size() > 3) window.setCentralWidget(new QLabel(arguments.at(3)));
    window.show();
    return QApplication::exec();
}
