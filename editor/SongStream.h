#pragma once

#include "editor/SongChange.h"

#include <QString>
#include <mutex>
#include <utility>
#include <vector>

namespace editor {

/// A line of the editor's list: a song's file name, title and artist, and its path.
struct Line {
    QString text;       ///< three columns; see `c_PicList`
    QString key;        ///< see `platform::KeyFromPath`
    bool newer = false; ///< title and artist are those of a newer tag than ID3v1
    bool missing = false;
};

Line LineOf(const SongFacts& song);

/// Takes what a thread reads of songs to the window. For one thread at each end.
class SongStream {
public:
    // For the reader; a false answer tells it to stop.

    bool Put(Line line) {
        const std::lock_guard lock(mMutex);
        mLines.push_back(std::move(line));
        return !mStopped;
    }
    bool Tell(const QString& progress) {
        const std::lock_guard lock(mMutex);
        mProgress = progress;
        return !mStopped;
    }
    /// The playlist is another program's, which is never written.
    void BeForeign() {
        const std::lock_guard lock(mMutex);
        mForeign = true;
    }
    /// Says, in a sentence, why there is nothing to read.
    void Fail(const QString& why) {
        const std::lock_guard lock(mMutex);
        mFailure = why;
    }
    void End() {
        const std::lock_guard lock(mMutex);
        mEnded = true;
    }

    // For the window.

    struct News {
        std::vector<Line> lines; ///< read since the last look, in order
        QString progress;
        QString failure;
        bool foreign;
        bool ended; ///< nothing comes after this
    };
    News Take() {
        const std::lock_guard lock(mMutex);
        return {std::exchange(mLines, {}), mProgress, mFailure, mForeign, mEnded};
    }
    void Stop() {
        const std::lock_guard lock(mMutex);
        mStopped = true;
    }

private:
    std::mutex mMutex;
    std::vector<Line> mLines;
    QString mProgress;
    QString mFailure;
    bool mForeign = false;
    bool mEnded = false;
    bool mStopped = false;
};

} // namespace editor
