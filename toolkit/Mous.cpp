#include "toolkit/Mous.h"

#include "toolkit/Form.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <functional>

namespace toolkit {

namespace {

/// Calls `move` with how far the mouse has moved since the start, until the button is released.
class Drag : public QObject {
public:
    explicit Drag(std::function<void(QPoint)> move) : mMove(std::move(move)) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseMove)
            mMove(QCursor::pos() - mGrip);
        else if (event->type() == QEvent::MouseButtonRelease)
            deleteLater();
        return false;
    }

private:
    std::function<void(QPoint)> mMove;
    QPoint mGrip = QCursor::pos();
};

/// Within `end`, and never before the beginning.
int Within(int at, int end) { return std::clamp(at, 0, std::max(end, 0)); }

QRect Resized(QRect window, Qt::Edges edges, QPoint way) {
    if (edges.testFlag(Qt::LeftEdge))
        window.setLeft(window.left() + way.x());
    if (edges.testFlag(Qt::TopEdge))
        window.setTop(window.top() + way.y());
    if (edges.testFlag(Qt::RightEdge))
        window.setRight(window.right() + way.x());
    if (edges.testFlag(Qt::BottomEdge))
        window.setBottom(window.bottom() + way.y());
    return window;
}

} // namespace

void DragForm(Form* form) {
    if (form->FillsStage())
        return DragWindow(*form->window());
    const QPoint spare(kStageSize.width() - form->Width(), kStageSize.height() - form->Height());
    new Drag([form = QPointer(form), from = PlaceOf(*form).topLeft(), spare](QPoint way) {
        const QPoint to = from + ToLogical(way).toPoint();
        if (form)
            form->MoveTo(QPoint(Within(to.x(), spare.x()), Within(to.y(), spare.y())));
    });
}

void SetTopMost(Form* form, bool onTop) {
    form->SetLayer(onTop ? Form::Layer::OnTop : Form::Layer::Screens);
    form->MoveTo(QPoint(0, 0));
}

void DragWindow(QWidget& window, Qt::Edges edges) {
    QWindow* handle = window.windowHandle();
    if (handle == nullptr || (edges ? handle->startSystemResize(edges) : handle->startSystemMove()))
        return;
    // The window manager cannot do it, or there is none.
    new Drag([window = QPointer(&window), from = window.geometry(), edges](QPoint way) {
        if (!window)
            return;
        if (edges)
            window->setGeometry(Resized(from, edges, way));
        else
            window->move(from.topLeft() + way);
    });
}

int CursorX() { return QCursor::pos().x(); }

int CursorY() { return QCursor::pos().y(); }

} // namespace toolkit
