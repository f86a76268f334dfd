#include "game/Podium.h"

#include "game/Crown.h"
#include "game/PlayerColor.h"
#include "toolkit/Drawing.h"
#include "toolkit/Form.h"

#include <QPainter>
#include <algorithm>

using namespace toolkit;

namespace game {

namespace {

constexpr int kCrown = 22; // its height

struct Step {
    int place;
    double height; // as a part of the first one's
    ColorRef metal;
};

/// From left to right.
constexpr Step kSteps[] = {
    {2, 0.68, Rgb(206, 214, 234)}, {1, 1.0, Rgb(255, 208, 70)}, {3, 0.44, Rgb(222, 150, 96)}};

std::vector<int> PlayersAt(int place, const std::vector<Standing>& standings) {
    std::vector<int> players;
    for (const Standing& standing : standings)
        if (standing.place == place && standing.score > 0)
            players.push_back(standing.player);
    return players;
}

void DrawStep(Hdc dc, const QRect& area, const Step& step) {
    constexpr double kRound = 5;
    constexpr int kEdge = 3;
    const QColor metal = ToQColor(step.metal);
    Drawing(dc).Shapes(area, [area, metal](QPainter& painter) {
        QLinearGradient body(area.topLeft(), area.bottomLeft());
        body.setColorAt(0, QColor(46, 58, 176));
        body.setColorAt(1, QColor(12, 10, 60));
        painter.setPen(Qt::NoPen);
        painter.setBrush(metal);
        painter.drawRoundedRect(area, kRound, kRound);
        painter.setBrush(body);
        painter.drawRoundedRect(area.adjusted(1, kEdge, -1, 0), kRound, kRound);
    });
    const int points = std::min(area.height() / 2, 30);
    dc->SetFont(ScreenFont(points, true));
    const double top = area.y() + (area.height() + kEdge - dc->TextHeight()) / 2;
    CenteredText(dc, QString::number(step.place), area.x() + area.width() / 2.0, top, area.width(),
                 step.metal, 2);
}

void DrawPlayer(Hdc dc, const QRect& area, int player) {
    const QColor color = ToQColor(PlayerColor(player));
    Drawing(dc).Shapes(area, [area, color](QPainter& painter) {
        QRadialGradient ball(QRectF(area).center(), area.width() / 2.0,
                             area.topLeft() + QPointF(area.width(), area.height()) * 0.35);
        ball.setColorAt(0, color.lighter(125));
        ball.setColorAt(0.6, color);
        ball.setColorAt(1, color.darker(150));
        painter.setPen(QPen(QColor(10, 8, 40), 1.5));
        painter.setBrush(ball);
        painter.drawEllipse(QRectF(area).adjusted(1, 1, -1, -1));
    });
    dc->SetFont(ScreenFont(area.height() * 0.4, true));
    const QString number = QString::number(player);
    Drawing(dc).Text(number, kBlack, area.x() + (area.width() - dc->TextWidth(number)) / 2,
                     area.y() + (area.height() - dc->TextHeight()) / 2);
}

int RowsOf(std::size_t players, int inRow) {
    return (static_cast<int>(players) + inRow - 1) / inRow;
}

struct Sizes {
    int step;   // how wide each is
    int ball;   // of a player
    int inRow;  // how many stand side by side
    int height; // of the first step
};

/// Chooses balls small enough to leave room for the steps below them.
Sizes SizesIn(const QRect& area, const std::vector<Standing>& standings) {
    constexpr int kLargest = 34;
    constexpr int kSmallest = 16;
    constexpr int kHighest = 130;
    constexpr int kLowest = 30;
    const int step = area.width() / static_cast<int>(std::size(kSteps));
    for (int ball = std::min(step / 2, kLargest);; --ball) {
        const int inRow = step / ball;
        double height = kHighest;
        for (const auto& [place, share, metal] : kSteps) {
            const int rows = RowsOf(PlayersAt(place, standings).size(), inRow);
            height = std::min(height, (area.height() - kCrown - rows * ball) / share);
        }
        if (height >= kLowest || ball == kSmallest)
            return {step, ball, inRow, static_cast<int>(height)};
    }
}

/// Draws the players in rows, one above the other, the first of them upon `bottom`; where they end.
int DrawPlayers(Hdc dc, int center, int bottom, const Sizes& sizes,
                const std::vector<int>& players) {
    const auto inRow = static_cast<std::size_t>(sizes.inRow);
    for (std::size_t first = 0; first < players.size(); first += inRow) {
        const std::size_t end = std::min(first + inRow, players.size());
        int left = center - sizes.ball * static_cast<int>(end - first) / 2;
        bottom -= sizes.ball;
        for (std::size_t i = first; i < end; ++i, left += sizes.ball)
            DrawPlayer(dc, QRect(left, bottom, sizes.ball, sizes.ball), players[i]);
    }
    return bottom;
}

} // namespace

void DrawPodium(Hdc dc, const QRect& area, const std::vector<Standing>& standings) {
    constexpr int kCrownWidth = 30;
    const Sizes sizes = SizesIn(area, standings);
    int left = area.x();
    for (const Step& step : kSteps) {
        const int height = static_cast<int>(sizes.height * step.height);
        const QRect place(left + 1, area.y() + area.height() - height, sizes.step - 2, height);
        const std::vector<int> players = PlayersAt(step.place, standings);
        DrawStep(dc, place, step);
        const int center = left + sizes.step / 2;
        const int top = DrawPlayers(dc, center, place.y(), sizes, players);
        if (step.place == 1)
            DrawCrown(dc, QRect(center - kCrownWidth / 2, top - kCrown, kCrownWidth, kCrown),
                      step.metal);
        left += sizes.step;
    }
}

} // namespace game
