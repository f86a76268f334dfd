#pragma once

#include "toolkit/ColorRef.h"

/// The colours that several parts of the program share. Those of a single screen are kept with it.
namespace toolkit {

/// A box that looks raised by its lighter top and left edges.
struct Bevel {
    ColorRef light;
    ColorRef dark;
    ColorRef fill;
};

// Windows and texts.
constexpr ColorRef kFrameLight = Rgb(0, 150, 250);
constexpr ColorRef kFrameDark = Rgb(0, 60, 160);
constexpr ColorRef kNightText = Rgb(226, 226, 255);
constexpr ColorRef kField = Rgb(10, 8, 36);     // text boxes; almost black
constexpr ColorRef kListGround = Rgb(8, 6, 28); // so dark that red text is readable on it
constexpr ColorRef kNavy = Rgb(0, 0, 100);

constexpr ColorRef kGreyText = Rgb(150, 152, 190); // the level of a volume that is not heard

// Accents.
constexpr ColorRef kGold = Rgb(255, 221, 120);  // the keyboard focus
constexpr ColorRef kPink = Rgb(255, 108, 192);  // edges of what is pressed
constexpr ColorRef kDusk = Rgb(20, 12, 60);     // and its ground
constexpr ColorRef kLilac = Rgb(170, 150, 255); // edges under the pointer
constexpr ColorRef kPeriwinkle = Rgb(143, 160, 255);
constexpr ColorRef kAzure = Rgb(0, 100, 250);
constexpr ColorRef kRed = Rgb(255, 0, 0);

} // namespace toolkit
