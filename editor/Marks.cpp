#include "editor/Marks.h"

#include <algorithm>
#include <utility>

namespace editor {

void Marks::Begin(int lines, int selected) {
    mMarks.assign(static_cast<std::size_t>(lines), false);
    mLastSel = mRangeStart = selected;
}

bool Marks::Select(int line, Keys keys) {
    // The keyboard extends one range step by step.
    if (keys.range && keys.byKeyboard && mRangeStart >= 0)
        mLastSel = mRangeStart;
    else
        mRangeStart = line;
    bool changed = false;
    if (!keys.add)
        changed = Clear(); // all may be marked before any line was selected
    if (mLastSel >= 0) {
        changed = changed || keys.range || keys.add;
        if (keys.range)
            MarkRange(mLastSel, line);
        else if (keys.add)
            MarkRange(line, line);
    }
    mLastSel = line;
    return changed;
}

void Marks::Reorder(const std::vector<int>& before) {
    const std::vector<bool> marks = std::exchange(mMarks, std::vector<bool>(before.size()));
    const int last = mLastSel;
    const int start = mRangeStart;
    for (std::size_t line = 0; line < before.size(); ++line) {
        mMarks[line] = marks[static_cast<std::size_t>(before[line])];
        if (before[line] == last)
            mLastSel = static_cast<int>(line);
        if (before[line] == start)
            mRangeStart = static_cast<int>(line);
    }
}

void Marks::MarkRange(int from, int to) {
    const auto [first, last] = std::minmax(from, to);
    std::fill(mMarks.begin() + first, mMarks.begin() + last + 1, true);
}

bool Marks::Clear() {
    const bool any = std::find(mMarks.begin(), mMarks.end(), true) != mMarks.end();
    mMarks.assign(mMarks.size(), false);
    return any;
}

} // namespace editor
