#pragma once

#include <QLocale>
#include <QString>
#include <functional>
#include <vector>

namespace toolkit {

/// The 0-based numbers of `count` texts in the order that people expect: numbers by their value,
/// letters as `locale` sorts them, ignoring case. Equal texts keep their order, even downwards.
/// `text` is called once for each of them, by several threads at a time.
std::vector<int> HumanOrder(int count, const std::function<QString(int)>& text, bool downwards,
                            const QLocale& locale = QLocale::system());

} // namespace toolkit
