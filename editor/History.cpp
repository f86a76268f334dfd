#include "editor/History.h"

#include <utility>

namespace editor {

void History::Add(Step step) {
    constexpr std::size_t kMost = 200;
    mSteps.erase(mSteps.begin() + static_cast<std::ptrdiff_t>(mDone), mSteps.end());
    mSteps.push_back(std::move(step));
    if (mSteps.size() > kMost)
        mSteps.pop_front();
    mDone = mSteps.size();
}

void History::Undo() {
    if (mDone == 0 || mWorking)
        return;
    Take(mSteps[mDone - 1].undo, mDone - 1);
    --mDone;
}

void History::Redo() {
    if (mDone == mSteps.size() || mWorking)
        return;
    if (Take(mSteps[mDone].redo, mDone))
        ++mDone;
}

bool History::Take(const std::function<bool()>& step, std::size_t place) {
    mWorking = true;
    const bool done = step();
    mWorking = false;
    if (!done)
        mSteps.erase(mSteps.begin() + static_cast<std::ptrdiff_t>(place));
    return done;
}

void History::Clear() {
    mSteps.clear();
    mDone = 0;
}

} // namespace editor
