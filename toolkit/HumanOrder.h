#pragma once

#include <QString>
#include <vector>

namespace toolkit {

/// The numbers of `texts` in the order in which people expect them: numbers by their value,
/// letters as the locale sorts them without regard to case, equal texts as they were, downwards
/// too.
std::vector<int> HumanOrder(const std::vector<QString>& texts, bool downwards);

} // namespace toolkit
