#include "tools/contrast/Mask.h"

#include <algorithm>

namespace contrast {

Mask::Mask(const QSize& size)
    : mSize(size), mPixels(std::size_t(size.width()) * std::size_t(size.height())) {}

std::size_t Mask::Index(int x, int y) const {
    return std::size_t(y) * std::size_t(mSize.width()) + std::size_t(x);
}

bool Mask::Has(int x, int y) const {
    return x >= 0 && y >= 0 && x < Width() && y < Height() && mPixels[Index(x, y)];
}

void Mask::Add(int x, int y) {
    if (x >= 0 && y >= 0 && x < Width() && y < Height())
        mPixels[Index(x, y)] = true;
}

int Mask::Count() const { return int(std::count(mPixels.begin(), mPixels.end(), true)); }

Mask Mask::Grown(int radius) const {
    Mask rows(mSize); // grown to the sides first, then up and down
    Mask grown(mSize);
    for (int y = 0; y < Height(); ++y) {
        for (int x = 0; x < Width(); ++x) {
            for (int step = -radius; Has(x, y) && step <= radius; ++step)
                rows.Add(x + step, y);
        }
    }
    for (int y = 0; y < Height(); ++y) {
        for (int x = 0; x < Width(); ++x) {
            for (int step = -radius; rows.Has(x, y) && step <= radius; ++step)
                grown.Add(x, y + step);
        }
    }
    return grown;
}

bool Mask::HasSquare(int left, int top, int side) const {
    for (int y = top; y < top + side; ++y) {
        for (int x = left; x < left + side; ++x) {
            if (!Has(x, y))
                return false;
        }
    }
    return true;
}

Mask Mask::Thick(int side) const {
    Mask thick(mSize);
    for (int top = 0; top < Height(); ++top) {
        for (int left = 0; left < Width(); ++left) {
            const bool isWhole = HasSquare(left, top, side);
            for (int i = 0; isWhole && i < side * side; ++i)
                thick.Add(left + i % side, top + i / side);
        }
    }
    return thick;
}

Mask Mask::Without(const Mask& other) const {
    Mask rest(mSize);
    for (std::size_t i = 0; i < mPixels.size(); ++i)
        rest.mPixels[i] = mPixels[i] && !other.mPixels[i];
    return rest;
}

Mask Mask::With(const Mask& other) const {
    Mask all(mSize);
    for (std::size_t i = 0; i < mPixels.size(); ++i)
        all.mPixels[i] = mPixels[i] || other.mPixels[i];
    return all;
}

Mask Mask::Moved(int offset) const {
    Mask moved(mSize);
    for (int y = 0; y < Height(); ++y) {
        for (int x = 0; x < Width(); ++x) {
            if (Has(x, y))
                moved.Add(x + offset, y + offset);
        }
    }
    return moved;
}

} // namespace contrast
