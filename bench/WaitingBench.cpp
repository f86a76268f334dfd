// How long players wait for a game, and how long the window stops responding, on disks of several
// kinds. A player listens for a second and looks at the result for half of one.

#include "audio/c_XAudio.h"
#include "bench/SlowDisk.h"
#include "game/Evening.h"
#include "game/c_gMulti.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"
#include "tests/game/FixedSource.h"
#include "toolkit/c_Surface.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Asks the window for an answer all the time, and notes the longest time that one took.
class Heartbeat {
public:
    Heartbeat() : mThread([this](const std::stop_token& stop) { Beat(stop); }) {}
    double Longest() const { return mLongest; }

private:
    void Beat(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            const auto answered = std::make_shared<std::atomic<bool>>(false);
            const auto asked = Clock::now();
            QMetaObject::invokeMethod(
                qApp, [answered] { *answered = true; }, Qt::QueuedConnection);
            while (!*answered && !stop.stop_requested())
                std::this_thread::sleep_for(200us);
            if (*answered)
                mLongest = std::max(mLongest.load(), Milliseconds(Clock::now() - asked));
            std::this_thread::sleep_for(2ms);
        }
    }

    std::atomic<double> mLongest = 0;
    std::jthread mThread;
};

struct Waits {
    std::vector<double> first, next, sound; // milliseconds
    double silence = 0;                     // the longest
};

/// Plays a game and measures what its player waits for.
Waits Play(const fs::path& list) {
    f_Multi board;
    f_HighMulti scores;
    f_High name;
    game::Evening evening;
    Waits waits;
    auto since = Clock::now();
    double* due = &waits.first.emplace_back();
    int idle = 0;
    const auto arrived = [&] {
        if (due != nullptr)
            *std::exchange(due, nullptr) = Milliseconds(Clock::now() - since);
    };
    const auto press = [&](toolkit::PictureBox* box, std::vector<double>& wait, int after) {
        arrived();
        if (++idle < after)
            return;
        idle = 0;
        due = &wait.emplace_back();
        since = Clock::now();
        box->Activate();
    };
    QTimer player;
    player.callOnTimeout([&] {
        std::vector<double> none;
        none.reserve(1);
        if (board.pPlay->isVisible())
            press(board.pPlay, waits.sound, 1);
        else if (board.PChoice1->isVisible())
            press(board.PChoice1, none, 1000), due = idle == 0 ? nullptr : due;
        else if (board.pCont->isVisible())
            press(board.pCont, waits.next, 500);
        else if (name.isVisible()) // above the scores
            name.Text1->setText(QStringLiteral("Ann")), name.cmdContinue->click();
        else if (scores.isVisible())
            scores.pCont->Activate();
    });
    player.setTimerType(Qt::PreciseTimer);
    player.start(1);
    c_gMulti game({board, scores, name, evening},
                  [&] { return std::make_unique<FixedSource>(list); });
    const Heartbeat heart;
    game.Run();
    waits.next.pop_back(); // leads to the scores
    waits.silence = heart.Longest();
    return waits;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("SDL_AUDIODRIVER", "dummy");
    QApplication application(argc, argv);
    const platform::QuitWatch quitWatch;
    platform::SetMessageBox([](const platform::Message&) { return 0; });
    const QTemporaryDir folder;
    const fs::path home = folder.path().toStdString();
    fs::create_directory_symlink(fs::path(SONGRUSH_RUN_DIR) / "Images", home / "Images");
    fs::create_directory(home / "PlayList");
    platform::SetProgramFolder(home);
    gBack = std::make_unique<c_Surface>();
    gBack->CreateSurface(800, 600, QStringLiteral("Images\\Back.bmp"));

    c_M3U songs;
    for (const auto& file : fs::directory_iterator(fs::path(SONGRUSH_RUN_DIR) / "Music"))
        if (file.path().extension() == ".mp3")
            songs.Add(file.path());
    songs.WriteFile(home / "songs.m3u");
    for (int i = 0; i < 1'000'000; ++i)
        songs.Add("/gone/" + std::to_string(i) + ".mp3");
    songs.WriteFile(home / "dead.m3u");

    std::printf("%-28s %9s %9s %9s %9s %9s\n", "milliseconds", "1st song", "next", "slowest",
                "sound", "silence");
    const struct {
        const char* name;
        Disk disk;
        const char* list;
    } cases[] = {{"fast disk", Disk::Fast, "songs.m3u"},
                 {"5 MB/s", Disk::FiveMegabytes, "songs.m3u"},
                 {"every 40th read stalls 3 s", Disk::Stalls, "songs.m3u"},
                 {"1,000,000 dead entries", Disk::Fast, "dead.m3u"}};
    for (const auto& c : cases) {
        SetDisk(c.disk);
        const Waits waits = Play(home / c.list);
        std::printf("%-28s %9.1f %9.1f %9.1f %9.1f %9.1f\n", c.name, Median(waits.first),
                    Median(waits.next),
                    waits.next.empty() ? 0
                                       : *std::max_element(waits.next.begin(), waits.next.end()),
                    Median(waits.sound), waits.silence);
        std::fflush(stdout);
    }
    SetDisk(Disk::Fast);
    gAudio.reset();
    gBack.reset();
    platform::AsidesEnd(10s);
    return 0;
}
