#pragma once

#include "toolkit/Form.h"
#include "toolkit/VolumeBox.h"

#include <QTimer>

/// The preview player's window: its buttons, the strip with the song's title, and the bar and the
/// times that show the position in the song.
class f_Player : public toolkit::Form {
    Q_OBJECT
public:
    f_Player();

    /// Shows the title in the strip and as the window's title. One that is too wide for the strip
    /// shows its beginning and scrolls while the timer runs; if the user wants less motion it
    /// moves on part by part.
    void SetTitle(const QString& title);

    /// Places the marker at 0 to 100 percent of the song; other values are clamped.
    void SetPos(float percentage);

    /// Shows how much of the song has been heard, and the whole of it, in seconds.
    void SetTimes(double elapsed, double whole);

    /// Shows in their place that the song is not ready yet.
    void ShowLoading();

    /// Shows in their place that the song cannot be played.
    void ShowUnplayable();

    /// Stops the timer and shows the title's beginning again.
    void StopTimer();

    toolkit::PictureBox* pPlay;
    toolkit::PictureBox* pPause;
    toolkit::PictureBox* pStop;
    toolkit::PictureBox* pFF;
    toolkit::PictureBox* pX;
    toolkit::PictureBox* pPrev;
    toolkit::PictureBox* pNext;
    toolkit::PictureBox* pTitle;
    toolkit::PictureBox* pTimes;
    toolkit::VolumeBox* pVolume;

    /// Started with the song, whose position it follows; stops by itself at the song's end.
    QTimer PosTimer;

Q_SIGNALS:
    /// A place of the bar was pressed: from 0, the song's start, to 1.
    void SeekWanted(double part);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void PosTimer_Timer();
    bool PressBar(const QMouseEvent& event);
    void ShowTimes(const QString& text, toolkit::ColorRef color);
    void ResetTitle();
    void ScrollTitle();
    void LeapTitle();
    void DrawTitle();
    void DrawBar();

    toolkit::Canvas mGround;
    QString mTitle;
    bool mTitleScrolls = false;
    int mTitleOffset = 0; // left edge of the title in the strip
    int mLeapTicks = 0;   // since the title last moved
    int mTitleLimit = 0;  // of the offset: below it nothing of the title is visible
    int mMarkerLeft;
    QString mTimes;
};
