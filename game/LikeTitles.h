#pragma once

#include <QString>

namespace game {

/// A title as it is compared with another one, so that those which look alike at a glance are
/// equal: without case, blanks, punctuation and additions in brackets, such as "(live)". Empty only
/// for an empty title.
QString ComparedTitle(const QString& title);

} // namespace game
