#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/Announcer.h"
#include "toolkit/Canvas.h"
#include "toolkit/PictureBox.h"

#include <QWidget>

namespace toolkit {

/// Size of a whole screen in logical pixels.
constexpr QSize kScreenSize(800, 600);

/// A borderless window with a persistent image, which can be dragged by any point. It never closes
/// by itself: a request to close (from the window manager or by Escape) is passed on as a signal.
class Form : public QWidget, public Accessible {
    Q_OBJECT
public:
    explicit Form(const QString& name, const QSize& size = kScreenSize);

    Hdc Dc() { return &mCanvas; }

    // For screen readers: what is drawn on the form, and other announcements; see `Announcer`.
    void AddCaption(const QString& text, const QRect& place) {
        mAnnouncer->AddCaption(text, place);
    }
    void AddQuietCaption(const QString& text, const QRect& place) {
        mAnnouncer->AddQuietCaption(text, place);
    }
    void ClearCaptions() { mAnnouncer->ClearCaptions(); }
    void Announce(const QString& text) { mAnnouncer->Announce(text); }

    /// Shows what was drawn since the last time.
    void Refresh() { update(); }
    /// The same for a part of the form.
    void Refresh(const QRect& area) { update(area); }

    /// Shows a screen where the last one stood, so that one replaces the other; a smaller form in
    /// the middle of that place.
    void ShowInPlace();

    /// Where the first screen appears.
    static void SetPlace(QPoint place);

    /// Gives the keyboard focus to the first control, for a form that has just appeared.
    void PlaceFocus();

    /// Moves the form, and with it the place of the next screen, to the top left corner.
    void MoveToCorner();

    QAccessibleInterface* NewInterface() override;

Q_SIGNALS:
    void CloseRequested();

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    /// Whether a control belongs to the window's frame; no screen starts with the focus on it.
    virtual bool IsOfFrame(const QWidget*) const { return false; }
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TakeActivation();
    QWidget* FirstControl();
    /// Moves the keyboard focus from a control that was hidden to the first one.
    void HandFocusOn();
    void MoveFocus(int key);
    /// After the mouse was used, the first key only shows where the focus is; true when it did.
    bool ShowFocus();

    Canvas mCanvas;
    Announcer* mAnnouncer;
};

/// Draws one line of text with a shadow, made to fit `width` and centred at `center`. The line's
/// top edge in the canvas's font is at `y`.
void CenteredText(Hdc dc, const QString& text, double center, double y, double width,
                  ColorRef color, double shadowOffset);

} // namespace toolkit
