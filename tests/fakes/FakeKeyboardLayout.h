#pragma once

#include "platform/KeyboardLayout.h"
#include "support/Signal.h"

#include <map>
#include <utility>

namespace calmora {

/// A few keys of a US layout.
class FakeKeyboardLayout final : public KeyboardLayout {
  public:
    [[nodiscard]] std::optional<std::string> character(std::int64_t keyCode) const override {
        const auto found = characters.find(keyCode);
        return found != characters.end() ? std::optional(found->second) : std::nullopt;
    }

    [[nodiscard]] Subscription onChanged(std::function<void()> handler) override {
        return changed.connect(std::move(handler));
    }

    std::map<std::int64_t, std::string> characters{{0, "a"},  {1, "s"},  {8, "c"},  {12, "q"},
                                                   {13, "w"}, {40, "k"}, {43, ","}, {46, "m"}};
    Signal<> changed;
};

} // namespace calmora
