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
    double height; // of the first one's
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

} // namespace

void DrawPodium(Hdc dc, const QRect& area, const std::vector<Standing>& standings) {
    const int width = area.width() / static_cast<int>(std::size(kSteps));
    const int ball = std::min(width / 2, 34);
    const int inRow = width / ball;
    const auto rows = [inRow](std::size_t players) {
        return (static_cast<int>(players) + inRow - 1) / inRow;
    };
    double height = 130; // of the first step
    for (const Step& step : kSteps)
        height = std::min(height, (area.height() - kCrown -
                                   ball * rows(PlayersAt(step.place, standings).size())) /
                                      step.height);
    int left = area.x();
    for (const Step& step : kSteps) {
        int top = area.y() + area.height() - static_cast<int>(height * step.height);
        DrawStep(dc, QRect(left + 1, top, width - 2, area.y() + area.height() - top), step);
        const std::vector<int> players = PlayersAt(step.place, standings);
        for (std::size_t first = 0; first < players.size();
             first += static_cast<std::size_t>(inRow)) {
            const auto end = std::min(first + static_cast<std::size_t>(inRow), players.size());
            int x = left + (width - ball * static_cast<int>(end - first)) / 2;
            top -= ball;
            for (std::size_t i = first; i < end; ++i, x += ball)
                DrawPlayer(dc, QRect(x, top, ball, ball), players[i]);
        }
        if (step.place == 1 && !players.empty())
            DrawCrown(dc, QRect(left + width / 2 - 15, top - kCrown, 30, kCrown), step.metal);
        left += width;
    }
}

} // namespace game
