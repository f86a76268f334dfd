#include "tests/Surroundings.h"
#include "tests/fuzz/Target.h"

#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>

// What libFuzzer calls in a program with one target.

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    testing::FLAGS_gtest_throw_on_failure = true; // nothing catches it
    static const Surroundings surroundings(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Targets().begin()->second(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
