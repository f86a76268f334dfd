#include "game/AnswerScreen.h"

#include "game/PlayerColor.h"
#include "game/f_Multi.h"
#include "platform/Chance.h"
#include "platform/Motion.h"
#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"
#include "toolkit/Place.h"

#include <QPainter>
#include <algorithm>

using namespace toolkit;

namespace game {

namespace {

constexpr int kMiddle = 400;
constexpr int kLines[] = {200, 280, 360};
constexpr int kNotice = 407;
constexpr int kSong = 436;
constexpr QRect kStandings(14, 505, 772, 26);

void PaintGround(Drawing& drawing, const QRect& area, double radius) {
    drawing.Shapes(area, [area, radius](QPainter& painter) {
        painter.setPen(QPen(QColor(122, 140, 255, 90), 1));
        painter.setBrush(QColor(6, 4, 26, 222));
        painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    });
}

void DrawStorm(f_Multi& board) {
    using platform::Rnd;
    using platform::RndRounded;
    Drawing drawing(board.Dc());
    for (int i = 0; i < 60; ++i) {
        board.SetFontSize(Rnd() * 58 + 14);
        const int red = RndRounded(100);
        const int green = RndRounded(100);
        const int blue = RndRounded(100);
        const double x = Rnd() * 800 - 100;
        const double y = Rnd() * 500 + 100;
        drawing.Text(QStringLiteral("Wrong"), Rgb(red, green, blue), kBlack, x, y, 3);
    }
}

/// Under the three lines and the song, as wide as the title that is written there.
void PaintGroundOfWrong(Hdc dc, const QString& title) {
    constexpr double kNarrowest = 620;
    constexpr double kWidest = 780; // of a line on the board
    constexpr int kBeside = 10;
    const double line = FitText(title, ScreenFont(32), kWidest).width;
    const int wide = static_cast<int>(std::max(line + 2 * kBeside, kNarrowest));
    Drawing drawing(dc);
    PaintGround(drawing, QRect(kMiddle - wide / 2, 188, wide, 318), 24);
}

void PaintPlayer(QPainter& painter, const QRectF& place, int player) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(PlayerColor(player)));
    painter.drawEllipse(place);
    painter.setPen(QColor(50, 0, 100));
    painter.setFont(ScreenFont(9, true));
    painter.drawText(place, Qt::AlignCenter, QString::number(player));
}

} // namespace

AnswerScreen::AnswerScreen(f_Multi& board) : mBoard(board), mRecord(&board), mBurst(&board) {
    constexpr int kCounting = 900; // milliseconds
    mTotal.setDuration(kCounting);
    mTotal.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&mTotal, &QVariantAnimation::valueChanged, &mTotal,
                     [this](const QVariant& total) { mBoard.ShowScore(total.toInt()); });
}

void AnswerScreen::WriteLine(const QString& text, int y, ColorRef color) {
    mBoard.WriteCentered(text, y, color);
}

void AnswerScreen::WriteRight(const QString& verdict, const QString& time, std::int32_t points) {
    mBoard.SetFontSize(32);
    WriteLine(verdict, kLines[0], kWhite);
    WriteLine(time, kLines[1], Rgb(50, 100, 250));
    WriteLine(QStringLiteral("%1 Points").arg(points), kLines[2], kRed);
}

void AnswerScreen::WriteWrong(const QString& verdict, const QString& title) {
    DrawStorm(mBoard);
    PaintGroundOfWrong(mBoard.Dc(), title);
    mBoard.SetFontSize(32);
    WriteLine(verdict, kLines[0], kWhite);
    WriteLine(QStringLiteral("The Correct Answer Is:"), kLines[1], Rgb(250, 250, 250));
    WriteLine(title, kLines[2], Rgb(60, 230, 60));
}

void AnswerScreen::Celebrate(const QRect& button, int player) {
    mBurst.Begin(button, PlayerColor(player));
}

