#pragma once

#include "support/Subscription.h"

#include <functional>
#include <string>

namespace calmora {

/// What the user is shown of a check, in the user's language.
struct UpdateReport {
    std::string title;
    /// Plain text, like the notes; both may be empty.
    std::string text;
    std::string notes;
    /// A web page to offer; empty means none.
    std::string page;
    /// The check still runs.
    bool isRunning = false;
};

/// Shows the answer to a check that the user asked for, beside the user's work.
class UpdatePresenter {
  public:
    virtual ~UpdatePresenter() = default;

    /// Shows the report in place of the one before.
    virtual void show(const UpdateReport& report) = 0;

    /// Calls `handler` when the user has closed what was shown, until the token ends.
    [[nodiscard]] virtual Subscription onClosed(std::function<void()> handler) = 0;
};

} // namespace calmora
