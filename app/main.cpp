#include "app/Start.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"
#include "toolkit/Canvas.h"
#include "toolkit/Style.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    // Between two screens no window is open.
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::Canvas::SetRatio(application.devicePixelRatio());
    toolkit::ApplyStyle(application);
    const platform::QuitWatch quitWatch;
    // Inside the event loop, so that the system's requests to quit are heard.
    QTimer::singleShot(0, &application, [] {
        Start::Run();
        QApplication::exit(0);
    });
    return QApplication::exec();
}
