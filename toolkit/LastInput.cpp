#include "toolkit/LastInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace toolkit {

namespace {

Input gLast = Input::None;

class Watch : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            gLast = Input::Keys;
        else if (event->type() == QEvent::MouseButtonPress)
            gLast = Input::Mouse;
        return false;
    }
};

} // namespace

Input LastInput() { return gLast; }

void WatchInput() {
    [[maybe_unused]] static const bool watching = [] {
        auto* application = QCoreApplication::instance();
        application->installEventFilter(new Watch(application));
        return true;
    }();
}

} // namespace toolkit
