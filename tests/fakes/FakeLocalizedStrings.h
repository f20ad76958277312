// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/LookUp.h"
#include "platform/LocalizedStrings.h"

#include <map>

namespace calmora {

/// The keys as texts, except for these entries.
class FakeLocalizedStrings final : public LocalizedStrings {
  public:
    std::string text(std::string_view key, std::optional<std::int64_t>) const override {
        return lookUp(texts, key).value_or(std::string(key));
    }

    std::map<std::string, std::string, std::less<>> texts;
};

} // namespace calmora
