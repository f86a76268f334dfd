#pragma once

#include "toolkit/Canvas.h"

#include <memory>
#include <vector>

namespace toolkit {

/// What was drawn on a canvas, in order. Whoever copies from a canvas keeps its recipe, which stays
/// as it is when the canvas is drawn on again.
struct Recipe {
    explicit Recipe(const QSize& logicalSize) : size(logicalSize) {}

    /// Starts the picture anew, in any colours, at the current ratio.
    QImage& NewImage();

    /// The picture at the current ratio.
    QImage& Pixels();

    /// Lets go of the pixels until they are needed again.
    void Forget();

    /// Adds what was drawn and forgets what it has covered.
    void Add(const QRect& area, bool covers, Canvas::Paint paint);

    struct Step {
        QRect area;
        Canvas::Paint paint;
    };

    QSize size; // logical pixels
    std::vector<std::shared_ptr<const Step>> steps;

    QImage image;
    double ratio = 0; // of the image; 0 if there is none
};

} // namespace toolkit
