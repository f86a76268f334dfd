#pragma once

#include <QTimer>
#include <QWidget>

namespace game {

/// A part of the board that turns as a record does, for as long as the clip is heard. It is only
/// looked at: presses go to what lies behind it. Keeps still if the user wants less motion.
class TurningPart : public QWidget {
    Q_OBJECT
public:
    /// `name` is the object's.
    TurningPart(QWidget* board, const QString& name);

    /// Shows it, and lets it turn while the clip plays from now on.
    void Start();
    /// Hides it.
    void Stop();

protected:
    /// How far it has turned, in degrees, clockwise.
    double Angle() const { return mAngle; }
    /// Paints again what the turn from one angle to another changes.
    virtual void Turned(double from, double to);

private:
    void Turn();

    QTimer mTimer;
    double mAngle = 0;
    double mHeard = 0; // position of the clip, seconds
    int mStill = 0;    // how often it was found where it was before
};

} // namespace game
