#include "toolkit/HumanOrder.h"

#include <QCollator>
#include <algorithm>
#include <numeric>

namespace toolkit {

namespace {

/// In the C locale a collator only compares code points, whatever its settings.
QLocale SortingLocale(const QLocale& locale) {
    const QLocale collation = locale.collation();
    return collation.language() == QLocale::C ? QLocale(QLocale::English) : collation;
}

std::vector<QCollatorSortKey> SortKeys(const std::vector<QString>& texts, const QLocale& locale) {
    QCollator collator(SortingLocale(locale));
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(texts.size());
    for (const QString& text : texts)
        keys.push_back(collator.sortKey(text));
    return keys;
}

} // namespace

std::vector<int> HumanOrder(const std::vector<QString>& texts, bool downwards,
                            const QLocale& locale) {
    const std::vector<QCollatorSortKey> keys = SortKeys(texts, locale);
    const auto key = [&keys](int i) -> const QCollatorSortKey& {
        return keys[static_cast<std::size_t>(i)];
    };
    std::vector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return downwards ? key(b).compare(key(a)) < 0 : key(a).compare(key(b)) < 0;
    });
    return order;
}

} // namespace toolkit
