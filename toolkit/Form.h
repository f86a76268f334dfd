#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/Announcer.h"
#include "toolkit/Canvas.h"
#include "toolkit/PictureBox.h"

#include <QWidget>

namespace toolkit {

/// Size of a whole screen in logical pixels.
constexpr QSize kScreenSize(800, 600);

/// A borderless window with a persistent image that is dragged by any point. It never closes by
/// itself: a request to close (the window manager's, Escape) is handed to the screen.
class Form : public QWidget, public Accessible {
    Q_OBJECT
public:
    explicit Form(const QString& name, const QSize& size = kScreenSize);

    Hdc Dc() { return &mCanvas; }

    // For screen readers: what is drawn on the form, and what else they are to tell; see
    // `Announcer`.
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

    /// Shows a screen where the last one stood, so that the screens follow each other in place; a
    /// smaller form in the middle of that place.
    void ShowInPlace();

    /// Where the first screen appears.
    static void SetPlace(QPoint place);

    /// Gives the keys to the first control, for a form that has just come up.
    void PlaceFocus();

    /// Moves the form, and with it the place of the next screen, to the top left corner.
    void MoveToCorner();

    QAccessibleInterface* NewInterface() override;

Q_SIGNALS:
    void CloseRequested();

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    /// Whether a control is always there, as a window's frame is, so that no screen begins with it.
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
    /// Gives the keys of a control that was hidden to the first one.
    void HandFocusOn();
    void MoveFocus(int key);
    /// The first key after the mouse only shows where the keys are; true when it did.
    bool ShowFocus();

    Canvas mCanvas;
    Announcer* mAnnouncer;
};

/// Draws one line of text, made to fit `width`, with its middle at `center`; see `ShadowText`. The
/// top edge of the font's line is at `y`.
void CenteredText(Hdc dc, const QString& text, double center, double y, double width,
                  ColorRef color, double shadowOffset);

} // namespace toolkit
