#include "editor/f_Player.h"

#include "audio/c_XAudio.h"
#include "platform/Motion.h"
#include "platform/Rounding.h"
#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"
#include "toolkit/Picture.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

using namespace toolkit;

namespace {

constexpr QSize kSize(300, 120);
constexpr QSize kButtonSize(34, 34);
constexpr QRect kStrip(12, 10, 234, 22);
constexpr int kInterval = 100; // milliseconds

constexpr int kTitleMargin = 4;
constexpr int kTitleShadow = 1;
constexpr int kTitleStep = 3;
constexpr Bevel kStripLook{Rgb(50, 50, 200), kNavy, Rgb(20, 20, 20)};
constexpr ColorRef kTitleColor = Rgb(50, 255, 50);
constexpr ColorRef kTitleShadowColor = Rgb(50, 100, 50);

// The marker's middle goes from one end of the picture's groove to the other.
constexpr QSize kMarker(8, 14);
constexpr int kLineStart = 176 - kMarker.width() / 2;
constexpr int kLineEnd = 284 - kMarker.width() / 2;
constexpr int kLineY = 57;
constexpr QRect kBar(162, 43, 136, 28); // what the marker and its glow may cover

constexpr QRect kTimes(172, 84, 116, 22);
constexpr QPoint kVolume(90, 85);
constexpr QRect kPressed(168, 44, 124, 26); // where the bar is pressed

QString Clock(double seconds) {
    const auto whole = static_cast<int>(std::max(seconds, 0.0));
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

/// The line up to the marker, and the marker in its glow.
void PaintBar(QPainter& painter, const QRectF& marker) {
    painter.setPen(QPen(QColor(52, 58, 140), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(kLineStart + 3, kLineY, kLineEnd + kMarker.width() - 3, kLineY);
    painter.setPen(QPen(QColor(0, 200, 255), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(kLineStart + 3, kLineY), marker.center());

    constexpr double kGlow = 13;
    QRadialGradient glow(marker.center(), kGlow);
    glow.setColorAt(0, QColor(255, 46, 154, 190));
    glow.setColorAt(1, QColor(255, 46, 154, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(marker.center(), kGlow, kGlow);

    QLinearGradient knob(marker.topLeft(), marker.bottomLeft());
    knob.setColorAt(0, QColor(255, 236, 248));
    knob.setColorAt(1, ToQColor(kPink));
    painter.setBrush(knob);
    painter.drawRoundedRect(marker, 3, 3);
}

} // namespace

f_Player::f_Player()
    : Form(QStringLiteral("f_Player"), kSize),
      pPlay(new PictureBox(this, QStringLiteral("pPlay"), kButtonSize)),
      pPause(new PictureBox(this, QStringLiteral("pPause"), kButtonSize)),
      pStop(new PictureBox(this, QStringLiteral("pStop"), kButtonSize)),
      pFF(new PictureBox(this, QStringLiteral("pFF"), kButtonSize)),
      pX(new PictureBox(this, QStringLiteral("pX"), QSize(44, 36))),
      pPrev(new PictureBox(this, QStringLiteral("pPrev"), kButtonSize)),
      pNext(new PictureBox(this, QStringLiteral("pNext"), kButtonSize)),
      pTitle(new PictureBox(this, QStringLiteral("pTitle"), kStrip.size())),
      pTimes(new PictureBox(this, QStringLiteral("pTimes"), kTimes.size())),
      pVolume(new VolumeBox(this)), mGround(kSize.width(), kSize.height()),
      mMarkerLeft(kLineStart) {
    constexpr int kButtonStep = 38;
    QPoint place(kStrip.x(), 40);
    for (PictureBox* button : {pPlay, pPause, pStop, pFF, pPrev, pNext}) {
        if (button == pPrev)
            place = QPoint(kStrip.x(), 80);
        button->MoveTo(place.x(), place.y());
        place.rx() += kButtonStep;
    }
    pX->MoveTo(kSize.width() - pX->Width(), 0);
    pTitle->MoveTo(kStrip.x(), kStrip.y());
    pTimes->MoveTo(kTimes.x(), kTimes.y());
    pVolume->MoveTo(kVolume.x(), kVolume.y());
    for (PictureBox* text : {pTitle, pTimes})
        text->setAttribute(Qt::WA_TransparentForMouseEvents); // the window is dragged by it, too
    pTimes->Dc()->SetFont(RoundFont(10));
    pTimes->setAccessibleName(QStringLiteral("Time"));
    pTitle->Dc()->SetFont(RoundFont(10));
    pPlay->setAccessibleName(QStringLiteral("Play"));
    pPause->setAccessibleName(QStringLiteral("Pause"));
    pStop->setAccessibleName(QStringLiteral("Stop"));
    pPrev->setAccessibleName(QStringLiteral("Previous song"));
    pNext->setAccessibleName(QStringLiteral("Next song"));
    pFF->setAccessibleName(QStringLiteral("Fast forward"));
    pX->setAccessibleName(QStringLiteral("Close"));

    mGround.SetPicture(kSize,
                       [] { return LoadGround(QStringLiteral("\\Images\\PlayBack.bmp"), kSize); });
    BitBlt(Dc(), 0, 0, kSize.width(), kSize.height(), &mGround, 0, 0, RasterOp::SrcCopy);
    DrawBar();
    DrawTitle();
    SetTimes(0, 0);
    PosTimer.setInterval(kInterval);
    connect(&PosTimer, &QTimer::timeout, this, &f_Player::PosTimer_Timer);
}

void f_Player::SetTitle(const QString& title) {
    mTitle = QString(title).replace(u'\n', u' ');
    setWindowTitle(mTitle);
    pTitle->SetText(mTitle);
    ResetTitle();
}

void f_Player::SetPos(float percentage) {
    const float part = std::clamp(percentage, 0.0F, 100.0F) / 100;
    const int left = platform::RoundHalfEven(kLineStart + (kLineEnd - kLineStart) * part);
    if (left == mMarkerLeft)
        return;
    mMarkerLeft = left;
    DrawBar();
}

void f_Player::SetTimes(double elapsed, double whole) {
    ShowTimes(Clock(elapsed) + QStringLiteral(" / ") + Clock(whole), kNightText);
}

void f_Player::ShowLoading() { ShowTimes(QStringLiteral("Loading..."), kWhite); }

void f_Player::ShowUnplayable() {
    const QString text = QStringLiteral("Cannot be played");
    ShowTimes(text, Rgb(255, 50, 50));
    Announce(mTitle + QStringLiteral(": ") + text);
}

void f_Player::ShowTimes(const QString& text, ColorRef color) {
    if (std::exchange(mTimes, text) == text)
        return;
    pTimes->SetText(text);
    CopyFormBehind(*pTimes);
    CenteredText(pTimes->Dc(), text, kTimes.width() / 2.0, 2, kTimes.width(), color, 1);
    pTimes->Refresh();
}

void f_Player::mousePressEvent(QMouseEvent* event) {
    if (!PressBar(*event))
        Form::mousePressEvent(event);
}

void f_Player::mouseMoveEvent(QMouseEvent* event) {
    if (!PressBar(*event))
        Form::mouseMoveEvent(event);
}

/// Whether the press, or drag, is on the bar, which then seeks.
bool f_Player::PressBar(const QMouseEvent& event) {
    const QPointF at = ToLogical(event.position());
    if (!event.buttons().testFlag(Qt::LeftButton) || !QRectF(kPressed).contains(at))
        return false;
    const double way = at.x() - kLineStart - kMarker.width() / 2.0;
    Q_EMIT SeekWanted(std::clamp(way / (kLineEnd - kLineStart), 0.0, 1.0));
    return true;
}

void f_Player::StopTimer() {
    PosTimer.stop();
    ResetTitle();
}

void f_Player::PosTimer_Timer() {
    const double length = Audio().Length();
    const double position = Audio().Position();
    SetPos(length > 0 ? static_cast<float>(position / length * 100) : 0);
    if (length > 0)
        SetTimes(position, length);
    ScrollTitle();
    if (position >= length)
        StopTimer();
}

void f_Player::ResetTitle() {
    const int width = static_cast<int>(std::ceil(pTitle->Dc()->TextWidth(mTitle))) + kTitleShadow;
    const int spare = pTitle->Width() - width;
    mTitleScrolls = spare < 2 * kTitleMargin;
    mTitleOffset = mTitleScrolls ? kTitleMargin : spare / 2;
    mTitleLimit = -width;
    mLeapTicks = 0;
    DrawTitle();
}

void f_Player::ScrollTitle() {
    if (!mTitleScrolls)
        return;
    if (platform::MotionReduced())
        return LeapTitle();
    mTitleOffset -= kTitleStep;
    if (mTitleOffset < mTitleLimit)
        mTitleOffset = pTitle->Width();
    DrawTitle();
}

void f_Player::LeapTitle() {
    constexpr int kTicksToRead = 30;
    constexpr int kOverlap = 50; // so that a word that was cut off is shown whole
    if (++mLeapTicks < kTicksToRead)
        return;
    mLeapTicks = 0;
    mTitleOffset -= pTitle->Width() - kOverlap;
    if (mTitleOffset - kOverlap < mTitleLimit)
        mTitleOffset = kTitleMargin;
    DrawTitle();
}

void f_Player::DrawTitle() {
    const QRect strip(0, 0, pTitle->Width(), pTitle->Height());
    Drawing drawing(pTitle->Dc());
    drawing.Box(kStripLook, strip);
    drawing.SetClip(strip.adjusted(1, 1, -1, -1));
    const double top = (strip.height() - pTitle->Dc()->TextHeight()) / 2;
    drawing.Text(mTitle, kTitleColor, kTitleShadowColor, mTitleOffset, top, kTitleShadow);
    pTitle->Refresh();
}

void f_Player::DrawBar() {
    BitBlt(Dc(), kBar.x(), kBar.y(), kBar.width(), kBar.height(), &mGround, kBar.x(), kBar.y(),
           RasterOp::SrcCopy);
    const QRectF marker(mMarkerLeft, kLineY - kMarker.height() / 2.0, kMarker.width(),
                        kMarker.height());
    Drawing(Dc()).Shapes(kBar, [marker](QPainter& painter) { PaintBar(painter, marker); });
    Refresh(kBar);
}
