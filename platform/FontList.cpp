#include "platform/FontList.h"

#include <QLibrary>
#include <thread>

namespace platform {

// Qt takes the thread of its first object for the main one, so the library object is created here.
void PreloadFontList() {
    QLibrary fontconfig(QStringLiteral("fontconfig"), 1);
    fontconfig.setLoadHints(QLibrary::PreventUnloadHint);
    using Init = int (*)();
    if (const auto init = reinterpret_cast<Init>(fontconfig.resolve("FcInit")))
        std::thread(init).detach();
}

} // namespace platform
