// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace calmora {

/// A list of callbacks, called in the order in which they subscribed. Emission walks a snapshot: a
/// callback may unsubscribe itself or another (which is then not called), subscribe a new one
/// (called from the next emission on) or destroy the signal. Main thread.
template <typename... Args>
class Signal {
  public:
    using Slot = std::function<void(Args...)>;

    /// `onListeningChanged` gets true when the first subscriber arrives and false when the last one
    /// leaves, so that a source need only work while someone listens.
    explicit Signal(std::function<void(bool)> onListeningChanged = nullptr)
        : state_(std::make_shared<State>()) {
        state_->onListeningChanged = std::move(onListeningChanged);
    }

    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    ~Signal() { state_->onListeningChanged = nullptr; }

    /// Calls `slot` on every emission until the token ends. The token may outlive the signal.
    [[nodiscard]] Subscription connect(Slot slot) {
        const std::uint64_t id = state_->nextId++;
        state_->slots.emplace(id, std::make_shared<Slot>(std::move(slot)));
        if (state_->slots.size() == 1 && state_->onListeningChanged) {
            state_->onListeningChanged(true);
        }
        return Subscription([weak = std::weak_ptr(state_), id] {
            const auto state = weak.lock();
            if (state && state->slots.erase(id) == 1 && state->slots.empty() &&
                state->onListeningChanged) {
                state->onListeningChanged(false);
            }
        });
    }

    /// Calls every subscriber.
    void emit(Args... args) const {
        const std::shared_ptr<State> state = state_;
        std::vector<std::pair<std::uint64_t, std::shared_ptr<Slot>>> snapshot(state->slots.begin(),
                                                                              state->slots.end());
        for (const auto& [id, slot] : snapshot) {
            if (state->slots.contains(id)) {
                (*slot)(args...);
            }
        }
    }

    /// Whether anyone is subscribed.
    [[nodiscard]] bool hasListeners() const { return !state_->slots.empty(); }

  private:
    struct State {
        std::map<std::uint64_t, std::shared_ptr<Slot>> slots;
        std::uint64_t nextId = 0;
        std::function<void(bool)> onListeningChanged;
    };

    std::shared_ptr<State> state_;
};

} // namespace calmora