void AnswerScreen::WriteNotice(const QString& text) {
    mBoard.SetFontSize(16);
    WriteLine(text, kNotice, kGold);
}

void AnswerScreen::ShowSong(const QString& title, const QString& artist) {
    constexpr double kWidest = 440;
    constexpr double kSmallest = 0.75; // the artist is written small already
    constexpr int kGap = 14;
    const Hdc dc = mBoard.Dc();
    const FittedText name = FitText(title, ScreenFont(18), kWidest, kSmallest);
    const FittedText by = FitText(artist, ScreenFont(13), kWidest, kSmallest);
    const double wide = LabelRecord::kSide + kGap + std::max(name.width, by.width);
    const int left = static_cast<int>(kMiddle - wide / 2);
    const int text = left + LabelRecord::kSide + kGap;
    Put(mRecord, QRect(left, kSong, LabelRecord::kSide, LabelRecord::kSide));
    mRecord.SetCover(QImage());
    mRecord.Start();
    Drawing drawing(dc);
    dc->SetFont(name.font);
    const double below = dc->TextHeight();
    dc->SetFont(by.font);
    const double high = below + (artist.isEmpty() ? 0 : dc->TextHeight());
    const double top = kSong + (LabelRecord::kSide - high) / 2;
    drawing.Text(by.text, kNightText, kBlack, text, top + below, 2);
    dc->SetFont(name.font);
    drawing.Text(name.text, kWhite, kBlack, text, top, 2);
    mBoard.AddQuietCaption(title, QRectF(text, top, name.width, below).toAlignedRect());
    if (!artist.isEmpty())
        mBoard.AddCaption(QStringLiteral("By %1").arg(artist),
                          QRectF(text, top + below, by.width, high - below).toAlignedRect());
    mBoard.Refresh();
}

void AnswerScreen::CountUp(std::int32_t total, std::int32_t points) {
    mBoard.SetFontSize(24);
    mBoard.DrawScore(total);
    if (points == 0)
        return;
    mBoard.DrawStake(QStringLiteral("+%L1").arg(points));
    if (platform::MotionReduced())
        return;
    mTotal.setStartValue(total - points);
    mTotal.setEndValue(total);
    mTotal.start();
}

void AnswerScreen::WriteStandings(const std::vector<std::int32_t>& scores) {
    constexpr double kDisc = 16;
    constexpr double kGap = 4;
    const int shown = std::min(static_cast<int>(scores.size()), kMostShown);
    const int wide = std::min(kStandings.width() / shown, 120);
    QRect strip = kStandings;
    strip.setWidth(wide * shown);
    strip.moveCenter(QPoint(kMiddle, kStandings.center().y()));
    Drawing drawing(mBoard.Dc());
    PaintGround(drawing, strip, strip.height() / 2.0);
    for (int player = 1; player <= shown; ++player) {
        const QRect cell(strip.x() + wide * (player - 1), strip.y(), wide, strip.height());
        const QString score =
            QStringLiteral("%L1").arg(scores[static_cast<std::size_t>(player - 1)]);
        const FittedText text = FitText(score, ScreenFont(11), wide - kDisc - 2 * kGap);
        const double left = cell.x() + (wide - kDisc - kGap - text.width) / 2;
        const QRectF disc(left, cell.y() + (cell.height() - kDisc) / 2.0, kDisc, kDisc);
        drawing.Shapes(cell, [=](QPainter& painter) {
            PaintPlayer(painter, disc, player);
            painter.setFont(text.font);
            painter.setPen(ToQColor(kNightText));
            painter.drawText(QRectF(disc.right() + kGap, cell.y(), text.width + 2, cell.height()),
                             Qt::AlignVCenter | Qt::AlignLeft, text.text);
        });
        mBoard.AddQuietCaption(QStringLiteral("Player %1: %2").arg(player).arg(score), cell);
    }
    mBoard.Refresh(strip);
}

void AnswerScreen::Close() {
    mTotal.stop();
    mBurst.End();
    mRecord.Stop();
}

} // namespace game
