#include "app/Start.h"
#include "platform/Aside.h"
#include "platform/Wait.h"
#include "toolkit/Style.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdlib>

int main(int argc, char* argv[]) {
    toolkit::PreloadFontSettings();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::PreloadFont();
    toolkit::ApplyStyle();
    toolkit::WriteNumbersInEnglish();
    const platform::QuitWatch quitWatch;
    // After the first screen, which need not wait for it.
    QTimer::singleShot(100, &application, toolkit::SetProgramIcon);
    // Inside the event loop, so that the system's requests to quit are heard.
    QTimer::singleShot(0, &application, [] {
        Start::Run();
        QApplication::exit(0);
    });
    const int status = QApplication::exec();
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
    QGuiApplication::sync();
    // Marks may still be written. A disk or a sound device that hangs must not keep the process.
    if (!platform::AsidesEnd(std::chrono::milliseconds(1500)))
        std::_Exit(status);
    return status;
}
