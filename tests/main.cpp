#include "platform/Aside.h"
#include "tests/Surroundings.h"

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const Surroundings surroundings(argc, argv);
    const int failed = RUN_ALL_TESTS();
    platform::AsidesEnd(std::chrono::seconds(20));
    return failed;
}
