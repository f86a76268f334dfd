#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {
class RegularFile;
}

namespace library {

/// A file, or bytes of one, looked at in pieces: a look reads a piece at most. What was handed in
/// must last as long.
class Pieces {
public:
    static constexpr std::int64_t kPiece = 4096;

    explicit Pieces(platform::RegularFile& file);
    explicit Pieces(std::string_view bytes);
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    std::int64_t End() const { return mEnd; }

    /// `size` bytes, at most a piece, from `offset` on; empty if there are not so many. They last
    /// until the next call.
    std::string_view At(std::int64_t offset, std::int64_t size);

    /// The same of any size. Only what there is takes memory.
    std::string Copy(std::int64_t offset, std::int64_t size);

private:
    std::int64_t PieceEnd() const { return mBegin + static_cast<std::int64_t>(mPiece.size()); }

    platform::RegularFile* mFile = nullptr;
    std::array<char, kPiece> mBuffer;
    std::string_view mPiece;
    std::int64_t mBegin = 0; // of the piece
    std::int64_t mEnd;
};

} // namespace library
