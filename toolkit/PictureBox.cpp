#include "toolkit/PictureBox.h"

#include "toolkit/CutPath.h"
#include "toolkit/Palette.h"
#include "toolkit/PlainFace.h"
#include "toolkit/Presses.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>
#include <utility>

namespace toolkit {

namespace {

/// Presents a box to screen readers as a button that they can press, or else as what it shows.
class AccessibleBox : public QAccessibleWidget {
public:
    explicit AccessibleBox(PictureBox* box) : QAccessibleWidget(box) {}

    // A box may become a button after a screen reader has asked for it.
    QAccessible::Role role() const override {
        if (Box()->IsButton())
            return QAccessible::Button;
        return Box()->Text().isEmpty() ? QAccessible::Graphic : QAccessible::StaticText;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && !Box()->Text().isEmpty()
                   ? Box()->Text()
                   : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (Box()->IsButton())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& action) override {
        // Queued, because the screen reader waits for the call to return, and a dialog may open.
        if (action == pressAction())
            QMetaObject::invokeMethod(Box(), &PictureBox::Activate, Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(action);
    }

private:
    PictureBox* Box() const { return static_cast<PictureBox*>(widget()); }
};

/// The pixel that contains the point. Rounding would give a box's last half pixel to its neighbour.
QPoint PixelAt(QPointF point) { return QPoint(qFloor(point.x()), qFloor(point.y())); }

} // namespace

PictureBox::PictureBox(QWidget* parent, const QString& name, const QSize& size)
    : QWidget(parent), mCanvas(size.width(), size.height()) {
    setObjectName(name);
    MoveTo(0, 0);
    setMouseTracking(true);
    setCursor(Qt::ArrowCursor);
}

QAccessibleInterface* PictureBox::NewInterface() {
    return mInterface ? mInterface() : new AccessibleBox(this);
}

void PictureBox::SetBoxSize(const QSize& size) {
    const QFont font = mCanvas.Font();
    mCanvas = Canvas(size.width(), size.height());
    mCanvas.SetFont(font);
    MoveTo(Place().x(), Place().y());
}

void PictureBox::SetButton(double radius) {
    mButton = true;
    mFocusRadius = radius;
    setFocusPolicy(Qt::StrongFocus);
}

void PictureBox::SetPlainButton() {
    SetButton(0);
    mIsPlain = true;
}

void PictureBox::Activate() {
    if (TakesInput())
        Q_EMIT Activated();
}

bool PictureBox::TakesInput() const {
    return isVisible() && isEnabled() && QApplication::activeModalWidget() == nullptr;
}

void PictureBox::setVisible(bool visible) {
    // Otherwise Qt would move the focus to the next button; the form decides which control gets it.
    if (!visible && hasFocus())
        parentWidget()->setFocus();
    QWidget::setVisible(visible);
}

void PictureBox::hideEvent(QHideEvent*) {
    mPointer.reset();
    LetKeyGo();
    TellPointer();
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    mCanvas.Show(painter);
    if (!mFocusShown)
        return;
    painter.scale(StageScale(), StageScale());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(kGold), 2));
    if (mIsPlain)
        painter.drawPath(CutPath(FocusFrame(), CutOf(FocusFrame())));
    else
        painter.drawRoundedRect(FocusFrame(), mFocusRadius, mFocusRadius);
}

/// The frame of a button in the form's corner stays open towards the edges, as the button does.
QRectF PictureBox::FocusFrame() const {
    QRectF frame = QRectF(0, 0, Width(), Height()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (Place().y() == 0)
        frame.setTop(-2 * mFocusRadius);
    if (Place().right() == PlaceOf(*parentWidget()).width() - 1)
        frame.setRight(Width() + 2 * mFocusRadius);
    return frame;
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    const QPointF at = ToLogical(event->position());
    Q_EMIT MouseDown(at.x(), at.y());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF at = ToLogical(event->position());
    Q_EMIT MouseUp(at.x(), at.y());
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = ToLogical(event->position());
    // A point exactly on the far edge still counts as inside.
    const bool outside = at.x() < 0 || at.y() < 0 || at.x() > Width() || at.y() > Height() ||
                         QApplication::widgetAt(PixelAt(event->globalPosition())) != this;
    mPointer = outside ? std::nullopt : std::optional(at);
    TellPointer();
}

void PictureBox::leaveEvent(QEvent*) {
    mPointer.reset();
    TellPointer();
}

void PictureBox::TellPointer() {
    if (mHeldKey != 0)
        return;
    if (mPointer)
        Q_EMIT MouseMoved(mPointer->x(), mPointer->y());
    else
        Q_EMIT MouseOutside();
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                         event->key() == Qt::Key_Space;
    if (!mButton || !presses) {
        event->ignore();
        return;
    }
    HoldKey(event->key());
    Activate();
}

void PictureBox::HoldKey(int key) {
    if (!TakesInput())
        return;
    mHeldKey = key;
    Q_EMIT KeyDown();
    repaint(); // now, because what `Activated` does may take a while
}

void PictureBox::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == mHeldKey)
        LetKeyGo();
    else
        event->ignore();
}

void PictureBox::LetKeyGo() {
    if (std::exchange(mHeldKey, 0) == 0)
        return;
    Q_EMIT KeyUp();
    TellPointer();
}

bool PictureBox::ShowFocus() {
    if (mFocusShown || !hasFocus())
        return false;
    mFocusShown = true;
    update();
    return true;
}

void PictureBox::focusInEvent(QFocusEvent*) {
    // Only for those who use the keyboard; a click needs no frame.
    mFocusShown = LastInput() == Input::Keys;
    update();
}

void PictureBox::focusOutEvent(QFocusEvent*) {
    mFocusShown = false;
    LetKeyGo();
    update();
}

} // namespace toolkit
