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

/// What is found out aside, for a caller who cannot wait for it. When the object goes before it is
/// known, the asking is to stop.
template <typename Value> class Answer {
public:
    /// Begins to ask. `ask` must own, or share, all that it uses. The answer wakes `WaitWhile`.
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
