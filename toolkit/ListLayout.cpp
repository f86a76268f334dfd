#include "toolkit/ListLayout.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

constexpr int kFrame = 1;
constexpr int kGrip = 4; // to the left and right of a border

} // namespace

ListLayout::ListLayout(const QSize& box, double textHeight, const ListColumns& columns,
                       bool hasSubHeader, int scrollerWidth)
    : mLineHeight(static_cast<int>(std::ceil(textHeight)) + 4) {
    const QRect inside = QRect(QPoint(0, 0), box).adjusted(kFrame, kFrame, -kFrame, -kFrame);
    const int width = inside.width() - scrollerWidth;
    mHeader = QRect(inside.x(), inside.y(), width, mLineHeight + 6);
    mSubHeader = QRect(inside.x(), mHeader.bottom() + 1, width, hasSubHeader ? mLineHeight : 0);
    const int top = mSubHeader.y() + mSubHeader.height();
    mLines = QRect(inside.x(), top, width, inside.bottom() + 1 - top);
    mScroller = QRect(inside.x() + width, inside.y(), scrollerWidth, inside.height());
    mEdges = columns.Edges(width);
    for (int& edge : mEdges)
        edge += inside.x();
}

QRect ListLayout::Cell(int column, const QRect& row) const {
    const auto number = static_cast<std::size_t>(column);
    return QRect(mEdges[number], row.y(), mEdges[number + 1] - mEdges[number], row.height());
}

QRect ListLayout::LineCell(int line, int column, int top) const {
    return Cell(column, QRect(0, LineTop(line, top), 0, mLineHeight));
}

ListLayout::Spot ListLayout::At(const QPointF& point) const {
    // A pointer pushed against the edge of the screen is still on whatever lies there.
    if (point.x() >= mScroller.x())
        return {Part::Scroller, -1};
    if (point.x() < 0 || point.y() < 0 || point.y() > mLines.bottom() + 1 + kFrame)
        return {};
    const auto edge = std::upper_bound(mEdges.begin() + 1, mEdges.end() - 1, point.x());
    const auto column = static_cast<int>(edge - mEdges.begin()) - 1;
    if (point.y() < mHeader.bottom() + 1) {
        for (const int border : {column - 1, column})
            if (IsBorder(border) && std::abs(point.x() - BorderAt(border)) <= kGrip)
                return {Part::Border, border};
        return {Part::Header, column};
    }
    return {point.y() < mLines.y() ? Part::SubHeader : Part::Lines, column};
}

int ListLayout::LineAt(double y, int top) const {
    return static_cast<int>(std::floor((y - mLines.y() + top) / mLineHeight));
}

} // namespace toolkit
