#include "editor/Marks.h"

#include <algorithm>
#include <utility>

namespace editor {

void Marks::Begin(int lines, int selected) {
    mMarks.assign(static_cast<std::size_t>(lines), false);
    mLastSel = mRangeStart = selected;
}

int Marks::Select(int line, Keys keys) {
    // The keyboard extends one range step by step.
    if (keys.range && keys.byKeyboard && mRangeStart >= 0)
        mLastSel = mRangeStart;
    else
        mRangeStart = line;
    if (!keys.add)
        mMarks.assign(mMarks.size(), false);
    if (keys.range && mLastSel >= 0)
        MarkRange(mLastSel, line);
    else if (keys.add && !keys.range)
        Toggle(line);
    return mLastSel = NearestMarked(line);
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

void Marks::Toggle(int line) {
    if (std::ranges::find(mMarks, true) == mMarks.end()) {
        if (mLastSel < 0)
            return;
        mMarks[static_cast<std::size_t>(mLastSel)] = true;
    }
    mMarks[static_cast<std::size_t>(line)] = !Has(line);
}

/// The line itself if none is marked.
int Marks::NearestMarked(int line) const {
    const int count = static_cast<int>(mMarks.size());
    for (int way = 0; way < count; ++way)
        for (const int candidate : {line + way, line - way})
            if (candidate >= 0 && candidate < count && Has(candidate))
                return candidate;
    return line;
}

} // namespace editor
