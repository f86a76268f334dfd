#include "editor/c_player.h"

#include "audio/c_XAudio.h"
#include "library/SongTag.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/Mous.h"

#include <QMouseEvent>
#include <vector>

using namespace toolkit;

namespace {

constexpr double kLeap = 5; // seconds

} // namespace

c_player::c_player() {
    bPlay.Create(mForm.pPlay, QStringLiteral("Images\\bPlay.bmp"), QString());
    bPause.Create(mForm.pPause, QStringLiteral("Images\\bPause.bmp"), QString());
    bStop.Create(mForm.pStop, QStringLiteral("Images\\bStop.bmp"), QString());
    bFF.Create(mForm.pFF, QStringLiteral("Images\\BFF.BMP"), QString());
    bPrev.Create(mForm.pPrev, QStringLiteral("Images\\bPrev.bmp"), QString());
    bNext.Create(mForm.pNext, QStringLiteral("Images\\bNext.bmp"), QString());
    bX.Create(mForm.pX, QStringLiteral("Images\\X.bmp"), QString());

    connect(&bPlay, &c_SurfButton::Clicked, this, &c_player::bPlay_Clicked);
    connect(&bPause, &c_SurfButton::Clicked, this, &c_player::bPause_Clicked);
    connect(&bStop, &c_SurfButton::Clicked, this, &c_player::bStop_Clicked);
    connect(&bX, &c_SurfButton::Clicked, this, &c_player::bX_Clicked);
    connect(&bPrev, &c_SurfButton::Clicked, this, [this] { Q_EMIT OtherWanted(-1); });
    connect(&bNext, &c_SurfButton::Clicked, this, [this] { Q_EMIT OtherWanted(1); });
    connect(&mForm, &f_Player::SeekWanted, this, &c_player::Seek);
    connect(&mForm, &f_Player::CloseRequested, &bX, &c_SurfButton::Click);
    connect(mForm.pFF, &PictureBox::MouseDown, this, [this](double x, double y) {
        if (bFF.IsTouching(x, y))
            HoldFF(Hold::Mouse);
    });
    connect(mForm.pFF, &PictureBox::MouseUp, this, [this] { HoldFF(Hold::None); });
    connect(mForm.pFF, &PictureBox::KeyDown, this, [this] { HoldFF(Hold::Key); });
    connect(mForm.pFF, &PictureBox::KeyUp, this, [this] { HoldFF(Hold::None); });
    // A screen reader cannot hold a button down.
    connect(&bFF, &c_SurfButton::Clicked, this, [this] {
        if (mHold == Hold::None && !Loading())
            Audio().SeekTo(Audio().Position() + kLeap);
    });
    mForm.pFF->installEventFilter(this);
    constexpr int kLookEvery = 10; // milliseconds
    mTillReady.setInterval(kLookEvery);
    connect(&mTillReady, &QTimer::timeout, this, &c_player::TakeSong);
}

c_player::~c_player() {
    if (mInUse)
        Audio().StopPlay();
    mForm.hide();
}

void c_player::Show() {
    if (mForm.isVisible())
        return;
    SetTopMost(&mForm, true);
    for (c_SurfButton* button : {&bPlay, &bPause, &bStop, &bFF, &bPrev, &bNext, &bX})
        button->Refresh();
    mForm.pVolume->Draw();
    mForm.Appear();
    platform::PumpEvents();
}

void c_player::OpenFile(const std::filesystem::path& song) {
    if (mInUse)
        Audio().StopPlay();
    mInUse = mPlayWhenReady = false;
    mSong = song;
    mForm.StopTimer();
    mForm.SetTitle(platform::ShownText(song));
    mForm.SetPos(0);
    mForm.ShowLoading();
    mTitle.emplace([song](const std::stop_token&) {
        library::SongTag tag;
        tag.Read(song);
        return tag.Title();
    });
    mCue.emplace(std::vector{song}, [](double) { return 0.0; });
    mTillReady.start();
}

/// Goes on once the disk has answered.
void c_player::TakeSong() {
    const std::optional<QString> title = mTitle->Get();
    if (mCue->Working() || (mCue->Ready() && !title))
        return;
    mTillReady.stop();
    if (title && !title->isEmpty())
        mForm.SetTitle(*title);
    if (Audio().OpenFile(mSong) != 0)
        mForm.SetTimes(0, Audio().Length());
    else
        mForm.ShowUnplayable();
    mCue.reset();
    if (mPlayWhenReady)
        bPlay_Clicked();
}

void c_player::Seek(double part) {
    const double length = Audio().Length();
    if (length <= 0 || Loading())
        return;
    Audio().SeekTo(part * length);
    mForm.SetPos(static_cast<float>(part * 100));
    mForm.SetTimes(part * length, length);
}

void c_player::bPlay_Clicked() {
    if (Loading()) {
        mPlayWhenReady = true;
        return;
    }
    if (Audio().Position() >= Audio().Length())
        Audio().SeekTo(0); // play it again
    Audio().Play();
    mForm.PosTimer.start();
    mInUse = true;
}

void c_player::bPause_Clicked() {
    if (Loading())
        return;
    Audio().PausePlay();
    mForm.PosTimer.start(); // the second press plays, even if the song was not playing before
    mInUse = true;
}

void c_player::bStop_Clicked() {
    mPlayWhenReady = false;
    if (Loading())
        return;
    Audio().StopPlay();
    mForm.StopTimer();
    Seek(0);
    mInUse = false;
}

void c_player::bX_Clicked() {
    mTillReady.stop();
    mCue.reset();
    bStop_Clicked();
    mForm.hide();
}

bool c_player::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove: // the release may have gone to another program
        if (mHold == Hold::Mouse && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton)
            HoldFF(Hold::None);
        break;
    case QEvent::FocusOut:
    case QEvent::Hide:
        HoldFF(Hold::None);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void c_player::HoldFF(Hold hold) {
    if (hold == mHold)
        return;
    mHold = hold;
    Audio().SetRate(hold == Hold::None ? 1 : 2);
    bFF.Refresh(hold == Hold::None ? c_SurfButton::Normal : c_SurfButton::Pressed);
}
