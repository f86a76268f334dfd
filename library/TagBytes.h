#pragma once

#include <string_view>
#include <tbytevector.h>

namespace library {

/// A copy of the bytes as a TagLib vector.
inline TagLib::ByteVector Vector(std::string_view bytes) {
    return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

} // namespace library
