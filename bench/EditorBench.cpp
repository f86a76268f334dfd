// The playlist editor filling its list, and answering with very many songs in it.

#include "bench/MusicTree.h"
#include "bench/UsedMemory.h"
#include "editor/c_Editor.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"
#include "toolkit/c_Surface.h"

#include <QLineEdit>
#include <benchmark/benchmark.h>

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

/// How long an editor with 100,000 songs takes to `act`; the counter says how many bytes each song
/// takes after that.
void Answer(benchmark::State& state, void (*act)(c_Editor& editor)) {
    const Ground ground;
    const double before = UsedMemory();
    c_Editor editor;
    Fill(editor, 10);
    for (auto _ : state) {
        act(editor);
        platform::PumpEvents();
    }
    platform::WaitFor(3000); // until a copy of it is kept
    state.counters["bytes/song"] = (UsedMemory() - before) / editor.List().LineCount();
}

void Find(c_Editor& editor) {
    QLineEdit& box = *editor.Form().tFind;
    box.setText(QStringLiteral("nowhere").left(box.text().size() % 7 + 1));
}

BENCHMARK_CAPTURE(Answer, SortByName, [](c_Editor& editor) {
    editor.mList_HeaderSelClicked(0);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, UndoASort, [](c_Editor& editor) {
    editor.mList_HeaderSelClicked(0);
    editor.Undo();
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, Find, Find)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Answer, MoveALine, [](c_Editor& editor) {
    editor.mList_LinesMoveWanted({1}, 4);
})->Unit(benchmark::kMillisecond);

} // namespace
