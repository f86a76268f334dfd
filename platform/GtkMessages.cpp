#include "platform/GtkMessages.h"

#include "platform/System.h"

#ifdef SONGRUSH_POSIX
#include <dlfcn.h>
#endif

namespace platform {

#ifdef SONGRUSH_POSIX

namespace {

/// Laid out like GTK's `GList`.
struct Windows {
    void* window;
    Windows* next;
};

template <typename Function> Function* Find(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

} // namespace

void CloseGtkMessages() {
    // Only if Qt has loaded it: the program itself does not need GTK.
    void* gtk = dlopen("libgtk-3.so.0", RTLD_LAZY | RTLD_NOLOAD);
    if (gtk == nullptr)
        return;
    auto* list = Find<Windows*()>(gtk, "gtk_window_list_toplevels");
    auto* isModal = Find<int(void*)>(gtk, "gtk_window_get_modal");
    auto* close = Find<void(void*)>(gtk, "gtk_window_close");
    auto* free = Find<void(Windows*)>(gtk, "g_list_free");
    if (list != nullptr && isModal != nullptr && close != nullptr && free != nullptr) {
        Windows* const all = list();
        for (const Windows* each = all; each != nullptr; each = each->next)
            if (isModal(each->window) != 0)
                close(each->window);
        free(all);
    }
    dlclose(gtk);
}

#else

void CloseGtkMessages() {}

#endif

} // namespace platform
