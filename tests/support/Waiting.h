#pragma once

#include "platform/linux/events/EventPoll.h"

#include <chrono>
#include <functional>

namespace calmora {

/// Long enough for a loaded machine; what holds ends a wait at once.
constexpr std::chrono::seconds patience{15};

/// Looks at the condition every few milliseconds until it holds; false at the deadline.
bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds timeout = patience);

/// Runs `events` as a main loop does, asleep while nothing is due, until the condition holds;
/// false at the deadline. Counts in `turns` how often it woke up.
bool pumpUntil(EventPoll& events, const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = patience, int* turns = nullptr);

} // namespace calmora
