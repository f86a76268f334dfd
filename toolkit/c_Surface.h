#pragma once

#include "toolkit/Canvas.h"
#include "toolkit/Picture.h"

#include <QString>
#include <memory>
#include <vector>

/// A set of off-screen surfaces, numbered from 0 in the order of their creation. Sizes are logical
/// pixels. An index that was never created throws std::out_of_range.
class c_Surface {
public:
    c_Surface() = default;
    c_Surface(const c_Surface&) = delete;
    c_Surface& operator=(const c_Surface&) = delete;

    /// Surfaces created so far, released ones included.
    int Count() const { return static_cast<int>(mSurfaces.size()); }

    /// Width and height given at creation; loading a file does not change them.
    int Width(int index) const { return At(index).width; }
    int Height(int index) const { return At(index).height; }

    /// The surface's canvas; null once the surfaces were released.
    toolkit::Hdc HDC(int index) const { return At(index).canvas.get(); }

    /// Adds a surface, filled from the bitmap `file` (as in "Images\X.bmp") unless that is empty.
    toolkit::Hdc CreateSurface(int width, int height, const QString& file);

    /// Adds a surface that shows `picture`.
    toolkit::Hdc CreateSurface(const toolkit::Picture& picture);

    /// Adds two surfaces: a skin and its mask, black where the skin has something to show and white
    /// elsewhere.
    void CreateSprite(const toolkit::Picture& skin);

    /// Releases all surfaces. The numbering continues where it was.
    void FreeSurfaces();

    /// Fills a surface from a bitmap file, scaled to the surface's size. A missing or damaged file
    /// is reported to the player, and the surface gets a plain ground.
    void LoadBmpToSurface(int index, const QString& file);

    /// Turns a surface into two colours: `replacement` where it had `key`, `other` elsewhere.
    void CreateMask(int index, toolkit::ColorRef key, toolkit::ColorRef other,
                    toolkit::ColorRef replacement);

private:
    struct Surface {
        std::unique_ptr<toolkit::Canvas> canvas;
        int width;
        int height;
    };

    const Surface& At(int index) const { return mSurfaces.at(static_cast<std::size_t>(index)); }

    std::vector<Surface> mSurfaces;
};

namespace toolkit {

/// The operation of `c_Surface::CreateMask` on any canvas.
void MaskPixels(Canvas& canvas, ColorRef key, ColorRef other, ColorRef replacement);

} // namespace toolkit

/// The background that every screen copies, 800 x 600; released by the start-up module.
extern std::unique_ptr<c_Surface> gBack;
