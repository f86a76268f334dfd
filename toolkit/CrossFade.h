#pragma once

#include <QElapsedTimer>
#include <QGraphicsEffect>
#include <QPixmap>
#include <QTimer>

namespace toolkit {

/// Lets what an area of the window showed fade out over what it shows now. Only looks like it: the
/// mouse, keys and screen readers find what is there, at once.
class CrossFade : public QGraphicsEffect {
    Q_OBJECT
public:
    /// To be called before the area changes. Does nothing if it is not in sight, or if the user
    /// wants less motion.
    static void Begin(QWidget& area);

protected:
    void draw(QPainter* painter) override;

private:
    CrossFade(QWidget& area, const QPixmap& before);
    void Step();

    QWidget& mArea;
    QPixmap mBefore;
    QTimer mTimer;
    QElapsedTimer mClock; // from the first step on: what comes may not be ready before
};

} // namespace toolkit
