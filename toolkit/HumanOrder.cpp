#include "toolkit/HumanOrder.h"

#include <QCollator>
#include <algorithm>
#include <future>
#include <numeric>
#include <span>
#include <thread>

namespace toolkit {

namespace {

using SortKeys = std::vector<QCollatorSortKey>;

/// In the C locale a collator only compares code points, whatever its settings.
QLocale SortingLocale(const QLocale& locale) {
    const QLocale collation = locale.collation();
    return collation.language() == QLocale::C ? QLocale(QLocale::English) : collation;
}

SortKeys KeysOf(std::span<const QString> texts, const QLocale& locale) {
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    SortKeys keys;
    keys.reserve(texts.size());
    for (const QString& text : texts)
        keys.push_back(collator.sortKey(text));
    return keys;
}

/// How many texts each thread sorts.
std::size_t PartSize(std::size_t texts) {
    constexpr std::size_t kLeast = 2000;
    const std::size_t threads = std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
    return std::max((texts + threads - 1) / threads, kLeast);
}

} // namespace

std::vector<int> HumanOrder(const std::vector<QString>& texts, bool downwards,
                            const QLocale& locale) {
    const QLocale sorting = SortingLocale(locale);
    const std::size_t size = PartSize(texts.size());
    std::vector<SortKeys> keys((texts.size() + size - 1) / size);
    const auto key = [&](int text) -> const QCollatorSortKey& {
        const auto number = static_cast<std::size_t>(text);
        return keys[number / size][number % size];
    };
    const auto before = [&](int a, int b) {
        return downwards ? key(b).compare(key(a)) < 0 : key(a).compare(key(b)) < 0;
    };
    std::vector<int> order(texts.size());
    std::iota(order.begin(), order.end(), 0);
    const auto begin = [&](std::size_t part) {
        return order.begin() + static_cast<std::ptrdiff_t>(std::min(part * size, texts.size()));
    };
    const auto sort = [&](std::size_t part) {
        keys[part] = KeysOf(std::span(texts)
                                .subspan(part * size)
                                .first(static_cast<std::size_t>(begin(part + 1) - begin(part))),
                            sorting);
        std::stable_sort(begin(part), begin(part + 1), before);
    };
    std::vector<std::future<void>> others;
    for (std::size_t part = 1; part < keys.size(); ++part)
        others.push_back(std::async(std::launch::async, sort, part));
    if (!texts.empty())
        sort(0);
    for (std::size_t part = 1; part < keys.size(); ++part) {
        others[part - 1].get();
        std::inplace_merge(order.begin(), begin(part), begin(part + 1), before);
    }
    return order;
}

} // namespace toolkit
