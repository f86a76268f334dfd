#include "toolkit/Form.h"

#include "platform/Message.h"
#include "platform/Wait.h"
#include "toolkit/ApiDraw.h"
#include "toolkit/FittedText.h"
#include "toolkit/Mous.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

namespace toolkit {

namespace {

QPoint gPlace; // where the last whole screen stood

} // namespace

Form::Form(const QString& name, const QSize& size)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), mCanvas(size.width(), size.height()) {
    setObjectName(name);
    setWindowTitle(QStringLiteral("Songrush"));
    setFixedSize(size);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
}

void Form::ShowInPlace() {
    platform::SetDialogPlace(QRect(gPlace, kScreenSize));
    const QSize spare = kScreenSize - size();
    move(gPlace + QPoint(spare.width() / 2, spare.height() / 2));
    // Before any event runs: what was typed ahead is not for the window behind it.
    if (isModal())
        show();
    // A window that is shown again before the system has hidden it misses that it has the focus.
    QGuiApplication::sync();
    show();
    raise();
    activateWindow();
    setFocus();
}

void Form::SetPlace(QPoint place) { gPlace = place; }

void Form::MoveToCorner() {
    gPlace = QPoint(0, 0);
    move(gPlace);
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
        focusPreviousChild();
        return;
    case Qt::Key_Down:
    case Qt::Key_Right:
        focusNextChild();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void CenteredText(Hdc dc, const QString& text, double center, double y, double width,
                  ColorRef color, double shadowOffset) {
    const QFont own = dc->Font();
    const FittedText fitted = FitText(text, own, width);
    const double full = dc->TextHeight();
    dc->SetFont(fitted.font);
    const double lower = (full - dc->TextHeight()) / 2; // a smaller line keeps to the middle
    BeginDraw(dc, Qt::SolidLine, kWhite, 1, kBlack, BkMode::Transparent);
    ShadowText(fitted.text, color, kBlack, static_cast<float>(center - fitted.width / 2),
               static_cast<float>(y + lower), static_cast<float>(shadowOffset));
    EndDraw();
    dc->SetFont(own);
}

} // namespace toolkit
