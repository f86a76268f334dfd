#include "toolkit/VolumeKeys.h"

#include "platform/Volume.h"

#include <QKeyEvent>

namespace toolkit {

bool ChangeVolume(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    platform::Volume& volume = platform::Volume::Get();
    switch (event.key()) {
    case Qt::Key_M:
        volume.ToggleMuted();
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key on many keyboards
        volume.Step(1);
        return true;
    case Qt::Key_Minus:
        volume.Step(-1);
        return true;
    default:
        return false;
    }
}

} // namespace toolkit
