#pragma once

#include <QElapsedTimer>
#include <QGraphicsEffect>
#include <QPixmap>
#include <QTimer>

namespace toolkit {

/// Lets what an area of the window showed fade out over what it shows now. Only the picture fades:
/// the mouse, keys and screen readers find the new content at once.
class CrossFade : public QGraphicsEffect {
    Q_OBJECT
public:
    /// To be called before the area changes. Does nothing if the area is not visible, or if the
    /// user wants less motion.
    static void Begin(QWidget& area);

protected:
    void draw(QPainter* painter) override;

private:
    CrossFade(QWidget& area, const QPixmap& before);
    void Step();

    QWidget& mArea;
    QPixmap mBefore;
    QTimer mTimer;
    QElapsedTimer mClock; // from the first step on: the new content may take a while to be ready
};

} // namespace toolkit
