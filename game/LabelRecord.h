#pragma once

#include "game/TurningPart.h"

#include <QPixmap>

namespace game {

/// A small record beside the name of the song that was heard, with the song's cover on its label.
class LabelRecord : public TurningPart {
public:
    static constexpr int kSide = 66;       ///< logical pixels
    static constexpr int kCoverSide = 192; ///< pixels that a cover needs on a large screen

    explicit LabelRecord(QWidget* board);

    /// Puts a picture on the label, of any size; a null one stands for the program's own label.
    void SetCover(const QImage& cover);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QPixmap PaintRecord() const;

    QPixmap mCover;
    QPixmap mRecord; ///< null until it is painted again
};

} // namespace game
