#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/Canvas.h"
#include "toolkit/Place.h"

#include <QPointF>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

namespace toolkit {

/// A rectangle of a form with a persistent image of its own. It shows what was drawn on its canvas
/// and passes on mouse and keyboard input; a button class decides what it means. Coordinates are
/// logical pixels inside the box.
class PictureBox : public QWidget, public Accessible {
    Q_OBJECT
public:
    PictureBox(QWidget* parent, const QString& name, const QSize& size);

    /// Where the box lies on its form.
    QRect Place() const { return PlaceOf(*this); }
    int Width() const { return mCanvas.Width(); }
    int Height() const { return mCanvas.Height(); }
    /// Moves the box's corner to a point of its form.
    void MoveTo(int x, int y) { Put(*this, QRect(x, y, Width(), Height())); }

    Hdc Dc() { return &mCanvas; }
    const Canvas& Picture() const { return mCanvas; }

    /// Resizes the box and its canvas; the canvas keeps its font and becomes black.
    void SetBoxSize(const QSize& size);

    /// Shows what was drawn since the last time.
    void Refresh() { update(); }

    /// Makes the box a button for keyboards and screen readers. The frame that shows the focus has
    /// corners with a radius of `radius` logical pixels.
    void SetButton(double radius);
    /// The same for a button painted by `PaintPlainFace`.
    void SetPlainButton();
    bool IsButton() const { return mButton; }

    /// For screen readers: in words, what a box shows that is not a button. It can be read but is
    /// not announced.
    void SetText(const QString& text) { mText = text; }
    const QString& Text() const { return mText; }

    /// Lets `make` decide how screen readers see the box, instead of as a button or a picture; an
    /// empty `make` undoes that.
    void SetInterface(std::function<QAccessibleInterface*()> make) { mInterface = std::move(make); }
    QAccessibleInterface* NewInterface() override;

    /// Frames the box if it has the focus but no frame yet; true if it did.
    bool ShowFocus();

    /// Presses the box as the keyboard does, unless it cannot be used at the moment.
    void Activate();

    /// Whether the box can be used: visible, enabled and not behind a dialog.
    bool TakesInput() const;

    void setVisible(bool visible) override;

Q_SIGNALS:
    void MouseDown(double x, double y);
    void MouseUp(double x, double y);
    void MouseMoved(double x, double y);
    /// The pointer left the box, is moving outside it with a button held down, or the box was
    /// hidden.
    void MouseOutside();
    /// Pressed by Enter, by Space or by a screen reader.
    void Activated();
    /// Enter or Space is held down on the button; raised just before `Activated`. The pointer is
    /// not reported until `KeyUp`, after which its current place is.
    void KeyDown();
    /// The key was released, or this button lost it.
    void KeyUp();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRectF FocusFrame() const;
    void TellPointer();
    void HoldKey(int key);
    void LetKeyGo();

    Canvas mCanvas;
    bool mButton = false;
    double mFocusRadius = 0;
    bool mIsPlain = false;
    bool mFocusShown = false;
    int mHeldKey = 0;
    std::optional<QPointF> mPointer; // while it is in the box
    QString mText;
    std::function<QAccessibleInterface*()> mInterface;
};

} // namespace toolkit
