// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <functional>
#include <string>

namespace calmora {

/// The state or result of a check, in the user's language.
struct UpdateReport {
    std::string title;
    /// Plain text, like the notes; both may be empty.
    std::string text;
    std::string notes;
    /// A web page to offer; empty for none.
    std::string page;
    /// The check is still running.
    bool isRunning = false;
};

/// Shows the result of a check that the user asked for.
class UpdatePresenter {
  public:
    virtual ~UpdatePresenter() = default;

    /// Shows the report, replacing the previous one.
    virtual void show(const UpdateReport& report) = 0;

    /// Calls `handler` when the user has closed the report, until the token ends.
    [[nodiscard]] virtual Subscription onClosed(std::function<void()> handler) = 0;
};

} // namespace calmora
