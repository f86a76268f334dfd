// The playlist editor filling its list.

#include "bench/MusicTree.h"
#include "editor/c_Editor.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"
#include "toolkit/c_Surface.h"

#include <benchmark/benchmark.h>

namespace {

/// The list is drawn as songs come, as far as the screen can show that.
void AddTenThousandFiles(benchmark::State& state) {
    const std::filesystem::path music = MusicTree();
    platform::SetProgramFolder(SONGRUSH_RUN_DIR);
    gBack = std::make_unique<c_Surface>();
    gBack->CreateSurface(800, 600, QString());
    for (auto _ : state) {
        c_Editor editor;
        editor.Form().ShowInPlace();
        editor.AddFolder(music);
        platform::WaitWhile([&editor] { return editor.Reading(); });
        if (editor.List().LineCount() != 10'000)
            state.SkipWithError("songs are missing");
    }
    gBack.reset();
    platform::SetProgramFolder({});
}
BENCHMARK(AddTenThousandFiles)->Unit(benchmark::kMillisecond);

} // namespace
