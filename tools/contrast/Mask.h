#pragma once

#include <QSize>

#include <vector>

namespace contrast {

/// A set of pixels of a rectangle that begins at (0, 0). What lies outside is not in the set.
class Mask {
public:
    explicit Mask(const QSize& size);

    int Width() const { return mSize.width(); }
    int Height() const { return mSize.height(); }
    bool Has(int x, int y) const;
    void Add(int x, int y);
    int Count() const;

    /// All pixels at most `radius` columns and rows away from one of the set.
    Mask Grown(int radius) const;
    /// The pixels that lie in a square of `side` pixels wholly of the set.
    Mask Thick(int side) const;
    Mask Without(const Mask& other) const;
    Mask With(const Mask& other) const;
    /// The set moved to the right and down by `offset`.
    Mask Moved(int offset) const;

private:
    bool HasSquare(int left, int top, int side) const;
    std::size_t Index(int x, int y) const;

    QSize mSize;
    std::vector<bool> mPixels;
};

} // namespace contrast
