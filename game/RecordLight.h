#pragma once

#include "game/TurningPart.h"

namespace game {

/// Glints on the grooves of the record behind the board, so that it is seen to turn. What stands on
/// the board in front of the record is left alone.
class RecordLight : public TurningPart {
public:
    explicit RecordLight(QWidget* board);

protected:
    void paintEvent(QPaintEvent* event) override;
    void Turned(double from, double to) override;
};

} // namespace game
