#pragma once

#include <QTimer>
#include <QWidget>

namespace game {

/// A part of the board that turns like a record while the clip is heard. Mouse presses go to what
/// lies behind it. Keeps still if the user wants less motion.
class TurningPart : public QWidget {
    Q_OBJECT
public:
    /// `name` is its object name.
    TurningPart(QWidget* board, const QString& name);

    /// Shows it, and lets it turn while the clip plays from now on.
    void Start();
    /// Hides it.
    void Stop();

protected:
    /// How far it has turned, in degrees, clockwise.
    double Angle() const { return mAngle; }
    /// Repaints what a turn from one angle to another changes.
    virtual void Turned(double from, double to);

private:
    void Turn();

    QTimer mTimer;
    double mAngle = 0;
    double mHeard = 0; // position of the clip, seconds
    int mStill = 0;    // frames in which that has not changed
};

} // namespace game
