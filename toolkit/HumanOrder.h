#pragma once

#include <QLocale>
#include <QString>
#include <vector>

namespace toolkit {

/// The indices of `texts` in the order that people expect: numbers by their value, letters as
/// `locale` sorts them, ignoring case. Equal texts keep their order, even downwards.
std::vector<int> HumanOrder(const std::vector<QString>& texts, bool downwards,
                            const QLocale& locale = QLocale::system());

} // namespace toolkit
