#pragma once

#include <QLocale>
#include <QString>
#include <vector>

namespace toolkit {

/// The numbers of `texts` in the order in which people expect them: numbers by their value,
/// letters as `locale` sorts them without regard to case, equal texts as they were, downwards
/// too.
std::vector<int> HumanOrder(const std::vector<QString>& texts, bool downwards,
                            const QLocale& locale = QLocale::system());

} // namespace toolkit
