#include "editor/Filling.h"

#include <utility>

namespace editor {

Filling::Filling(std::function<void()> show) : mShow(std::move(show)) {
    constexpr int kLookEvery = 20; // milliseconds
    mLook.setInterval(kLookEvery);
    QObject::connect(&mLook, &QTimer::timeout, &mLook, [this] { Look(); });
}

Filling::~Filling() {
    if (Busy())
        mStream->Stop();
}

void Filling::Do(Job job) {
    mJobs.push_back(std::move(job));
    if (!Busy())
        Next();
    mShow();
}

void Filling::Stop() {
    if (!Busy())
        return;
    mStream->Stop();
    mStream.reset();
    mJobs.clear();
    mLook.stop();
    mProgress.clear();
    mShow();
}

void Filling::Next() {
    mStream = std::make_shared<SongStream>();
    mProgress = mJobs.front().name;
    mReader.emplace([stream = mStream, read = mJobs.front().read](const std::stop_token&) {
        read(*stream);
        stream->End();
    });
    mLook.start();
}

void Filling::Look() {
    const std::shared_ptr<SongStream> stream = mStream;
    const SongStream::News news = stream->Take();
    if (!news.progress.isEmpty())
        mProgress = news.progress;
    const Job job = mJobs.front();
    if (!news.lines.empty())
        job.take(news);
    if (stream == mStream && news.ended) {
        mJobs.pop_front();
        mStream.reset();
        mProgress.clear();
        mLook.stop();
        if (!mJobs.empty())
            Next();
        job.end(news);
    }
    mShow();
}

} // namespace editor
