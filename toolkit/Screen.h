#pragma once

#include "toolkit/Form.h"
#include "toolkit/VolumeBox.h"
#include "toolkit/c_SurfButton.h"

namespace toolkit {

/// A form of full size with the boxes for a close and a minimise button in its corner, and the
/// volume beside them.
class Screen : public Form {
    Q_OBJECT
public:
    explicit Screen(const QString& name);

    /// Copies the program's background over the whole form, and forgets its captions.
    void CopyBackground();
    /// Copies the background over a part of the form.
    void CopyBackground(const QRect& area);

    PictureBox* pX;
    PictureBox* pMin;
    VolumeBox* pVolume;

protected:
    bool IsOfFrame(const QWidget* control) const override {
        return control == pX || control == pMin || control == pVolume;
    }
};

/// The skinned buttons over a screen's `pX` and `pMin`, for as long as a controller drives it, and
/// the volume beside them. A request to close from the window manager presses the close button.
class WindowButtons {
public:
    explicit WindowButtons(Screen& screen);

    void Refresh();

    c_SurfButton bX;
    c_SurfButton bMin;

private:
    VolumeBox& mVolume;
};

} // namespace toolkit
