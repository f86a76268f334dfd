// The playlist editor filling its list, and answering with very many songs in it.

#include "bench/MusicTree.h"
#include "bench/UsedMemory.h"
#include "editor/UnsavedCopy.h"
#include "editor/c_Editor.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"
#include "toolkit/c_Surface.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <thread>

namespace {

/// The program's folder and background for as long as there are editors.
class Ground {
public:
    Ground() {
        std::filesystem::create_directory_symlink(
            std::filesystem::path(SONGRUSH_RUN_DIR) / "Images", mHome.Path() / "Images");
        platform::SetProgramFolder(mHome.Path());
        gBack = std::make_unique<c_Surface>();
        gBack->CreateSurface(800, 600, QString());
    }
    ~Ground() {
        editor::UnsavedCopy::Read(); // waits until nothing more is written into the folder
        gBack.reset();
        platform::SetProgramFolder({});
    }

private:
    const TemporaryFolder mHome; // a copy of an unsaved list is kept there
};

/// Adds the songs of the music tree that many times. The list is drawn as songs come, as often as a
/// screen can show it.
void Fill(c_Editor& editor, int times) {
    const std::filesystem::path music = MusicTree();
    editor.Form().ShowInPlace();
    for (int i = 0; i < times; ++i)
        editor.AddFolder(music);
    platform::WaitWhile([&editor] { return editor.Reading(); });
}

void AddTenThousandFiles(benchmark::State& state) {
    const Ground ground;
    MusicTree();
    for (auto _ : state) {
        c_Editor editor;
        Fill(editor, 1);
        if (editor.List().LineCount() != 10'000)
            state.SkipWithError("songs are missing");
    }
}
BENCHMARK(AddTenThousandFiles)->Unit(benchmark::kMillisecond);

/// The longest time, in seconds, without an answer to an event.
struct Longest {
    double seconds = 0;

    template <typename Act> void Of(Act act) {
        const auto start = std::chrono::steady_clock::now();
        act();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        seconds = std::max(seconds, taken.count());
    }
};

/// How long an editor with 100,000 songs holds up its window for `act`; the counter says how many
/// bytes each song takes after that.
void Answer(benchmark::State& state, void (*act)(c_Editor& editor, Longest& longest)) {
    const Ground ground;
    const double before = UsedMemory();
    c_Editor editor;
    Fill(editor, 10);
    for (auto _ : state) {
        Longest longest;
        act(editor, longest);
        longest.Of(platform::PumpEvents);
        state.SetIterationTime(longest.seconds);
    }
    platform::WaitFor(3000); // until a copy of it is kept
    state.counters["bytes/song"] = (UsedMemory() - before) / editor.List().LineCount();
}

void Sort(c_Editor& editor, Longest& longest) {
    const int moves = editor.List().Moves();
    longest.Of([&] { editor.mList_HeaderSelClicked(0); });
    while (editor.List().Moves() == moves) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        longest.Of(platform::PumpEvents);
    }
}

void UndoASort(c_Editor& editor, Longest& longest) {
    Longest sorting;
    Sort(editor, sorting);
    longest.Of([&] { editor.Undo(); });
}

void RemoveAllAndUndo(c_Editor& editor, Longest& longest) {
    QKeyEvent all(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier);
    longest.Of([&] { QApplication::sendEvent(editor.Form().pList, &all); });
    longest.Of([&] { editor.bRemove_Clicked(); });
    longest.Of([&] { editor.Undo(); });
}

void Find(c_Editor& editor, Longest& longest) {
    QLineEdit& box = *editor.Form().tFind;
    longest.Of([&] { box.setText(QStringLiteral("nowhere").left(box.text().size() % 7 + 1)); });
}

void MoveALine(c_Editor& editor, Longest& longest) {
    longest.Of([&] { editor.mList_LinesMoveWanted({1}, 4); });
}

BENCHMARK_CAPTURE(Answer, SortByName, Sort)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, UndoASort, UndoASort)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, RemoveAllAndUndo, RemoveAllAndUndo)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, Find, Find)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, MoveALine, MoveALine)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
