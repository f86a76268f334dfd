#include "game/f_Multi.h"

#include "audio/Output.h"
#include "audio/c_XAudio.h"
#include "game/PlayerColor.h"
#include "platform/Keyboard.h"
#include "platform/Time.h"
#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

using namespace toolkit;

namespace {

constexpr int kCenter = 400;
constexpr int kMargin = 10;
constexpr QRect kScore(570, 84, 220, 38);
constexpr QRect kStake(570, 122, 220, 24);
constexpr QRect kTurn(190, 504, 420, 48); // below the choices
constexpr QRect kRing(298, 198, 204, 204);
const QString kTime = QStringLiteral("TIME:");

/// 0 for a key without a digit.
int DigitOf(const QKeyEvent& event) {
    if (event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9)
        return event.key() - Qt::Key_0;
    // Without Num Lock the keypad sends keys that move, so these arrive here as well.
    const bool command =
        event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return command ? 0 : platform::DigitOnKey(event.nativeScanCode());
}

QString ClockText(float seconds) {
    return QString::asprintf("%s%05.2f", seconds < 0 ? "-" : "",
                             static_cast<double>(std::fabs(seconds)));
}

} // namespace

f_Multi::f_Multi()
    : Screen(QStringLiteral("f_Multi")),
      pPlay(new PictureBox(this, QStringLiteral("pPlay"), QSize(160, 160))),
      pHint(new PictureBox(this, QStringLiteral("pHint"), QSize(150, 54))),
      pCont(new PictureBox(this, QStringLiteral("pCont"), QSize(220, 54))),
      PChoice1(new PictureBox(this, QStringLiteral("PChoice1"), QSize(496, 66))),
      pChoice2(new PictureBox(this, QStringLiteral("pChoice2"), QSize(496, 66))),
      pChoice3(new PictureBox(this, QStringLiteral("pChoice3"), QSize(496, 66))),
      pChoice4(new PictureBox(this, QStringLiteral("pChoice4"), QSize(496, 66))),
      pTimer(new PictureBox(this, QStringLiteral("pTimer"), QSize(116, 37))),
      mLight(new game::RecordLight(this)) {
    pPlay->setAccessibleName(QStringLiteral("Play"));
    pHint->setAccessibleName(QStringLiteral("Hint"));
    pCont->setAccessibleName(QStringLiteral("Continue"));
    for (PictureBox* choice : ChoiceBoxes())
        choice->Dc()->SetFont(ScreenFont(20));
    pTimer->Dc()->SetFont(ScreenFont(24));
    SetFontSize(24);
    Timer1.setInterval(100);
    Timer1.setTimerType(Qt::PreciseTimer);
    connect(&Timer1, &QTimer::timeout, this, &f_Multi::Timer1_Timer);
}

void f_Multi::LayOut() {
    constexpr int kChoicesTop = 220;
    constexpr int kChoiceGap = 4;
    MoveTo(QPoint(0, 0));
    pPlay->MoveTo((Width() - pPlay->Width()) / 2, (Height() - pPlay->Height()) / 2);
    pHint->MoveTo(Width() - kMargin - pHint->Width(), Height() - kMargin - pHint->Height());
    pCont->MoveTo((Width() - pCont->Width()) / 2, Height() - kMargin - pCont->Height());
    pTimer->MoveTo(kCenter, 85);
    const int left = (Width() - PChoice1->Width()) / 2;
    int top = kChoicesTop;
    for (PictureBox* choice : ChoiceBoxes()) {
        choice->MoveTo(left, top);
        choice->hide();
        top += choice->Height() + kChoiceGap;
    }
    for (PictureBox* box : {pPlay, pHint, pCont, pTimer})
        box->hide();
    setTabOrder(pChoice4, pHint); // the Tab key reaches the answers first
    Timer1.stop();
    SetTimeLimit(0);
}

void f_Multi::InitTimer() {
    mElapsed = 0;
    mStart = platform::TickCount();
    constexpr int kGap = 10;
    mDial.LightLamp();
    Drawing(Dc()).Text(kTime, kAzure, pTimer->Place().x() - kGap - Dc()->TextWidth(kTime),
                       pTimer->Place().y());
    Refresh();
    pTimer->show();
    DrawClock();
    Timer1.start();
}

void f_Multi::Timer1_Timer() {
    mElapsed = static_cast<float>(platform::TickCount() - mStart) / 1000.0F;
    if (mTimeLimit > 0) {
        if (LimitReached())
            StopClip();
        else
            mElapsed = std::min(mElapsed, static_cast<float>(mTimeLimit));
    }
    DrawClock();
    mDial.PointTo(mElapsed);
    Q_EMIT ClockMoved(mElapsed);
    if (!mSilenceTold && audio::NoDevice())
        TellOfSilence();
}

void f_Multi::SetTimeLimit(int seconds) {
    mTimeLimit = seconds;
    mClipStart = Audio().Position();
}

double f_Multi::SecondsHeard() const { return Audio().Position() - mClipStart; }

/// A clip that stutters goes on until all of the bet has been heard, or the song ends.
bool f_Multi::LimitReached() const {
    return mElapsed >= static_cast<float>(mTimeLimit) &&
           (SecondsHeard() >= mTimeLimit || Audio().Position() >= Audio().Length());
}

void f_Multi::StopClip() {
    Timer1.stop();
    Audio().StopPlay();
    mElapsed = static_cast<float>(mTimeLimit);
    mTimeLimit = kClipStopped;
    Announce(QStringLiteral("The clip is over"));
}

