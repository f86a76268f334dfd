#include "toolkit/Mous.h"

#include <QCursor>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace toolkit {

namespace {

/// Moves a window by hand, for systems whose window manager does not.
class Drag : public QObject {
public:
    explicit Drag(QWidget* form) : QObject(form), mForm(form), mGrip(QCursor::pos() - form->pos()) {
        form->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove)
            mForm->move(static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - mGrip);
        else if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::Hide)
            deleteLater();
        return false;
    }

private:
    QWidget* mForm;
    QPoint mGrip;
};

} // namespace

void DragForm(QWidget* form) {
    QWindow* window = form->windowHandle();
    if (window == nullptr || !window->startSystemMove())
        new Drag(form);
}

void SetTopMost(QWidget* form, bool onTop) {
    const bool visible = form->isVisible();
    form->setWindowFlag(Qt::WindowStaysOnTopHint, onTop); // hides the window
    form->move(0, 0);
    form->setVisible(visible);
}

int CursorX() { return QCursor::pos().x(); }

int CursorY() { return QCursor::pos().y(); }

} // namespace toolkit
