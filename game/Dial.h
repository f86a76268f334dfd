#pragma once

#include <QString>
#include <vector>

namespace toolkit {
class Screen;
}

namespace game {

/// The instrument above the question: a scale of what an answer is still worth, a needle that
/// follows the clock, and a lamp behind the clock's digits. It draws on the board.
class Dial {
public:
    explicit Dial(toolkit::Screen& board) : mBoard(board) {}

    /// Shows a scale of the points, which fall with time, and the needle at its start.
    void ShowPoints();
    /// Shows a scale of `seconds`, at least 1.
    void ShowSeconds(int seconds);
    /// Lights the ground of the clock's digits.
    void LightLamp();
    /// Moves the needle to `seconds`; beyond the scale it stays at its end.
    void PointTo(float seconds);

private:
    struct Mark {
        float seconds;
        QString label;
    };
    /// Marks at even distances between which the needle moves evenly.
    struct Scale {
        std::vector<Mark> marks;
        double At(float seconds) const; ///< in logical pixels of the board
    };

    void Show(Scale scale);
    void Draw(float seconds);

    toolkit::Screen& mBoard;
    Scale mScale;
};

} // namespace game
