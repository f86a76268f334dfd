// What the program's start is compared with: a window of its size with nothing in it or, if there
// is an argument, with that text.

#include <QApplication>
#include <QLabel>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QLabel window(QApplication::arguments().value(1));
    window.setFont(QFont(QStringLiteral("Quicksand"), 20));
    window.setFixedSize(800, 600);
    window.show();
    return QApplication::exec();
}
