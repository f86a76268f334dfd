#include "audio/AlsaMessages.h"

#ifdef __linux__
#include <dlfcn.h>
#endif

namespace audio {

#ifdef __linux__

namespace {
void Ignore(const char*, int, const char*, int, const char*, ...) {}
} // namespace

void SilenceAlsaMessages() {
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    // Only asked for where SDL has it already: the program itself does not depend on ALSA.
    void* library = dlopen("libasound.so.2", RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr)
        return;
    if (auto* set = reinterpret_cast<SetHandler>(dlsym(library, "snd_lib_error_set_handler")))
        set(Ignore);
    dlclose(library);
}

#else

void SilenceAlsaMessages() {}

#endif

} // namespace audio
