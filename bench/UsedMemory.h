#pragma once

#include <malloc.h>

/// Bytes of the heap in use.
inline double UsedMemory() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}
