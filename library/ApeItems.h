#pragma once

#include "library/Pieces.h"

#include <apeitem.h>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace library {

/// An item of an APE tag, by what its head says.
struct ApeItem {
    std::string key;        ///< in capitals
    std::int64_t begin = 0; ///< of its head
    std::int64_t size = 0;  ///< of all of it, in bytes
};

/// The items of an APE tag, one after the other. Reads their heads, and of the rest only what is
/// asked for; at the first damage the tag ends.
class ApeItems {
public:
    /// Where the APE tag of a file may end: before an ID3v1 tag, or with the file.
    static std::array<std::int64_t, 2> Ends(const Pieces& file);

    /// The items of the tag that ends at `end`, if there is one.
    ApeItems(Pieces& file, std::int64_t end);

    /// The next item; none at the end.
    std::optional<ApeItem> Next();

    /// The whole item; an empty one if it cannot be read.
    TagLib::APE::Item Parse(const ApeItem& item);

private:
    Pieces& mFile;
    unsigned int mLeft = 0; // to be looked at
    std::int64_t mAt = 0;
    std::int64_t mEnd = 0; // of the items
};

} // namespace library
