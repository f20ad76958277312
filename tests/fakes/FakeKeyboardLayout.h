#pragma once

#include "fakes/LookUp.h"
#include "platform/KeyboardLayout.h"
#include "support/Signal.h"

#include <map>
#include <utility>

namespace calmora {

/// A few keys of a US layout.
class FakeKeyboardLayout final : public KeyboardLayout {
  public:
    std::optional<std::string> character(std::int64_t keyCode) const override {
        return lookUp(characters, keyCode);
    }

    /// A native key is its virtual key code plus 1000.
    std::optional<std::int64_t> keyCode(std::uint32_t nativeKey) const override {
        return nativeKey >= 1000 ? std::optional<std::int64_t>(nativeKey - 1000) : std::nullopt;
    }

    Subscription onChanged(std::function<void()> handler) override {
        return changed.connect(std::move(handler));
    }

    std::map<std::int64_t, std::string> characters{{0, "a"},  {1, "s"},  {8, "c"},  {12, "q"},
                                                   {13, "w"}, {40, "k"}, {43, ","}, {46, "m"}};
    Signal<> changed;
};

} // namespace calmora
