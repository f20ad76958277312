#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeText.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/NotificationCenter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace calmora {

/// The module with fakes.
class ShortcutsFixture : public testing::Test {
  protected:
    ShortcutsFixture() { strings.texts.emplace("space_key", "space"); }

    /// The stored value of a name; "none" if there is none.
    [[nodiscard]] std::string stored(const std::string& name) const {
        return defaults.string("KeyboardShortcuts_" + name).value_or("none");
    }

    /// Appends to `heard` when an action runs.
    KeyboardShortcuts::Action hear(const std::string& what) {
        return [this, what] { heard += what; };
    }

    void store(const std::string& name, DefaultsValue value) {
        defaults.stored["KeyboardShortcuts_" + name] = std::move(value);
    }

    static constexpr Shortcut commandK{40, CarbonModifiers::command};
    static constexpr Shortcut optionS{1, CarbonModifiers::option};

    FakeUserDefaults defaults;
    NotificationCenter notifications;
    FakeHotKeys hotKeys;
    FakeKeyboardLayout layout;
    FakeLocalizedStrings strings;
    FakeText text;
    KeyboardShortcuts shortcuts{{defaults, notifications, hotKeys, layout, strings, text}};
    std::string heard;
};

} // namespace calmora
