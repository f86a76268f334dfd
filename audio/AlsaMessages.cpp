#include "audio/AlsaMessages.h"

#include <QLibrary>

namespace audio {

namespace {
void Ignore(const char*, int, const char*, int, const char*, ...) {}
} // namespace

void SilenceAlsaMessages() {
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    // The one that SDL uses; the program itself does not depend on ALSA.
    QLibrary library(QStringLiteral("asound"), 2);
    if (auto* set = reinterpret_cast<SetHandler>(library.resolve("snd_lib_error_set_handler")))
        set(Ignore);
}

} // namespace audio
