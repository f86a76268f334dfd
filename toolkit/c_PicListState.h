#pragma once

#include "toolkit/DragStart.h"
#include "toolkit/ListColumns.h"
#include "toolkit/ListLayout.h"
#include "toolkit/ListLines.h"
#include "toolkit/PictureBox.h"
#include "toolkit/ScrollBar.h"
#include "toolkit/TypeAhead.h"
#include "toolkit/c_PicList.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

/// The state of a picture list.
struct c_PicList::State {
    QPointer<toolkit::PictureBox> box;
    QString headers;
    QString subHeader;
    toolkit::ListColumns columns;

    toolkit::ListLines lines;
    int selected = -1;
    int cursor = -1;
    std::function<bool(int)> isMarked = [](int) { return false; };
    int moves = 0;
    int sortedColumn = -1;
    bool downwards = false;

    toolkit::ScrollBar scroller;
    toolkit::TypeAhead typeAhead;
    toolkit::ListLayout::Spot hover;
    toolkit::ListLayout::Spot pressed;
    toolkit::ListColumns columnsBefore; // from before a border was dragged
    double borderGrip = 0;              // from the border to the pointer

    toolkit::DragStart dragStart; // of lines
    int waiting = -1;             // a marked line that was pressed, to be selected at the release
    std::vector<int> dragged;
    int dropBefore = 0; // a line, or their number
    QPointF dragPlace;
    QTimer dragScroll;    // while the pointer is at an edge
    double wheelRest = 0; // of a pixel

    bool dirty = false;
    int announcedCount = 0;    // of lines, to screen readers
    bool linesChanged = false; // not yet told to screen readers
    QElapsedTimer sinceDrawn;
    QTimer drawTimer;
};
