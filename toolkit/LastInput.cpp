#include "toolkit/LastInput.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace toolkit {

namespace {

Input gLast = Input::None;

struct Release {
    int key = 0;
    quint64 time = 0; // milliseconds of the system's clock; 0 if it sends none
};
Release gLastRelease;

class Watch : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyRelease) {
            const auto& release = static_cast<const QKeyEvent&>(*event);
            gLastRelease = {release.key(), release.timestamp()};
        }
        if (event->type() == QEvent::KeyPress)
            gLast = Input::Keys;
        else if (event->type() == QEvent::MouseButtonPress)
            gLast = Input::Mouse;
        return false;
    }
};

} // namespace

Input LastInput() { return gLast; }

bool IsRepeat(const QKeyEvent& press) {
    // X reports a repeating key as released and pressed at the same time. Qt recognises that only
    // if both events have arrived when it looks.
    const bool atOnce = gLastRelease.time != 0 && press.timestamp() == gLastRelease.time &&
                        press.key() == gLastRelease.key;
    return press.isAutoRepeat() || atOnce;
}

void WatchInput() {
    [[maybe_unused]] static const bool watching = [] {
        auto* application = QCoreApplication::instance();
        application->installEventFilter(new Watch(application));
        return true;
    }();
}

} // namespace toolkit
