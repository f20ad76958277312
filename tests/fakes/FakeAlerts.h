#pragma once

#include "platform/Alerts.h"

#include <deque>
#include <functional>

namespace calmora {

/// Answers alerts at once.
class FakeAlerts final : public Alerts {
  public:
    std::size_t runModal(const Alert& alert) override {
        shown.push_back(alert);
        onShow();
        std::size_t answer = alert.buttons.size() - 1;
        if (!answers.empty()) {
            answer = answers.front();
            answers.pop_front();
        }
        return answer;
    }

    /// What the user will choose next, one a time; then always the last button.
    std::deque<std::size_t> answers;
    std::vector<Alert> shown;
    /// What happens while an alert is open.
    std::function<void()> onShow = [] {};
};

} // namespace calmora
