#include "toolkit/Presses.h"

#include "toolkit/Form.h"
#include "toolkit/PictureBox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBasicTimer>
#include <QDialog>
#include <QElapsedTimer>
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

/// A key or a button of the mouse. Each press of a key comes twice, for a shortcut first. While a
/// screen reader listens, Qt may send a copy as well, which lacks the time.
struct Source {
    QEvent::Type press;
    quint64 number;
    bool timed;
    auto operator<=>(const Source&) const = default;
};

Source SourceOf(const QKeyEvent& event) {
    // With Shift, one key may be pressed as "1" and released as "!".
    const quint32 place = event.nativeScanCode();
    const auto key = static_cast<quint64>(event.key());
    const bool release = event.type() == QEvent::KeyRelease;
    return {release ? QEvent::KeyPress : event.type(), place != 0 ? quint64{place} << 32 : key,
            event.timestamp() != 0};
}

Source SourceOf(const QMouseEvent& event) {
    return {QEvent::MouseButtonPress, static_cast<quint64>(event.button()), true};
}

bool SameKey(const QKeyEvent& one, const QKeyEvent& other) {
    return SourceOf(one).number == SourceOf(other).number;
}

/// Whether a held key repeats there: letters, and Backspace.
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

/// Whether what is shown changes when it comes or goes.
bool IsShown(const QObject& object) {
    return qobject_cast<const Form*>(&object) || qobject_cast<const PictureBox*>(&object) ||
           qobject_cast<const QDialog*>(&object);
}

QPointF PlaceOfPress(const QMouseEvent& event) { return event.globalPosition(); }
QPointF PlaceOfPress(const QKeyEvent&) { return {}; }

/// Whether a press is close enough to be the second half of a double click.
template <typename Event> bool IsNear(QPointF first, const Event& second) {
    return (PlaceOfPress(second) - first).manhattanLength() <=
           QGuiApplication::styleHints()->mouseDoubleClickDistance();
}

/// Sees every event before it reaches a window, and what is shown and hidden.
class Watch : public QObject {
public:
    explicit Watch(QObject* parent) : QObject(parent) { mClock.start(); }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::KeyPress)
            gLast = Input::Keys;
        else if (event->type() == QEvent::MouseButtonPress)
            gLast = Input::Mouse;
        else if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            mChanges += IsShown(*object);
        return object->isWindowType() && event != mReleasing &&
               LeavesOut(static_cast<QWindow&>(*object), *event);
    }

private:
    struct Press {
        bool counts = true;
        bool presses = true;
        quint64 time = 0; // milliseconds, by the system's clock
        int changes = 0;  // of what is shown, before it
        QPointF at;       // on the screen; of a button of the mouse
    };

    bool LeavesOut(QWindow& window, QEvent& event) {
        switch (event.type()) {
        case QEvent::MouseButtonPress:
            return !Counts(static_cast<QMouseEvent&>(event), true, false);
        case QEvent::MouseButtonDblClick: // follows the press
        case QEvent::MouseButtonRelease:
            return !mPresses[SourceOf(static_cast<QMouseEvent&>(event))].counts;
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
            return LeavesOutKey(static_cast<QKeyEvent&>(event));
        case QEvent::KeyRelease:
            return HoldBack(window, static_cast<QKeyEvent&>(event));
        default:
            return false;
        }
    }

    bool LeavesOutKey(QKeyEvent& event) {
        const bool shortcut = event.type() == QEvent::ShortcutOverride;
        const bool repeats = event.isAutoRepeat() || IsReleased(event);
        if (!shortcut && mRelease && SameKey(*mRelease, event))
            repeats ? ForgetRelease() : PassRelease();
        const bool idle = repeats || (IsCommand(event) && !shortcut);
        const bool presses = IsPress(event);
        if (Counts(event, presses, repeats) && !(idle && presses))
            return false;
        event.accept(); // so that no shortcut is looked for
        return true;
    }

    /// Whether the press belongs to what is shown, rather than to what was shown before.
    template <typename Event> bool Counts(const Event& event, bool presses, bool repeats) {
        const quint64 time = event.timestamp() != 0 ? event.timestamp() : Now();
        const auto interval =
            static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
        const auto [entry, isFirst] = mPresses.try_emplace(SourceOf(event));
        Press& press = entry->second;
        // A key that has just pressed something does not type into what came up.
        const bool again = (presses || press.presses) && !isFirst && time - press.time < interval &&
                           IsNear(press.at, event);
        const bool goesOn = repeats || again;
        press.counts = press.changes == mChanges || !goesOn;
        if (press.counts) {
            press.changes = mChanges;
            press.presses = presses;
        }
        press.time = time;
        press.at = PlaceOfPress(event);
        return press.counts;
    }

    quint64 Now() const { return static_cast<quint64>(mClock.elapsed()); }

    /// Whether the key was released at the very time of this press, which is how X reports a
    /// repeat. Qt recognises that only if both events have arrived when it looks.
    bool IsReleased(const QKeyEvent& press) const {
        return mRelease && SameKey(*mRelease, press) && mRelease->timestamp() == press.timestamp();
    }

    /// Keeps a release until it is certain that the key is not just repeating.
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
        if (!release || !mPresses[SourceOf(*release)].counts || !mWindow)
            return;
        mReleasing = release.get();
        QCoreApplication::sendEvent(mWindow, release.get());
        mReleasing = nullptr;
    }

    void ForgetRelease() {
        mTimer.stop();
        mRelease.reset();
    }

    QElapsedTimer mClock;
    std::map<Source, Press> mPresses;    // the last ones
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
