#include "game/PlayerColor.h"

#include <array>

using toolkit::Rgb;

namespace game {

toolkit::ColorRef PlayerColor(int player) {
    // Neighbours differ most.
    static constexpr std::array kColors{
        Rgb(255, 208, 70),  Rgb(70, 208, 255),  Rgb(255, 120, 200), Rgb(120, 230, 100),
        Rgb(190, 150, 255), Rgb(255, 150, 70),  Rgb(80, 235, 205),  Rgb(255, 112, 112),
        Rgb(205, 240, 80),  Rgb(125, 165, 255), Rgb(255, 190, 205), Rgb(214, 218, 232),
    };
    return kColors.at(static_cast<std::size_t>(player - 1) % kColors.size());
}

} // namespace game
