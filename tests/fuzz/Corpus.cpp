#include "tests/TemporaryFolder.h"
#include "tests/fuzz/Target.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// What the fuzzers have found stays mended.
TEST(Corpus, IsSurvivedByEveryTarget) {
    for (const fuzz::Target* target : fuzz::Target::All()) {
        int files = 0;
        for (const auto& file :
             fs::directory_iterator(fs::path(SONGRUSH_CORPUS) / target->Name())) {
            SCOPED_TRACE(file.path());
            target->Run(BytesOf(file.path()));
            ++files;
        }
        EXPECT_GT(files, 0) << target->Name();
    }
}

} // namespace
