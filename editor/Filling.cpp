#include "editor/Filling.h"

#include "library/SongScan.h"
#include "library/c_ID3.h"
#include "platform/Text.h"
#include "platform/Wait.h"

#include <utility>

namespace editor {

namespace fs = std::filesystem;

void Filling::AddFolder(const fs::path& folder) {
    mJobs.push_back([this, folder] { ReadFolder(folder); });
    Work();
}

void Filling::Load(const QString& name, std::vector<fs::path> songs) {
    mDropped = true;
    mJobs.clear();
    mJobs.push_back([this, name, songs = std::move(songs)] { ReadSongs(name, songs); });
    Work();
}

void Filling::Work() {
    if (std::exchange(mWorking, true))
        return;
    while (!mJobs.empty() && mList.wanted()) {
        const std::function<void()> job = std::move(mJobs.front());
        mJobs.pop_front();
        mDropped = false;
        job();
    }
    mJobs.clear();
    mReading.clear();
    mWorking = false;
    mList.show();
}

void Filling::ReadFolder(const fs::path& folder) {
    int added = 0;
    library::ScanSongs(folder, {[&](const fs::path& entered) {
                                    mReading = platform::ShownText(entered);
                                    added = 0;
                                    mList.show();
                                    return GoOn();
                                },
                                [&](const fs::path& song, const c_ID3& tag) {
                                    mList.add(song, tag);
                                    ShowNowAndThen(++added);
                                    return GoOn();
                                }});
}

void Filling::ReadSongs(const QString& name, const std::vector<fs::path>& songs) {
    mReading = name;
    c_ID3 tag;
    int added = 0;
    for (auto song = songs.begin(); song != songs.end() && GoOn(); ++song) {
        tag.GetIdTag(*song);
        mList.add(*song, tag);
        ShowNowAndThen(++added);
    }
}

bool Filling::GoOn() {
    platform::PumpEventsNowAndThen();
    return !mDropped && mList.wanted();
}

void Filling::ShowNowAndThen(int added) const {
    constexpr int kEvery = 10;
    if (added % kEvery == 0)
        mList.show();
}

} // namespace editor
