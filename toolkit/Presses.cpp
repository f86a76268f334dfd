#include "toolkit/Presses.h"

#include "toolkit/Form.h"
#include "toolkit/PictureBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBasicTimer>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QWindow>
#include <map>
#include <memory>

namespace toolkit {

namespace {

Input gLast = Input::None;

/// A key or a button of the mouse.
struct Source {
    QEvent::Type press; // tells keys from buttons
    quint64 number;
    auto operator<=>(const Source&) const = default;
};

Source SourceOf(const QKeyEvent& event) {
    // With Shift, one key may be pressed as "1" and released as "!".
    const quint32 place = event.nativeScanCode();
    const auto key = static_cast<quint64>(event.key());
    return {QEvent::KeyPress, place != 0 ? quint64{place} << 32 : key};
}

Source SourceOf(const QMouseEvent& event) {
    return {QEvent::MouseButtonPress, static_cast<quint64>(event.button())};
}

/// Whether what is typed there has its repeats: letters, and Backspace.
bool TakesText(const QWidget* control) {
    const auto* box = qobject_cast<const PictureBox*>(control);
    return qobject_cast<const QLineEdit*>(control) != nullptr ||
           qobject_cast<const QAbstractItemView*>(control) != nullptr ||
           (box != nullptr && !box->IsButton());
}

/// Whether a key presses something, rather than moves or types.
bool IsPress(const QKeyEvent& event) {
    const QWidget* control = QApplication::focusWidget();
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Delete:
        return qobject_cast<const QLineEdit*>(control) == nullptr;
    default:
        return !TakesText(control);
    }
}

bool IsCommand(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

bool ChangesWhatIsShown(const QObject& object, const QEvent& event) {
    return !event.spontaneous() &&
           (qobject_cast<const Form*>(&object) || qobject_cast<const PictureBox*>(&object) ||
            qobject_cast<const QDialog*>(&object));
}

/// Sees every event before it reaches a window, and what is shown and hidden.
class Watch : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            gLast = Input::Keys;
        else if (event->type() == QEvent::MouseButtonPress)
            gLast = Input::Mouse;
        else if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            mChanges += ChangesWhatIsShown(*object, *event);
        return object->isWindowType() && event != mReleasing &&
               LeavesOut(static_cast<QWindow&>(*object), *event);
    }

private:
    struct Press {
        bool held = false;
        bool counts = true;
        bool repeats = false;
        quint64 time = 0; // milliseconds, by the system's clock
        int changes = 0;  // of what is shown, before it
    };

    bool LeavesOut(QWindow& window, QEvent& event) {
        switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: // follows the press
            return !Note(static_cast<QMouseEvent&>(event), false).counts;
        case QEvent::MouseButtonRelease:
            return !Release(SourceOf(static_cast<QMouseEvent&>(event)));
        case QEvent::ShortcutOverride: // precedes the press
        case QEvent::KeyPress:
            return LeavesOutKey(static_cast<QKeyEvent&>(event));
        case QEvent::KeyRelease:
            return HoldBack(window, static_cast<QKeyEvent&>(event));
        default:
            return false;
        }
    }

    bool LeavesOutKey(QKeyEvent& event) {
        const Press& press = Note(event, Repeats(event));
        const bool shortcut = event.type() == QEvent::ShortcutOverride;
        const bool idle = press.repeats || (IsCommand(event) && !shortcut);
        if (press.counts && !(idle && IsPress(event)))
            return false;
        event.accept(); // so that no shortcut is looked for
        return true;
    }

    /// What is to be known of a press; of one press there may be two events.
    template <typename Event> const Press& Note(const Event& event, bool repeats) {
        const auto [entry, isFirst] = mPresses.try_emplace(SourceOf(event));
        Press& press = entry->second;
        if (press.held && press.time == event.timestamp())
            return press;
        const auto interval =
            static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
        const bool soon = repeats || (!isFirst && event.timestamp() - press.time < interval);
        press.counts = press.changes == mChanges || !soon;
        if (press.counts)
            press.changes = mChanges;
        press.repeats = repeats;
        press.held = true;
        press.time = event.timestamp();
        return press;
    }

    /// Whether the press counted.
    bool Release(Source source) {
        Press& press = mPresses[source];
        press.held = false;
        return press.counts;
    }

    bool Repeats(const QKeyEvent& event) {
        // X reports a repeating key as released and pressed at the same time, and Qt recognises
        // that only if both events have arrived when it looks.
        const bool sameKey = mRelease && SourceOf(*mRelease) == SourceOf(event);
        const bool again = sameKey && mRelease->timestamp() == event.timestamp();
        if (again)
            ForgetRelease();
        else if (sameKey)
            PassRelease();
        return again || event.isAutoRepeat();
    }

    /// Keeps a release until it is sure that the key does not just repeat.
    bool HoldBack(QWindow& window, const QKeyEvent& event) {
        constexpr int kRepeatsWithin = 30; // milliseconds
        PassRelease();
        if (!event.isAutoRepeat()) {
            mWindow = &window;
            mRelease.reset(event.clone());
            mTimer.start(kRepeatsWithin, this);
        }
        return true;
    }

    void timerEvent(QTimerEvent*) override { PassRelease(); }

    void PassRelease() {
        mTimer.stop();
        const std::unique_ptr<QKeyEvent> release = std::move(mRelease);
        if (!release || !Release(SourceOf(*release)) || !mWindow)
            return;
        mReleasing = release.get();
        QCoreApplication::sendEvent(mWindow, release.get());
        mReleasing = nullptr;
    }

    void ForgetRelease() {
        mTimer.stop();
        mRelease.reset();
    }

    std::map<Source, Press> mPresses;
    int mChanges = 0;                    // of what is shown
    std::unique_ptr<QKeyEvent> mRelease; // held back
    QPointer<QWindow> mWindow;           // that it is for
    QBasicTimer mTimer;
    const QEvent* mReleasing = nullptr;
};

} // namespace

Input LastInput() { return gLast; }

void WatchPresses() {
    [[maybe_unused]] static const bool watching = [] {
        auto* application = QCoreApplication::instance();
        application->installEventFilter(new Watch(application));
        return true;
    }();
}

} // namespace toolkit
