#include "library/ApeItems.h"

#include "library/TagBytes.h"

#include <algorithm>
#include <apefooter.h>
#include <cctype>
#include <string_view>

namespace library {

namespace APE = TagLib::APE;

std::array<std::int64_t, 2> ApeItems::Ends(const Pieces& file) {
    constexpr int kId3v1 = 128;
    return {file.End() - kId3v1, file.End()};
}

ApeItems::ApeItems(Pieces& file, std::int64_t end) : mFile(file) {
    constexpr unsigned int kMost = 1000;
    constexpr std::int64_t kFooterSize = 32;
    mEnd = end - kFooterSize;
    const std::string_view foot = mFile.At(mEnd, kFooterSize);
    if (!foot.starts_with("APETAGEX"))
        return;
    const APE::Footer footer(Vector(foot));
    mAt = end - footer.tagSize();
    mLeft = std::min(footer.itemCount(), kMost);
}

std::optional<ApeItem> ApeItems::Next() {
    constexpr std::int64_t kHead = 8;
    constexpr std::int64_t kLongestKey = 255;
    if (mLeft == 0 || mAt < 0 || mAt >= mEnd)
        return {};
    --mLeft;
    const std::string_view head =
        mFile.At(mAt, std::min(mFile.End() - mAt, kHead + kLongestKey + 1));
    const std::size_t key = head.find('\0', kHead);
    if (key == head.npos)
        return {};
    ApeItem item{std::string(head.substr(kHead, key - kHead)), mAt, 0};
    std::transform(item.key.begin(), item.key.end(), item.key.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    item.size = static_cast<std::int64_t>(key) + 1 + Vector(head.substr(0, 4)).toUInt(0U, false);
    if (item.size > mEnd - mAt)
        return {};
    mAt += item.size;
    return item;
}

APE::Item ApeItems::Parse(const ApeItem& item) {
    APE::Item parsed;
    if (const std::string bytes = mFile.Copy(item.begin, item.size); !bytes.empty())
        parsed.parse(Vector(bytes));
    return parsed;
}

} // namespace library
