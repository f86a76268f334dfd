#pragma once

#include "toolkit/Canvas.h"

#include <vector>

/// How the parts of a list look.
namespace toolkit {

enum class HeaderLook { Normal, Hover, Pressed };
enum class SortArrow { None, Upwards, Downwards };
enum class LineLook { Plain, Selected, SelectedWithFocus };

/// A text in its cell.
struct PlacedText {
    QRect cell;
    QString text;
    ColorRef color;
};

void DrawHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look,
                    SortArrow arrow);
void DrawSubHeaderCell(Hdc dc, const QRect& cell, const QString& text, HeaderLook look);

/// The ground of a line; every other line is a little lighter.
void DrawLineGround(Hdc dc, const QRect& line, bool lighter, LineLook look);

/// The edge of a line that has the keyboard cursor but is not selected.
void DrawLineFrame(Hdc dc, const QRect& line);

/// Where dragged lines would go: between two lines, at `y`, in or at the edge of `area`.
void DrawInsertion(Hdc dc, const QRect& area, int y);

/// Whether a text can be shown as a whole in a cell of that width.
bool FitsCell(const Canvas& canvas, const QString& text, int width);

/// Writes the texts vertically centred in their cells, clipped to `area`; what does not fit ends in
/// an ellipsis.
void DrawCellTexts(Hdc dc, const QRect& area, const std::vector<PlacedText>& cells);

/// The ground below the last line.
void DrawListGround(Hdc dc, const QRect& area);

/// The edge around the whole list.
void DrawListFrame(Hdc dc);

} // namespace toolkit
