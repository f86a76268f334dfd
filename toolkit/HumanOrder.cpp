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

SortKeys KeysOf(std::span<const int> texts, const std::function<QString(int)>& text,
                const QLocale& locale) {
    QCollator collator(locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    SortKeys keys;
    keys.reserve(texts.size());
    for (const int number : texts)
        keys.push_back(collator.sortKey(text(number)));
    return keys;
}

/// How many texts each thread sorts.
std::size_t PartSize(std::size_t texts) {
    constexpr std::size_t kLeast = 2000;
    const std::size_t threads = std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
    return std::max((texts + threads - 1) / threads, kLeast);
}

} // namespace

std::vector<int> HumanOrder(int count, const std::function<QString(int)>& text, bool downwards,
                            const QLocale& locale) {
    const QLocale sorting = SortingLocale(locale);
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    const std::size_t size = PartSize(order.size());
    const std::size_t parts = (order.size() + size - 1) / size;
    const auto part = [&](std::size_t number) {
        return std::span(order).subspan(number * size,
                                        std::min(size, order.size() - number * size));
    };

    std::vector<SortKeys> keys(parts);
    const auto key = [&](int number) -> const QCollatorSortKey& {
        const auto index = static_cast<std::size_t>(number);
        return keys[index / size][index % size];
    };
    const auto before = [&](int a, int b) {
        return downwards ? key(b).compare(key(a)) < 0 : key(a).compare(key(b)) < 0;
    };
    const auto sort = [&](std::size_t number) {
        keys[number] = KeysOf(part(number), text, sorting);
        std::ranges::stable_sort(part(number), before);
    };

    std::vector<std::future<void>> others;
    for (std::size_t number = 1; number < parts; ++number)
        others.push_back(std::async(std::launch::async, sort, number));
    if (parts > 0)
        sort(0);
    for (std::size_t number = 1; number < parts; ++number) {
        others[number - 1].get();
        const auto middle = order.begin() + static_cast<std::ptrdiff_t>(number * size);
        const auto end = middle + static_cast<std::ptrdiff_t>(part(number).size());
        std::inplace_merge(order.begin(), middle, end, before);
    }
    return order;
}

} // namespace toolkit
