#pragma once

#include "game/TurningPart.h"

#include <QPixmap>

namespace game {

/// Glints on the grooves of the record behind the board, which show it turning. What stands in
/// front of the record is left alone.
class RecordLight : public TurningPart {
public:
    explicit RecordLight(QWidget* board);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void Turned(double from, double to) override;

private:
    QPixmap PaintGlint() const;

    QPixmap mGlint; ///< null until it is painted in this size
};

} // namespace game
