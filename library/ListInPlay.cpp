#include "library/ListInPlay.h"

#include <condition_variable>
#include <mutex>
#include <set>
#include <utility>

namespace library {

namespace {

struct Lists {
    std::mutex mutex;
    std::condition_variable_any changed;
    std::multiset<std::filesystem::path> inPlay; // guarded by the mutex
};

/// Never destroyed: a thread that was left behind may end at any time.
Lists& AllLists() {
    static auto* lists = new Lists;
    return *lists;
}

} // namespace

ListInPlay::ListInPlay(std::filesystem::path list, const std::stop_token& stop)
    : mList(std::move(list)) {
    Lists& lists = AllLists();
    std::unique_lock lock(lists.mutex);
    lists.changed.wait(lock, stop, [&] { return !lists.inPlay.contains(mList); });
}

void ListInPlay::Begin() {
    Lists& lists = AllLists();
    const std::lock_guard lock(lists.mutex);
    lists.inPlay.insert(mList);
    mBegun = true;
}

ListInPlay::~ListInPlay() {
    if (!mBegun)
        return;
    Lists& lists = AllLists();
    const std::lock_guard lock(lists.mutex);
    lists.inPlay.erase(lists.inPlay.find(mList));
    lists.changed.notify_all();
}

} // namespace library
