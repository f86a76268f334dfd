#include "toolkit/PictureBox.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>
#include <cmath>

namespace toolkit {

namespace {

/// Tells screen readers that a box is a button, and lets them press it.
class AccessibleBox : public QAccessibleWidget {
public:
    explicit AccessibleBox(PictureBox* box) : QAccessibleWidget(box) {}

    // A box may become a button after a screen reader has come to know it.
    QAccessible::Role role() const override {
        return Box()->IsButton() ? QAccessible::Button : QAccessible::Graphic;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (Box()->IsButton())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& action) override {
        if (action == pressAction())
            Box()->Activate();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    PictureBox* Box() const { return static_cast<PictureBox*>(widget()); }
};

/// The pixel that holds the point; rounded, the last half pixel of a box would be its neighbour's.
QPoint PixelAt(QPointF point) { return QPoint(qFloor(point.x()), qFloor(point.y())); }

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* box = qobject_cast<PictureBox*>(object);
    return box != nullptr ? new AccessibleBox(box) : nullptr;
}

} // namespace

PictureBox::PictureBox(QWidget* parent, const QString& name, const QSize& size)
    : QWidget(parent), mCanvas(size.width(), size.height()) {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(MakeAccessible);
        return true;
    }();
    setObjectName(name);
    setFixedSize(size);
    setMouseTracking(true);
    // At a fractional ratio the form is seen where the box ends within a pixel of the screen.
    setAttribute(Qt::WA_OpaquePaintEvent, Canvas::Ratio() == std::floor(Canvas::Ratio()));
}

void PictureBox::SetBoxSize(const QSize& size) {
    const QFont font = mCanvas.Font();
    mCanvas = Canvas(size.width(), size.height());
    mCanvas.SetFont(font);
    setFixedSize(size);
}

void PictureBox::SetButton(double radius) {
    mButton = true;
    mFocusRadius = radius;
    setFocusPolicy(Qt::StrongFocus);
}

void PictureBox::Activate() {
    if (TakesInput())
        Q_EMIT Activated();
}

bool PictureBox::TakesInput() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return isVisible() && isEnabled() && (modal == nullptr || modal == window());
}

void PictureBox::setVisible(bool visible) {
    // Otherwise Qt would hand the focus to the next button, and a second press of the key that hid
    // this one would press that.
    if (!visible && hasFocus())
        window()->setFocus();
    QWidget::setVisible(visible);
}

void PictureBox::hideEvent(QHideEvent*) { Q_EMIT MouseOutside(); }

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    mCanvas.Show(painter);
    if (!mFocusShown)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 221, 120), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), mFocusRadius,
                            mFocusRadius);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    Q_EMIT MouseDown(event->position().x(), event->position().y());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    Q_EMIT MouseUp(event->position().x(), event->position().y());
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    // A point exactly on the far edge still counts as inside.
    const bool outside = at.x() < 0 || at.y() < 0 || at.x() > width() || at.y() > height() ||
                         QApplication::widgetAt(PixelAt(event->globalPosition())) != this;
    if (outside)
        Q_EMIT MouseOutside();
    else
        Q_EMIT MouseMoved(at.x(), at.y());
}

void PictureBox::leaveEvent(QEvent*) { Q_EMIT MouseOutside(); }

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                         event->key() == Qt::Key_Space;
    if (mButton && presses && !event->isAutoRepeat())
        Activate();
    else
        event->ignore();
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    // Shown to those who use the keyboard; a click needs no frame.
    mFocusShown = event->reason() == Qt::TabFocusReason ||
                  event->reason() == Qt::BacktabFocusReason ||
                  event->reason() == Qt::ShortcutFocusReason;
    update();
}

void PictureBox::focusOutEvent(QFocusEvent*) {
    mFocusShown = false;
    update();
}

} // namespace toolkit
