#pragma once

#include "audio/Cue.h"
#include "editor/f_Player.h"
#include "platform/Answer.h"
#include "toolkit/c_SurfButton.h"

#include <QObject>
#include <QTimer>
#include <filesystem>
#include <optional>

/// The small window that plays a song of the editor's list, through the program's clip player.
class c_player : public QObject {
    Q_OBJECT
public:
    c_player();
    /// Stops what this player plays and closes the window.
    ~c_player() override;

    /// Shows the window at the screen's top left corner, above all others, unless it is already
    /// shown.
    void Show();

    /// Opens a song at its start, without playing it. It is ready some time later; if it cannot be
    /// played the window says so.
    void OpenFile(const std::filesystem::path& song);

    /// Whether a song is still being opened.
    bool Loading() const { return mCue.has_value(); }

    /// Whether a song is played, or paused, for this window.
    bool InUse() const { return mInUse || mPlayWhenReady; }

    f_Player& Form() { return mForm; }

    void bPlay_Clicked();
    void bPause_Clicked();
    void bStop_Clicked();
    void bX_Clicked();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The player wants to hear the next song (1) or the one before (-1).
    void OtherWanted(int direction);

private:
    enum class Hold { None, Mouse, Key };

    void HoldFF(Hold hold);
    void Seek(double part);
    void TakeSong();

    f_Player mForm;
    c_SurfButton bPlay;
    c_SurfButton bPause;
    c_SurfButton bStop;
    c_SurfButton bFF;
    c_SurfButton bPrev;
    c_SurfButton bNext;
    c_SurfButton bX;
    std::filesystem::path mSong;
    std::optional<audio::Cue> mCue; // of the song, while it is loaded
    std::optional<platform::Answer<QString>> mTitle;
    QTimer mTillReady;
    bool mPlayWhenReady = false;
    Hold mHold = Hold::None; // of the fast-forward button
    bool mInUse = false;     // the clip player may be playing for this window
};
