// How a picture list is drawn.

#include "toolkit/ListAccessible.h"
#include "toolkit/ListFace.h"
#include "toolkit/Palette.h"
#include "toolkit/c_PicListState.h"

#include <algorithm>

using namespace toolkit;

void c_PicList::Draw() {
    mState->dirty = false;
    AdjustScroller();
    DrawLines();
    DrawHeaders();
    mState->scroller.Draw(mState->box->Dc());
    DrawListFrame(mState->box->Dc());
    mState->sinceDrawn.start();
    TellReaders();
}

void c_PicList::TellReaders() {
    if (std::exchange(mState->announcedCount, LineCount()) != LineCount())
        AnnounceLineCount(*mState->box);
    if (!std::exchange(mState->linesChanged, false))
        return;
    AnnounceLines(*mState->box);
    AnnounceCursor(mState->box, *this);
}

void c_PicList::DrawLines() {
    const ListLayout layout = Layout();
    const QRect area = layout.Lines();
    const int top = mState->scroller.Top();
    const Hdc dc = mState->box->Dc();
    const LineLook selectedLook =
        mState->box->hasFocus() ? LineLook::SelectedWithFocus : LineLook::Selected;
    DrawListGround(dc, area);
    std::vector<PlacedText> texts;
    const int end = std::min(layout.LineAt(area.bottom(), top) + 1, LineCount());
    for (int line = layout.LineAt(area.y(), top); line < end; ++line) {
        const QRect first = layout.LineCell(line, 0, top);
        const QRect whole(area.x(), first.y(), area.width(), first.height());
        DrawLineGround(dc, whole, line % 2 != 0,
                       line == mState->selected ? selectedLook : LineLook::Plain);
        if (line == mState->cursor && line != mState->selected && mState->box->hasFocus())
            DrawLineFrame(dc, whole);
        for (int column = 0; column < ColumnCount(); ++column) {
            const QRect cell = layout.LineCell(line, column, top);
            ListCell printed{line, column, CellText(line, column), kNightText};
            Q_EMIT LinePrint(printed);
            texts.push_back({cell, printed.text, printed.color});
        }
    }
    DrawCellTexts(dc, area, texts);
    if (!mState->dragged.empty())
        DrawInsertion(dc, area, layout.LineTop(mState->dropBefore, top));
}

void c_PicList::DrawHeaders() {
    const ListLayout layout = Layout();
    const Hdc dc = mState->box->Dc();
    const auto look = [this](ListLayout::Spot spot) {
        if (spot != mState->hover)
            return HeaderLook::Normal;
        return spot == mState->pressed ? HeaderLook::Pressed : HeaderLook::Hover;
    };
    using Part = ListLayout::Part;
    const SortArrow arrow = mState->downwards ? SortArrow::Downwards : SortArrow::Upwards;
    for (int column = 0; column < ColumnCount(); ++column) {
        DrawHeaderCell(dc, layout.HeaderCell(column), HeaderText(column),
                       look({Part::Header, column}),
                       column == mState->sortedColumn ? arrow : SortArrow::None);
        if (!mState->subHeader.isEmpty())
            DrawSubHeaderCell(dc, layout.SubHeaderCell(column), SubHeaderText(column),
                              look({Part::SubHeader, column}));
    }
}
