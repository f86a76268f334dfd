#pragma once

#include "toolkit/ColorRef.h"

#include <QRectF>

class QPainter;

namespace toolkit {

/// The look of a button without a skin, in one state.
struct PlainFace {
    ColorRef start; // of a diagonal gradient, at the top left
    ColorRef end;
    ColorRef light; // the edges above and to the left
    ColorRef dark;  // and the other two
    enum class Light { Rest, On, Sunk } shine;
};

/// A blue button at rest, under the pointer and pressed.
constexpr PlainFace kBlueFaces[] = {
    {Rgb(0, 0, 250), Rgb(0, 0, 100), Rgb(200, 200, 255), Rgb(0, 0, 0), PlainFace::Light::Rest},
    {Rgb(150, 0, 250), Rgb(50, 0, 100), Rgb(200, 200, 255), Rgb(0, 0, 0), PlainFace::Light::On},
    {Rgb(0, 0, 100), Rgb(0, 0, 250), Rgb(0, 0, 0), Rgb(200, 200, 255), PlainFace::Light::Sunk}};

/// How much of each corner of a plain button is cut off.
double CutOf(const QRectF& button);

/// Paints a button with cut corners that is lit from above and stands on a lip, as the skins do.
/// Its outline is the same in all looks; only light shows depth.
void PaintPlainFace(QPainter& painter, const QRectF& area, const PlainFace& face);

} // namespace toolkit
