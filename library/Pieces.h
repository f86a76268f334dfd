#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {
class RegularFile;
}

namespace library {

/// A file, or bytes from one, read in pieces of limited size. The file or bytes must outlive the
/// object.
class Pieces {
public:
    static constexpr std::int64_t kPiece = 4096;

    explicit Pieces(platform::RegularFile& file);
    explicit Pieces(std::string_view bytes);
    Pieces(const Pieces&) = delete;
    Pieces& operator=(const Pieces&) = delete;

    std::int64_t End() const { return mEnd; }

    /// `size` bytes, at most `kPiece`, from `offset` on; empty if there are fewer. Valid until the
    /// next call.
    std::string_view At(std::int64_t offset, std::int64_t size);

    /// A copy of any `size`. A size beyond the end gives nothing and takes no memory.
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
