#pragma once

#include <QByteArrayView>

namespace platform {

/// The number that `text` begins with, after blanks: an optional sign, digits, an optional decimal
/// point with more digits. Whatever follows is ignored. 0 without a digit, infinity for a number
/// that is too big.
double LeadingNumber(QByteArrayView text);

} // namespace platform
