#include "tests/TemporaryFolder.h"
#include "tests/fuzz/Target.h"

namespace {

namespace fs = std::filesystem;

/// What the fuzzers have found stays mended.
TEST(Corpus, IsSurvivedByEveryTarget) {
    for (const auto& [name, run] : fuzz::Targets()) {
        for (const auto& file : fs::directory_iterator(fs::path(SONGRUSH_CORPUS) / name)) {
            SCOPED_TRACE(file.path());
            run(BytesOf(file.path()));
        }
    }
}

} // namespace
