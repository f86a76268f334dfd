#pragma once

#include <QByteArrayView>

namespace platform {

/// The number that `text` begins with, after blanks: an optional sign, digits, an optional decimal
/// point with more digits. What follows is not looked at; 0 when there is no digit, infinity for
/// what is too big.
double LeadingNumber(QByteArrayView text);

} // namespace platform