void f_Multi::TellOfSilence() {
    constexpr int kBelowQuestion = 198;
    mSilenceTold = true;
    SetFontSize(14);
    WriteCentered(QStringLiteral("No sound device was found, so nothing is heard."), kBelowQuestion,
                  kWhite, 2);
}

void f_Multi::DrawClock() {
    const Hdc dc = pTimer->Dc();
    CopyFormBehind(*pTimer);
    const QString text = ClockText(mElapsed);
    Drawing(dc).Text(text, Rgb(50, 0, 100), (pTimer->Width() - dc->TextWidth(text)) / 2, 0);
    pTimer->SetText(kTime + u' ' + text);
    pTimer->Refresh();
}

void f_Multi::SetFontSize(double points) { Dc()->SetFont(ScreenFont(points)); }

void f_Multi::WriteCentered(const QString& text, int y, ColorRef color, int shadowOffset) {
    const QRect place(kMargin, y, Width() - 2 * kMargin, static_cast<int>(Dc()->TextHeight()));
    CenteredText(Dc(), text, kCenter, y, place.width(), color, shadowOffset);
    AddCaption(text, place);
    Refresh();
}

void f_Multi::AskQuestion(const QString& text) { WriteCentered(text, 160, kWhite); }

void f_Multi::DrawSinglePlayer() {
    WriteCentered(QStringLiteral("Single Player Mode"), 560, kRed, 2);
}

void f_Multi::DrawPlayer(int player) {
    WriteCentered(QStringLiteral("Player %1").arg(player), 560, kRed, 2);
}

void f_Multi::DrawRound(int total, int current) {
    constexpr int kTop = 6;
    const QString text = QStringLiteral("Round %1 of %2").arg(current).arg(total);
    Drawing(Dc()).Text(text, Rgb(250, 50, 50), Rgb(50, 0, 50), kMargin, kTop, 3);
    AddCaption(text, QRect(kMargin, kTop, Width() / 2, static_cast<int>(Dc()->TextHeight())));
    Refresh();
}

void f_Multi::DrawScore(int score) {
    ShowScore(score);
    AddCaption(QStringLiteral("SCORE: %1").arg(score), kScore);
}

void f_Multi::ShowScore(int score) {
    CopyBackground(kScore);
    const QFont own = Dc()->Font();
    SetFontSize(24);
    const QString text = QStringLiteral("SCORE: %1").arg(score);
    Drawing(Dc()).Text(text, kWhite, kBlack, Width() - kMargin - Dc()->TextWidth(text),
                       pTimer->Place().y(), 3);
    Dc()->SetFont(own);
}

void f_Multi::DrawStake(const QString& text) {
    CopyBackground(kStake);
    const QFont own = Dc()->Font();
    SetFontSize(13);
    Drawing(Dc()).Text(text, kGold, kBlack, Width() - kMargin - Dc()->TextWidth(text), kStake.y(),
                       2);
    Dc()->SetFont(own);
}

void f_Multi::DrawDial() {
    if (mTimeLimit > 0)
        mDial.ShowSeconds(mTimeLimit);
    else
        mDial.ShowPoints();
}

void f_Multi::DrawTurn(int player) {
    const QString text = QStringLiteral("Player %1, it is your turn!").arg(player);
    const ColorRef color = game::PlayerColor(player);
    const QFont own = Dc()->Font();
    SetFontSize(22);
    Drawing(Dc()).Shapes(kTurn, [=, font = Dc()->Font()](QPainter& painter) {
        const QRectF band = QRectF(kTurn).adjusted(4, 4, -4, -4);
        QColor glow = ToQColor(color);
        glow.setAlpha(70);
        painter.setPen(QPen(glow, 7));
        painter.setBrush(ToQColor(color));
        painter.drawRoundedRect(band, band.height() / 2, band.height() / 2);
        painter.setFont(font);
        painter.setPen(QColor(50, 0, 100));
        painter.drawText(band, Qt::AlignCenter, text);
    });
    Dc()->SetFont(own);
    AddQuietCaption(text, kTurn);
    Refresh(kTurn);
}

void f_Multi::DrawRing(int player) {
    Drawing(Dc()).Shapes(kRing, [color = ToQColor(game::PlayerColor(player))](QPainter& painter) {
        for (const auto& [width, alpha] :
             {std::pair(14, 40), std::pair(9, 80), std::pair(4, 255)}) {
            painter.setPen(QPen(QColor(color.red(), color.green(), color.blue(), alpha), width));
            painter.drawEllipse(QRectF(kRing).adjusted(8, 8, -8, -8));
        }
    });
    Refresh(kRing);
}

void f_Multi::EraseRing() { CopyBackground(kRing); }

void f_Multi::AnnounceChoices() {
    int key = 0;
    for (const PictureBox* choice : ChoiceBoxes()) {
        ++key;
        if (choice->isVisibleTo(this))
            Announce(QStringLiteral("%1: %2").arg(key).arg(choice->accessibleName()));
    }
}

void f_Multi::keyPressEvent(QKeyEvent* event) {
    const int digit = DigitOf(*event);
    if (digit >= 1 && digit <= 4)
        ChoiceBoxes()[static_cast<std::size_t>(digit - 1)]->Activate();
    else if (event->key() == Qt::Key_H)
        pHint->Activate();
    else
        Screen::keyPressEvent(event);
}
