#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/Announcer.h"
#include "toolkit/Canvas.h"
#include "toolkit/DragStart.h"
#include "toolkit/PictureBox.h"
#include "toolkit/Place.h"
#include "toolkit/StageSize.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace toolkit {

/// A part of the stage with a persistent image: a whole screen, or a smaller form that can be
/// dragged about the stage. It never closes by itself: a request to close (from the window manager
/// or by Escape) is passed on as a signal.
class Form : public QWidget, public Accessible {
    Q_OBJECT
public:
    explicit Form(const QString& name, const QSize& size = kStageSize);
    ~Form() override;

    Hdc Dc() { return &mCanvas; }

    // In logical pixels.
    int Width() const { return mCanvas.Width(); }
    int Height() const { return mCanvas.Height(); }
    bool FillsStage() const { return QSize(Width(), Height()) == kStageSize; }
    /// Moves the form's corner to a place of the stage.
    void MoveTo(QPoint place);

    // For screen readers: what is drawn on the form, and other announcements; see `Announcer`.
    void AddCaption(const QString& text, const QRect& place) {
        mAnnouncer->AddCaption(text, place);
    }
    void AddQuietCaption(const QString& text, const QRect& place) {
        mAnnouncer->AddQuietCaption(text, place);
    }
    void HoldCaptions() { mAnnouncer->HoldCaptions(); }
    void ClearCaptions() { mAnnouncer->ClearCaptions(); }
    void Announce(const QString& text) { mAnnouncer->Announce(text); }

    /// Shows what was drawn since the last time.
    void Refresh() { update(); }
    /// The same for a part of the form.
    void Refresh(const QRect& area) { update(FromLogical(area)); }

    /// Forms of a layer lie in front of those of the layers before it.
    enum class Layer { Screens, OnTop, Messages };
    void SetLayer(Layer layer) { mLayer = layer; }
    Layer GetLayer() const { return mLayer; }

    /// A modal form keeps the forms behind it from being used while it is shown.
    void SetModal() { mModal = true; }
    bool IsModal() const { return mModal; }

    /// Shows the form in the middle of the stage, which a whole screen fills, and gives it the
    /// keyboard focus.
    void ShowInPlace();
    /// The same, in the place where it was put last.
    void Appear();

    /// Minimises the program's window.
    void Minimise();

    /// Gives the keyboard focus to the first control, for a form that has just appeared.
    void PlaceFocus();
    /// Gives the keyboard focus back to the control that had it last.
    void ResumeFocus();

    /// Says whether a form in front keeps this one from being used.
    void SetBlocked(bool blocked);

    QAccessibleInterface* NewInterface() override;

    void setVisible(bool visible) override;

Q_SIGNALS:
    void CloseRequested();

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    /// Whether a control belongs to the window's frame; no screen starts with the focus on one.
    virtual bool IsOfFrame(const QWidget*) const { return false; }
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// The controls in Tab order, those of the window's frame last.
    std::vector<QWidget*> FocusControls();
    QWidget* FirstControl();
    /// Moves the keyboard focus from a control that was hidden to the first one.
    void HandFocusOn();
    void MoveFocus(int key);
    /// After the mouse was used, the first key only shows where the focus is; true when it did.
    bool ShowFocus();

    Canvas mCanvas;
    Announcer* mAnnouncer;
    Layer mLayer = Layer::Screens;
    bool mModal = false;
    DragStart mDragStart; // by the left button on the form's ground
    QPointer<QWidget> mBlockedFocus;
};

/// Draws one line of text with a shadow, made to fit `width` and centred at `center`. The line's
/// top edge in the canvas's font is at `y`.
void CenteredText(Hdc dc, const QString& text, double center, double y, double width,
                  ColorRef color, double shadowOffset);

} // namespace toolkit
