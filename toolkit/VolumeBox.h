#pragma once

#include "toolkit/PictureBox.h"
#include "toolkit/c_Surface.h"

namespace toolkit {

/// The control for the program's volume: a speaker, which mutes, and beside it the level, which the
/// mouse, its wheel and the arrow keys change. All volume boxes show the same volume.
class VolumeBox : public PictureBox {
    Q_OBJECT
public:
    explicit VolumeBox(QWidget* form);

    /// Draws it, over what the form shows now.
    void Draw();

    QAccessibleInterface* NewInterface() override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Look { Normal, Hover, Pressed };
    enum class Grip { None, Sign, Level };

    void Show(Look look);
    void Changed();
    void LoadSkin();

    c_Surface mSkin;
    Look mLook = Normal;
    Grip mGrip = Grip::None; // what the mouse holds
    int mTurned = 0;         // of the wheel, towards the next step
};

} // namespace toolkit
