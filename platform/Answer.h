#pragma once

#include "platform/Aside.h"
#include "platform/Wait.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace platform {

/// A value that another thread finds out, for a caller who cannot wait for it. Destroying the
/// object asks that thread to stop.
template <typename Value> class Answer {
public:
    /// Starts `ask` on a thread. It must own, or share, everything it uses. Its answer wakes
    /// `WaitWhile`.
    explicit Answer(std::function<Value(const std::stop_token&)> ask)
        : mAsking([shared = mShared, ask = std::move(ask)](const std::stop_token& stop) {
              Value value = ask(stop);
              {
                  const std::lock_guard lock(shared->mutex);
                  shared->value = std::move(value);
              }
              WakeUp();
          }) {}

    /// The answer, once it is known; returns at once.
    std::optional<Value> Get() const {
        const std::lock_guard lock(mShared->mutex);
        return mShared->value;
    }

private:
    struct Shared {
        std::mutex mutex;
        std::optional<Value> value; // guarded by the mutex
    };

    std::shared_ptr<Shared> mShared = std::make_shared<Shared>();
    Aside mAsking;
};

} // namespace platform
