// What the program's start is compared with: a window of its size with nothing in it.

#include <QApplication>
#include <QWidget>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(800, 600);
    window.show();
    return QApplication::exec();
}
