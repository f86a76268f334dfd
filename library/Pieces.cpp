#include "library/Pieces.h"

#include "platform/RegularFile.h"

#include <algorithm>

namespace library {

Pieces::Pieces(platform::RegularFile& file) : mFile(&file), mEnd(file.Size()) {}

Pieces::Pieces(std::string_view bytes)
    : mPiece(bytes), mEnd(static_cast<std::int64_t>(bytes.size())) {}

std::string_view Pieces::At(std::int64_t offset, std::int64_t size) {
    if (offset < 0 || size > kPiece || offset > mEnd - size)
        return {};
    if (mFile != nullptr && (offset < mBegin || offset + size > PieceEnd())) {
        const std::int64_t got = mFile->ReadAt(offset, mBuffer);
        mBegin = offset;
        mPiece = {mBuffer.data(), static_cast<std::size_t>(std::max<std::int64_t>(got, 0))};
        if (offset + size > PieceEnd())
            return {};
    }
    return mPiece.substr(static_cast<std::size_t>(offset - mBegin), static_cast<std::size_t>(size));
}

std::string Pieces::Copy(std::int64_t offset, std::int64_t size) {
    if (size <= kPiece)
        return std::string(At(offset, size));
    if (offset < 0 || offset > mEnd - size)
        return {};
    const auto length = static_cast<std::size_t>(size);
    if (mFile == nullptr)
        return std::string(mPiece.substr(static_cast<std::size_t>(offset), length));
    std::string bytes(length, '\0');
    return mFile->ReadAt(offset, bytes) == size ? bytes : std::string();
}

} // namespace library
