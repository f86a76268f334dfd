#include "game/TurningPart.h"

#include "audio/c_XAudio.h"
#include "platform/Motion.h"

#include <cmath>
#include <utility>

namespace game {

TurningPart::TurningPart(QWidget* board, const QString& name) : QWidget(board) {
    constexpr int kFrame = 50; // milliseconds
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    mTimer.setInterval(kFrame);
    mTimer.callOnTimeout(this, &TurningPart::Turn);
}

void TurningPart::Start() {
    mStill = 0;
    show();
    if (!platform::MotionReduced())
        mTimer.start();
}

void TurningPart::Stop() {
    mTimer.stop();
    hide();
}

void TurningPart::Turned(double, double) { update(); }

void TurningPart::Turn() {
    constexpr double kDegreesPerSecond = 200; // 33 1/3 turns a minute
    constexpr int kPatience = 20;             // frames; a clip may take a while to begin
    const double heard = Audio().Position();
    const double moved = heard - std::exchange(mHeard, heard);
    mStill = moved == 0 ? mStill + 1 : 0;
    if (mStill == kPatience)
        mTimer.stop();
    constexpr double kJump = 1; // seconds: another clip
    if (moved <= 0 || moved > kJump || !isVisible())
        return;
    const double before = mAngle;
    mAngle = std::fmod(mAngle + moved * kDegreesPerSecond, 360);
    Turned(before, mAngle);
}

} // namespace game
