#include "platform/FontList.h"

#include <QLibrary>
#include <thread>

namespace platform {

void PreloadFontList() {
    std::thread([] {
        QLibrary fontconfig(QStringLiteral("fontconfig"), 1);
        fontconfig.setLoadHints(QLibrary::PreventUnloadHint);
        using Init = int (*)();
        if (const auto init = reinterpret_cast<Init>(fontconfig.resolve("FcInit")))
            init();
    }).detach();
}

} // namespace platform
