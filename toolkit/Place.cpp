#include "toolkit/Place.h"

#include "toolkit/Canvas.h"

#include <QApplication>
#include <QToolTip>
#include <QVariant>
#include <QWidget>
#include <cmath>

namespace toolkit {

namespace {

double gScale = 1;

constexpr char kPlace[] = "place";
constexpr char kPoints[] = "points";

int Pixels(int logical) { return static_cast<int>(std::lround(logical * gScale)); }

void ShowAtPlace(QWidget& control) {
    const QVariant place = control.property(kPlace);
    if (place.isValid())
        control.setGeometry(FromLogical(place.toRect()));
}

void ShowFont(QWidget& control) {
    const QVariant points = control.property(kPoints);
    if (points.isValid())
        control.setFont(RoundFont(points.toDouble() * gScale));
}

} // namespace

double StageScale() { return gScale; }

void Put(QWidget& control, const QRect& place) {
    control.setProperty(kPlace, place);
    ShowAtPlace(control);
}

QRect PlaceOf(const QWidget& control) { return control.property(kPlace).toRect(); }

void SetFontPoints(QWidget& control, double points) {
    control.setProperty(kPoints, points);
    ShowFont(control);
}

void SetControlFonts() {
    const double points = kControlFont * gScale;
    QApplication::setFont(RoundFont(points));
    QApplication::setFont(RoundFont(points, true), "QPushButton");
    QToolTip::setFont(QApplication::font());
}

QPointF ToLogical(QPointF pixels) { return pixels / gScale; }

QRect FromLogical(const QRect& area) {
    const QPoint start(Pixels(area.x()), Pixels(area.y()));
    const QPoint end(Pixels(area.x() + area.width()), Pixels(area.y() + area.height()));
    return QRect(start, QSize(end.x() - start.x(), end.y() - start.y()));
}

void Rescale(QWidget& area, double scale) {
    gScale = scale;
    SetControlFonts();
    for (QWidget* control : area.findChildren<QWidget*>()) {
        ShowFont(*control);
        ShowAtPlace(*control);
    }
    area.update();
}

} // namespace toolkit
