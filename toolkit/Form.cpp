#include "toolkit/Form.h"

#include "platform/Volume.h"
#include "toolkit/CrossFade.h"
#include "toolkit/CutPath.h"
#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"
#include "toolkit/Mous.h"
#include "toolkit/Presses.h"
#include "toolkit/Stage.h"
#include "toolkit/VolumeKeys.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <climits>
#include <optional>
#include <vector>

namespace toolkit {

namespace {

class AccessibleForm : public QAccessibleWidget {
public:
    explicit AccessibleForm(Form* form) : QAccessibleWidget(form) {}
    QAccessible::Role role() const override {
        const auto* form = static_cast<Form*>(widget());
        if (form->GetLayer() == Form::Layer::Messages)
            return QAccessible::AlertMessage;
        return form->FillsStage() ? QAccessible::Client : QAccessible::Dialog;
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? widget()->windowTitle() : QAccessibleWidget::text(kind);
    }
};

bool TakesFocus(const QWidget& control, const QWidget& form) {
    return control.isVisibleTo(&form) && control.isEnabledTo(&form) && !control.isWindow() &&
           (control.focusPolicy() & Qt::TabFocus) != 0;
}

/// How far `to` lies from `from` in the direction of an arrow key; nothing if it does not lie
/// there.
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

QWidget* Neighbour(const std::vector<QWidget*>& controls, const QWidget& control, int key) {
    QWidget* nearest = nullptr;
    int shortest = INT_MAX;
    for (QWidget* other : controls) {
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
    : QWidget(&Stage::Get().Area()), mCanvas(size.width(), size.height()) {
    setObjectName(name);
    setWindowTitle(QStringLiteral("Songrush"));
    MoveTo(QPoint(0, 0));
    setAttribute(Qt::WA_OpaquePaintEvent, FillsStage());
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    hide(); // until it is wanted, though the stage may be shown
    mAnnouncer = new Announcer(this);
    WatchPresses();
}

Form::~Form() { Stage::Get().Forms().Leave(*this); }

void Form::MoveTo(QPoint place) { Put(*this, QRect(place, QSize(Width(), Height()))); }

void Form::ShowInPlace() {
    const QSize spare = kStageSize - QSize(Width(), Height());
    MoveTo(QPoint(spare.width() / 2, spare.height() / 2));
    Appear();
}

void Form::Appear() {
    Stage::Get().Forms().Enter(*this);
    show();
    Stage::Get().Appear();
    PlaceFocus();
}

void Form::Minimise() { window()->showMinimized(); }

void Form::PlaceFocus() {
    if (QWidget* first = FirstControl())
        first->setFocus();
    else
        setFocus();
}

void Form::ResumeFocus() {
    QWidget* last = mBlockedFocus ? mBlockedFocus.data() : focusWidget();
    if (last != nullptr && last->isVisibleTo(this))
        last->setFocus();
    else
        PlaceFocus();
}

void Form::SetBlocked(bool blocked) {
    if (blocked && isEnabled())
        mBlockedFocus = focusWidget();
    setEnabled(!blocked);
}

QWidget* Form::FirstControl() {
    const std::vector<QWidget*> controls = FocusControls();
    return controls.empty() || IsOfFrame(controls.front()) ? nullptr : controls.front();
}

std::vector<QWidget*> Form::FocusControls() {
    std::vector<QWidget*> controls;
    for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain())
        if (isAncestorOf(next) && TakesFocus(*next, *this))
            controls.push_back(next);
    std::stable_partition(controls.begin(), controls.end(),
                          [this](QWidget* each) { return !IsOfFrame(each); });
    return controls;
}

QAccessibleInterface* Form::NewInterface() { return new AccessibleForm(this); }

/// Whole screens follow each other with a cross-fade.
void Form::setVisible(bool visible) {
    if (FillsStage() && visible == isHidden())
        CrossFade::Begin(Stage::Get().Area());
    QWidget::setVisible(visible);
}

bool Form::event(QEvent* event) {
    const bool known = QWidget::event(event);
    // Sent when controls were shown or hidden.
    if (event->type() == QEvent::LayoutRequest && isVisible())
        HandFocusOn();
    return known;
}

void Form::hideEvent(QHideEvent* event) {
    mDragStart.Release();
    if (!event->spontaneous())
        Stage::Get().Forms().Leave(*this);
}

void Form::HandFocusOn() {
    const bool nowhere = focusWidget() == nullptr || focusWidget() == this;
    // Players who use the mouse are left alone.
    if (!nowhere || LastInput() == Input::Mouse)
        return;
    if (QWidget* first = FirstControl())
        first->setFocus();
}

void Form::paintEvent(QPaintEvent* event) {
    Stage::Get().CheckDensity(); // the stage does not paint what a form covers
    QPainter painter(this);
    painter.setClipRegion(event->region());
    if (FillsStage())
        mCanvas.Show(painter);
    else
        mCanvas.Show(painter, CutPath(rect(), kPanelCut * StageScale()));
}

void Form::mousePressEvent(QMouseEvent* event) {
    if (FillsStage())
        return event->ignore();        // the press is for the stage's window
    Stage::Get().Forms().Enter(*this); // in front
    if (event->button() == Qt::LeftButton)
        mDragStart.Press(event->globalPosition());
}

void Form::mouseMoveEvent(QMouseEvent* event) {
    if (FillsStage())
        return event->ignore();
    if (event->buttons().testFlag(Qt::LeftButton) && mDragStart.Begins(event->globalPosition()))
        DragForm(this);
}

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
    case Qt::Key_F6:
        Stage::Get().Forms().FocusNext();
        return;
    default:
        if (ChangeVolume(*event))
            Announce(QStringLiteral("Volume: ") + platform::Volume::Get().Words());
        else
            QWidget::keyPressEvent(event);
    }
}

void Form::MoveFocus(int key) {
    const QWidget* control = focusWidget();
    QWidget* neighbour =
        control != nullptr && control != this ? Neighbour(FocusControls(), *control, key) : nullptr;
    if (neighbour == nullptr)
        focusNextPrevChild(key == Qt::Key_Down || key == Qt::Key_Right);
    else if (!ShowFocus())
        neighbour->setFocus(Qt::TabFocusReason);
}

bool Form::focusNextPrevChild(bool next) {
    const std::vector<QWidget*> controls = FocusControls();
    if (ShowFocus() || controls.empty() || !isVisible())
        return true;
    const auto count = static_cast<std::ptrdiff_t>(controls.size());
    const auto now = std::ranges::find(controls, focusWidget()) - controls.begin();
    // Without a focus so far, to the first or the last.
    const auto to = now == count ? (next ? 0 : count - 1) : (now + (next ? 1 : count - 1)) % count;
    controls[static_cast<std::size_t>(to)]->setFocus(next ? Qt::TabFocusReason
                                                          : Qt::BacktabFocusReason);
    return true;
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
