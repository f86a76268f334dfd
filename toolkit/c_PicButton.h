#pragma once

#include "toolkit/PictureBox.h"
#include "toolkit/PlainFace.h"

#include <QObject>
#include <array>

/// A rectangular button drawn without a skin: a `PlainFace` in one of three colour schemes and a
/// centred caption.
class c_PicButton : public QObject {
    Q_OBJECT
public:
    c_PicButton();

    const QString& Caption() const { return mCaption; }
    /// Stores the caption and draws the normal look.
    void SetCaption(const QString& caption);

    void Create(toolkit::PictureBox* box, const QString& caption);

    /// Takes the colours of scheme 0 (blue), 1 (green) or 2 (red); other numbers change nothing.
    /// With `redraw` the normal look is drawn.
    void SetColors(int scheme, bool redraw);

    /// Raises `Clicked` as if the player had clicked.
    void Click() { Q_EMIT Clicked(); }

    /// One look and the colours of its caption.
    struct Look {
        toolkit::PlainFace face;
        toolkit::ColorRef caption;
        toolkit::ColorRef captionShadow;
    };

Q_SIGNALS:
    /// The button was released, wherever the pointer was by then.
    void Clicked();

private:
    enum State { Normal = 0, Hover = 1, Pressed = 2 };

    void Draw(State state);
    void Move();

    toolkit::PictureBox* mBox = nullptr;
    QString mCaption;
    State mState = Normal;
    std::array<Look, 3> mLooks;
};
