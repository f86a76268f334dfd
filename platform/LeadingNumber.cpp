#include "platform/LeadingNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

namespace platform {

double LeadingNumber(QByteArrayView bytes) {
    std::string_view text(bytes.data(), static_cast<std::size_t>(bytes.size()));
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    // `from_chars` would also accept words such as "inf".
    if (text.find_first_of(".0123456789") != 0)
        return 0;
    double number = 0;
    const auto end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range)
        number = std::numeric_limits<double>::infinity();
    return negative ? -number : number;
}

} // namespace platform
