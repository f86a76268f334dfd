#pragma once

#include <QString>
#include <deque>
#include <functional>

namespace editor {

/// The steps that a player took and can take back, and take again.
class History {
public:
    struct Step {
        QString name; ///< in words: "Remove 3 songs"
        /// False if it could not be done; the step is then forgotten. Neither may be called again
        /// before it has returned, so events may run.
        std::function<bool()> undo;
        std::function<bool()> redo;
    };

    /// Notes a step that was taken. Those undone before can no longer be redone; of very many the
    /// oldest are forgotten.
    void Add(Step step);

    /// Gives the last step another name, when more of the same came to it.
    void RenameLast(const QString& name) { mSteps.back().name = name; }

    /// The names of the steps that come next; empty if there are none.
    QString UndoName() const { return mDone == 0 ? QString() : mSteps[mDone - 1].name; }
    QString RedoName() const { return mDone == mSteps.size() ? QString() : mSteps[mDone].name; }

    void Undo();
    void Redo();
    void Clear();

    /// How many steps were taken and not undone.
    std::size_t Done() const { return mDone; }

private:
    bool Take(const std::function<bool()>& step, std::size_t place);

    std::deque<Step> mSteps;
    std::size_t mDone = 0; // those before this one
    bool mWorking = false;
};

} // namespace editor
