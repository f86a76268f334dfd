#pragma once

#include "toolkit/Accessible.h"
#include "toolkit/Canvas.h"

#include <QBasicTimer>
#include <QPointF>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

namespace toolkit {

/// A rectangle of a form with a persistent image of its own. It shows what was drawn on its canvas
/// and passes on the mouse and the keys; a button class decides what they mean. Coordinates are
/// logical pixels inside the box.
class PictureBox : public QWidget, public Accessible {
    Q_OBJECT
public:
    PictureBox(QWidget* parent, const QString& name, const QSize& size);

    Hdc Dc() { return &mCanvas; }
    const Canvas& Picture() const { return mCanvas; }

    /// Gives the box and its canvas another size; the canvas keeps its font and becomes black.
    void SetBoxSize(const QSize& size);

    /// Shows what was drawn since the last time.
    void Refresh() { update(); }

    /// Makes the box a button for keyboard and screen reader. The frame that shows the focus has
    /// corners of `radius` logical pixels.
    void SetButton(double radius);
    bool IsButton() const { return mButton; }

    /// What a box that is no button shows in words, for screen readers. It is told when they ask.
    void SetText(const QString& text) { mText = text; }
    const QString& Text() const { return mText; }

    /// Has `make` choose how screen readers see the box, in place of a button or a picture; an
    /// empty one leaves it to the box again.
    void SetInterface(std::function<QAccessibleInterface*()> make) { mInterface = std::move(make); }
    QAccessibleInterface* NewInterface() override;

    /// Gives the keys to the box in place of one that went; the second press of a double press is
    /// not for this one.
    void TakeFocusOver();

    /// Frames the box when it has the focus and no frame yet; whether it did.
    bool ShowFocus();

    /// Presses the box as the keyboard does; nothing happens while it cannot be used.
    void Activate();

    /// Whether the box is there to be used: shown, and not behind a dialog.
    bool TakesInput() const;

    void setVisible(bool visible) override;

Q_SIGNALS:
    void MouseDown(double x, double y);
    void MouseUp(double x, double y);
    void MouseMoved(double x, double y);
    /// The pointer left the box or moves outside of it with a button held down, or the box was
    /// hidden.
    void MouseOutside();
    /// Pressed by Enter, by Space or by a screen reader.
    void Activated();
    /// Enter or Space is held down on the button, from just before `Activated`. Until `KeyUp` the
    /// pointer is not told of; then comes where it is by now.
    void KeyDown();
    /// The key is held no longer, or no longer on this button.
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
    void timerEvent(QTimerEvent* event) override;

private:
    QRectF FocusFrame() const;
    void TellPointer();
    void HoldKey(int key);
    void LetKeyGo();

    Canvas mCanvas;
    bool mButton = false;
    double mFocusRadius = 0;
    bool mFocusShown = false;
    bool mTakenOver = false;
    int mHeldKey = 0;
    QBasicTimer mLettingGo;          // of that key, unless a repeat shows that it is still held
    std::optional<QPointF> mPointer; // while it is in the box
    QString mText;
    std::function<QAccessibleInterface*()> mInterface;
};

} // namespace toolkit
