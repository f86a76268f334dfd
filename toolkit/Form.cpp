#include "toolkit/Form.h"

#include "platform/Message.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"
#include "toolkit/LastInput.h"
#include "toolkit/Mous.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <climits>
#include <optional>
#include <vector>

namespace toolkit {

namespace {

/// Qt calls a plain widget the client area of a window; screen readers look for windows.
class AccessibleForm : public QAccessibleWidget {
public:
    explicit AccessibleForm(Form* form) : QAccessibleWidget(form) {}
    QAccessible::Role role() const override {
        return widget()->isModal() ? QAccessible::Dialog : QAccessible::Window;
    }
};

QPoint gPlace; // where the last whole screen stood

bool TakesFocus(const QWidget& control, const QWidget& form) {
    return control.isVisibleTo(&form) && control.isEnabledTo(&form) && !control.isWindow() &&
           (control.focusPolicy() & Qt::TabFocus) != 0;
}

/// The form's controls in Tab order.
std::vector<QWidget*> FocusControls(QWidget& form) {
    std::vector<QWidget*> controls;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain())
        if (form.isAncestorOf(next) && TakesFocus(*next, form))
            controls.push_back(next);
    return controls;
}

/// How far `to` lies from `from` in the direction of an arrow key; nothing when it lies elsewhere.
std::optional<int> Way(const QRect& from, const QRect& to, int key) {
    const int left = from.left() - to.right();
    const int right = to.left() - from.right();
    const int up = from.top() - to.bottom();
    const int down = to.top() - from.bottom();
    const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const int aside = sideways ? std::max({0, up, down}) : std::max({0, left, right});
    const int ahead = key == Qt::Key_Left    ? left
                      : key == Qt::Key_Right ? right
                      : key == Qt::Key_Up    ? up
                                             : down;
    return ahead >= 0 && aside <= ahead ? std::optional(ahead + aside) : std::nullopt;
}

QWidget* Neighbour(QWidget& form, const QWidget& control, int key) {
    QWidget* nearest = nullptr;
    int shortest = INT_MAX;
    for (QWidget* other : FocusControls(form)) {
        const auto way = Way(control.geometry(), other->geometry(), key);
        if (other != &control && way && *way < shortest) {
            nearest = other;
            shortest = *way;
        }
    }
    return nearest;
}

} // namespace

Form::Form(const QString& name, const QSize& size)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), mCanvas(size.width(), size.height()) {
    setObjectName(name);
    setWindowTitle(QStringLiteral("Songrush"));
    setFixedSize(size);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    mAnnouncer = new Announcer(this);
    WatchInput();
}

void Form::ShowInPlace() {
    platform::SetDialogPlace([] { return QRect(gPlace, kScreenSize); });
    const QSize spare = kScreenSize - size();
    move(gPlace + QPoint(spare.width() / 2, spare.height() / 2));
    // Before any event runs: keys typed ahead are not meant for the window behind it.
    if (isModal())
        show();
    // A window that is shown again before the system has hidden it misses its focus event.
    QGuiApplication::sync();
    show();
    raise();
    activateWindow();
    TakeActivation();
    PlaceFocus();
}

/// A window that kept the system's focus while it was hidden and shown again gets no event for it,
/// and Qt takes it for inactive.
void Form::TakeActivation() {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    if (!isActiveWindow() && windowHandle() == QGuiApplication::focusWindow())
        QApplication::setActiveWindow(this);
    QT_WARNING_POP
}

void Form::PlaceFocus() {
    if (QWidget* first = FirstControl())
        first->setFocus();
    else
        setFocus();
}

QWidget* Form::FirstControl() {
    const std::vector<QWidget*> controls = FocusControls(*this);
    const auto first = std::find_if(controls.begin(), controls.end(),
                                    [this](QWidget* control) { return !IsOfFrame(control); });
    return first != controls.end() ? *first : nullptr;
}

void Form::SetPlace(QPoint place) { gPlace = place; }

void Form::MoveToCorner() {
    gPlace = QPoint(0, 0);
    move(gPlace);
}

QAccessibleInterface* Form::NewInterface() { return new AccessibleForm(this); }

bool Form::event(QEvent* event) {
    const bool known = QWidget::event(event);
    // Sent when controls were shown or hidden.
    if (event->type() == QEvent::LayoutRequest && isVisible())
        HandFocusOn();
    // Not every system gives the keyboard focus back to the window below a dialog.
    if (event->type() == QEvent::WindowUnblocked && isVisible())
        activateWindow();
    return known;
}

void Form::hideEvent(QHideEvent* event) {
    for (QWidget* other : QApplication::topLevelWidgets())
        if (!event->spontaneous() && other != this && other->isVisible() &&
            qobject_cast<Form*>(other) != nullptr)
            other->activateWindow();
}

void Form::HandFocusOn() {
    const bool nowhere = focusWidget() == nullptr || focusWidget() == this;
    // Players who use the mouse are left alone.
    if (!nowhere || LastInput() == Input::Mouse)
        return;
    QWidget* first = FirstControl();
    if (auto* box = qobject_cast<PictureBox*>(first))
        box->TakeFocusOver();
    else if (first != nullptr)
        first->setFocus();
}

void Form::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setClipRegion(event->region());
    mCanvas.Show(painter);
}

void Form::closeEvent(QCloseEvent* event) {
    if (platform::Quitting())
        return;
    event->ignore();
    Q_EMIT CloseRequested();
}

void Form::moveEvent(QMoveEvent* event) {
    if (isVisible() && size() == kScreenSize)
        gPlace = pos();
    QWidget::moveEvent(event);
}

void Form::mousePressEvent(QMouseEvent*) { DragForm(this); }

void Form::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        Q_EMIT CloseRequested();
        return;
    case Qt::Key_Up:
    case Qt::Key_Left:
    case Qt::Key_Down:
    case Qt::Key_Right:
        MoveFocus(event->key());
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Form::MoveFocus(int key) {
    const QWidget* control = focusWidget();
    QWidget* neighbour =
        control != nullptr && control != this ? Neighbour(*this, *control, key) : nullptr;
    if (neighbour == nullptr)
        focusNextPrevChild(key == Qt::Key_Down || key == Qt::Key_Right);
    else if (!ShowFocus())
        neighbour->setFocus(Qt::TabFocusReason);
}

bool Form::focusNextPrevChild(bool next) {
    return ShowFocus() || QWidget::focusNextPrevChild(next);
}

bool Form::ShowFocus() {
    auto* box = qobject_cast<PictureBox*>(focusWidget());
    return box != nullptr && box->ShowFocus();
}

void CenteredText(Hdc dc, const QString& text, double center, double y, double width,
                  ColorRef color, double shadowOffset) {
    const QFont own = dc->Font();
    const FittedText fitted = FitText(text, own, width);
    const double full = dc->TextHeight();
    dc->SetFont(fitted.font);
    const double lower = (full - dc->TextHeight()) / 2; // keeps a smaller font vertically centred
    Drawing(dc).Text(fitted.text, color, kBlack, center - fitted.width / 2, y + lower,
                     shadowOffset);
    dc->SetFont(own);
}

} // namespace toolkit
