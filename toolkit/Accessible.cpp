#include "toolkit/Accessible.h"

#include <QAccessible>

namespace toolkit {

Accessible::Accessible() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory([](const QString&, QObject* object) {
            auto* accessible = dynamic_cast<Accessible*>(object);
            return accessible != nullptr ? accessible->NewInterface() : nullptr;
        });
        return true;
    }();
}

} // namespace toolkit
