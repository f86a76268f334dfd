#pragma once

#include "library/Pieces.h"

#include <apeitem.h>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace library {

/// An item of an APE tag, as its header describes it.
struct ApeItem {
    std::string key;        ///< in upper case
    std::int64_t begin = 0; ///< of its header, in the file
    std::int64_t size = 0;  ///< of the whole item, in bytes
};

/// Goes through the items of an APE tag. Reads their headers, and the rest only on request. The tag
/// ends at the first damage.
class ApeItems {
public:
    /// The offsets at which a file's APE tag may end: before an ID3v1 tag, and at the end of the
    /// file.
    static std::array<std::int64_t, 2> Ends(const Pieces& file);

    /// The items of the tag that ends at `end`, if there is one.
    ApeItems(Pieces& file, std::int64_t end);

    /// The next item; none at the end.
    std::optional<ApeItem> Next();

    /// The whole item; an empty one if it cannot be read.
    TagLib::APE::Item Parse(const ApeItem& item);

private:
    Pieces& mFile;
    unsigned int mLeft = 0; // items still to come
    std::int64_t mAt = 0;
    std::int64_t mEnd = 0; // of the items
};

} // namespace library
