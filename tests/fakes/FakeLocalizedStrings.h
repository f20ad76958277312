#pragma once

#include "fakes/LookUp.h"
#include "platform/LocalizedStrings.h"

#include <map>

namespace calmora {

/// Texts in English: the keys, except for these entries.
class FakeLocalizedStrings final : public LocalizedStrings {
  public:
    std::string text(std::string_view key, std::optional<std::int64_t> count = {}) const override {
        const auto& chosen = count == 1 && singular.contains(key) ? singular : texts;
        return lookUp(chosen, key).value_or(std::string(key));
    }

    std::map<std::string, std::string, std::less<>> texts{
        {"apps_running_count %lld", "%lld apps running"},
        {"auto_quit_notification %@ %lld", "%@ was quit after %lld minutes"},
    };
    /// For a count of 1.
    std::map<std::string, std::string, std::less<>> singular{
        {"apps_running_count %lld", "%lld app running"},
    };
};

} // namespace calmora
