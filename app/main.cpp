#include "app/Start.h"
#include "platform/ProgramFolder.h"
#include "platform/Restart.h"
#include "platform/Wait.h"
#include "platform/WindowSize.h"
#include "toolkit/Canvas.h"
#include "toolkit/Form.h"
#include "toolkit/Picture.h"
#include "toolkit/Style.h"

#include <QApplication>
#include <QTimer>

namespace {

int RunProgram(int argc, char* argv[]) {
    platform::ApplyWindowSize();
    QApplication application(argc, argv);
    if (!platform::CheckWindowSize(toolkit::kScreenSize))
        return 0;
    toolkit::Form::SetPlace(platform::StartPlace());
    // Between two screens there is a moment without any window.
    QApplication::setQuitOnLastWindowClosed(false);
    toolkit::Canvas::SetRatio(application.devicePixelRatio());
    // Loads the menu's font and pictures while the rest of the program starts.
    toolkit::PreloadFont();
    toolkit::PreloadPictures(QStringLiteral("Images\\Back.bmp"),
                             {QStringLiteral("Images\\X.bmp"), QStringLiteral("Images\\bMin.bmp"),
                              QStringLiteral("Images\\bSingle.bmp"),
                              QStringLiteral("Images\\bMulti.bmp"),
                              QStringLiteral("Images\\bEditor.bmp")});
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
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const int status = RunProgram(argc, argv);
    if (platform::NewStartWanted())
        platform::Restart(argv);
    return status;
}
