#pragma once

#include <QString>

namespace game {

/// What is left of a title when two are compared by what one reads in passing: without case,
/// blanks, punctuation and additions in brackets, such as "(live)". Never empty for a title that is
/// not.
QString ComparedTitle(const QString& title);

} // namespace game
