#include "toolkit/Stage.h"

#include "platform/Message.h"
#include "platform/Settings.h"
#include "platform/Wait.h"
#include "toolkit/Canvas.h"
#include "toolkit/Form.h"
#include "toolkit/MessagePanel.h"
#include "toolkit/Place.h"
#include "toolkit/StageGround.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kSection = QStringLiteral("Window");
const QString kPlaceKey = QStringLiteral("Place");
const QString kFullKey = QStringLiteral("FullScreen");

Stage* gStage = nullptr;

QString Setting(const QString& key) {
    return platform::ReadSetting(kApplication, kSection, key, QString());
}

std::vector<QRect> AvailableScreens() {
    std::vector<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back(screen->availableGeometry());
    return screens;
}

int ShowMessagePanel(const platform::Message& message) { return MessagePanel(message).Ask(); }

} // namespace

Stage& Stage::Get() {
    if (gStage == nullptr) {
        gStage = new Stage;
        qAddPostRoutine([] { delete std::exchange(gStage, nullptr); });
    }
    return *gStage;
}

Stage::Stage() : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), mArea(new QWidget(this)) {
    setObjectName(QStringLiteral("Stage"));
    setWindowTitle(QStringLiteral("Songrush"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    for (QWidget* ground : {static_cast<QWidget*>(this), mArea})
        ground->setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setGeometry(StartPlace(PlaceFromText(Setting(kPlaceKey)), AvailableScreens()));
    AddKeys();
    LayOut();
    platform::SetMessageBox(ShowMessagePanel);
}

void Stage::AddKeys() {
    const auto add = [this](QKeyCombination keys, auto act) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    for (const auto key : {Qt::Key_Plus, Qt::Key_Equal}) // the same key on many keyboards
        add(Qt::CTRL | key, [this] { StepSize(1); });
    add(Qt::CTRL | Qt::Key_Minus, [this] { StepSize(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] { SetSize(0); });
    for (const QKeyCombination keys :
         {QKeyCombination(Qt::Key_F11), Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter})
        add(keys, [this] { SetFullScreen(!isFullScreen()); });
}

void Stage::Appear() {
    if (!isVisible()) {
        show();
        SetFullScreen(Setting(kFullKey) == QStringLiteral("1"));
    }
    if (!isActiveWindow() && !isMinimized())
        activateWindow();
}

QSize Stage::AvailableSize() const { return screen()->availableSize(); }

std::vector<int> Stage::Sizes() const { return SizesThatFit(AvailableSize()); }

int Stage::Size() const { return static_cast<int>(std::lround(StageScale() * 100)); }

void Stage::SetSize(int percent) {
    SetFullScreen(false);
    const int chosen = percent == 0 ? ComfortableSize(AvailableSize()) : percent;
    QRect place(QPoint(0, 0), WindowSizeOf(chosen));
    place.moveCenter(geometry().center());
    setGeometry(StartPlace(place, {screen()->availableGeometry()}));
}

void Stage::StepSize(int direction) {
    const std::vector<int> sizes = Sizes();
    const auto larger = std::ranges::upper_bound(sizes, Size());
    const auto notSmaller = std::ranges::lower_bound(sizes, Size());
    if (direction > 0 && larger != sizes.end())
        SetSize(*larger);
    if (direction < 0 && notSmaller != sizes.begin())
        SetSize(*std::prev(notSmaller));
}

void Stage::SetFullScreen(bool full) {
    if (full == isFullScreen())
        return;
    if (full)
        mWindowed = geometry();
    full ? showFullScreen() : showNormal();
    constexpr int kManagersTime = 200; // milliseconds
    QTimer::singleShot(kManagersTime, this, [this] { MakeGeometryFit(); });
}

/// Does what a window manager would do, if there is none.
void Stage::MakeGeometryFit() {
    const bool fills = size() == screen()->size();
    if (isFullScreen() && !fills)
        windowHandle()->setGeometry(screen()->geometry());
    else if (!isFullScreen() && fills)
        setGeometry(mWindowed);
}

void Stage::Remember() const {
    platform::WriteSetting(kApplication, kSection, kPlaceKey,
                           TextFromPlace(isFullScreen() ? mWindowed : geometry()));
    platform::WriteSetting(kApplication, kSection, kFullKey,
                           isFullScreen() ? QStringLiteral("1") : QStringLiteral("0"));
}

/// Qt calls a plain widget the client area of a window; screen readers look for windows.
QAccessibleInterface* Stage::NewInterface() {
    return new QAccessibleWidget(this, QAccessible::Window);
}

bool Stage::event(QEvent* event) {
    // Not every system gives the keyboard focus back to the window below a dialog.
    if (event->type() == QEvent::WindowUnblocked && isVisible())
        activateWindow();
    return QWidget::event(event);
}

void Stage::LayOut() {
    const double scale =
        std::min(double(width()) / kStageSize.width(), double(height()) / kStageSize.height());
    QRect area(QPoint(0, 0), (QSizeF(kStageSize) * scale).toSize());
    area.moveTopLeft(QPoint((width() - area.width()) / 2, (height() - area.height()) / 2));
    mArea->setGeometry(area);
    if (scale != StageScale())
        Rescale(*mArea, scale);
    CheckDensity();
    update();
    Q_EMIT SizeChanged();
}

void Stage::CheckDensity() {
    const double ratio = StageScale() * devicePixelRatioF();
    if (Canvas::Ratio() == ratio)
        return;
    Canvas::SetRatio(ratio);
    update();
    mArea->update();
}

void Stage::paintEvent(QPaintEvent*) {
    CheckDensity();
    QPainter painter(this);
    PaintGround(painter, rect(), mArea->geometry());
}

void Stage::resizeEvent(QResizeEvent*) { LayOut(); }

void Stage::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        Q_EMIT SizeChanged();
    QWidget::changeEvent(event);
}

void Stage::closeEvent(QCloseEvent* event) {
    if (platform::Quitting())
        return;
    event->ignore();
    if (Form* form = mForms.Current())
        Q_EMIT form->CloseRequested();
}

void Stage::mousePressEvent(QMouseEvent* event) { mGrip.Press(*event); }

void Stage::mouseMoveEvent(QMouseEvent* event) { mGrip.Move(*event); }

void Stage::mouseReleaseEvent(QMouseEvent*) { mGrip.Release(); }

void Stage::enterEvent(QEnterEvent*) { mGrip.Enter(); }

} // namespace toolkit
