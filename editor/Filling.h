#pragma once

#include "editor/SongReading.h"
#include "platform/Aside.h"

#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace editor {

/// Reads songs for the editor, one job after the other, each on a thread of its own, and hands over
/// the results from the event loop. Jobs asked for meanwhile wait for their turn.
class Filling {
public:
    struct Job {
        QString name; ///< in words, shown until the reading tells how far it is
        Reading read;
        /// Gets the lines read since the last call.
        std::function<void(const SongStream::News& news)> take;
        /// Called when there are no more lines; not after a stop.
        std::function<void(const SongStream::News& news)> end = [](const auto&) {};
    };

    /// `show` is called when `Busy` or `Progress` may have changed.
    explicit Filling(std::function<void()> show);
    ~Filling();

    /// Does a job after all that was asked for before.
    void Do(Job job);

    /// Gives up the job under way and all others, without waiting for threads.
    void Stop();

    bool Busy() const { return mStream != nullptr; }

    /// What is being read, to be shown; empty when nothing is.
    const QString& Progress() const { return mProgress; }

private:
    void Next();
    void Look();

    std::function<void()> mShow;
    std::deque<Job> mJobs;               // the first one is under way
    std::shared_ptr<SongStream> mStream; // of that one
    std::optional<platform::Aside> mReader;
    QString mProgress;
    QTimer mLook;
};

} // namespace editor
