#pragma once

#include "toolkit/ColorRef.h"

#include <QVariantAnimation>
#include <QWidget>

namespace game {

/// A burst of light over the board, less than a second long. Mouse presses go through it. Shows
/// nothing if the user wants less motion.
class Burst : public QWidget {
    Q_OBJECT
public:
    explicit Burst(QWidget* board);

    /// Begins at the edges of `place`, in logical pixels of the board.
    void Begin(const QRect& place, toolkit::ColorRef color);
    void End();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation mTime; ///< from 0 to 1
    QRectF mPlace;
    QColor mColor;
};

} // namespace game
