// A list of 100,000 songs: filling, sorting, finding, removing half of them, and what is done
// between two pictures.

#include "platform/ProgramFolder.h"
#include "toolkit/Form.h"
#include "toolkit/Picture.h"
#include "toolkit/c_PicList.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <random>

namespace {

using namespace toolkit;

constexpr int kSongs = 100'000;

class SongList {
public:
    SongList() {
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir(QStringLiteral("Images"));
        PlainSkin(QSize(16, 48))
            .load()
            .save(folder.filePath(QStringLiteral("Images/sBar.bmp")), "BMP");
        platform::SetProgramFolder(folder.path().toStdString());
        mList.Create(&mBox, QStringLiteral("File Name\\Song Title\\Artist"));
        platform::SetProgramFolder({});
        mForm.ShowInPlace();
    }

    void Fill(std::int64_t songs = kSongs) {
        std::mt19937 random(1);
        for (int i = 0; i < songs; ++i) {
            const auto number = static_cast<int>(random() % kSongs);
            mList.AddItem(QStringLiteral("%1 - The Band - A Song About Number %2\\A Song About "
                                         "Number %2\\The Band %1")
                              .arg(number % 1000)
                              .arg(number),
                          QStringLiteral("?Music?Folder %1?%2.mp3").arg(number % 100).arg(number));
            if (i % 10 == 9) {
                mList.Refresh();
                QApplication::processEvents();
            }
        }
    }

    void Press(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&mBox, &event);
    }

    c_PicList& List() { return mList; }
    PictureBox& Box() { return mBox; }

private:
    Form mForm{QStringLiteral("f_Bench")};
    PictureBox mBox{&mForm, QStringLiteral("pList"), QSize(760, 440)};
    c_PicList mList;
};

void FillAndShow(benchmark::State& state) {
    for (auto _ : state) {
        SongList songs;
        songs.Fill(state.range());
    }
}
BENCHMARK(FillAndShow)->RangeMultiplier(10)->Range(1'000, kSongs)->Unit(benchmark::kMillisecond);

void Sort(benchmark::State& state) {
    SongList songs;
    songs.Fill();
    int mode = 0;
    for (auto _ : state) {
        songs.List().SortByHeader(static_cast<int>(state.range(0)), mode);
        mode = 2 - mode;
    }
}
BENCHMARK(Sort)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

/// The text is found nowhere, so every line is looked at.
void FindInVain(benchmark::State& state) {
    SongList songs;
    songs.Fill();
    const QString text = QStringLiteral("xylophone").left(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(songs.List().FindText(text, 0, true));
}
BENCHMARK(FindInVain)->Arg(1)->Arg(9)->Unit(benchmark::kMillisecond);

void RemoveEverySecondLine(benchmark::State& state) {
    std::vector<int> lines;
    for (int line = 0; line < kSongs; line += 2)
        lines.push_back(line);
    for (auto _ : state) {
        state.PauseTiming();
        SongList songs;
        songs.Fill();
        state.ResumeTiming();
        songs.List().RemoveLines(lines);
    }
}
BENCHMARK(RemoveEverySecondLine)->Unit(benchmark::kMillisecond);

/// From the key to the finished picture of the list and its copy in the window.
void KeyToPicture(benchmark::State& state) {
    SongList songs;
    songs.Fill();
    songs.Press(Qt::Key_End);
    for (auto _ : state) {
        songs.Press(Qt::Key_Up);
        songs.Box().repaint();
    }
}
BENCHMARK(KeyToPicture)->Unit(benchmark::kMicrosecond);

/// No line begins with it, so every line is looked at.
void TypeALetterInVain(benchmark::State& state) {
    SongList songs;
    songs.Fill();
    for (auto _ : state) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
        QApplication::sendEvent(&songs.Box(), &event);
    }
}
BENCHMARK(TypeALetterInVain)->Unit(benchmark::kMillisecond);

} // namespace
