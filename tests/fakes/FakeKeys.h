// SPDX-License-Identifier: MIT
// Hot keys, a layout and the shortcuts of a desktop, in memory.
#pragma once

#include "fakes/LookUp.h"
#include "platform/HotKeys.h"
#include "platform/KeyboardLayout.h"
#include "platform/SystemShortcuts.h"
#include "support/Signal.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// Hot keys in memory. Can refuse, and records every call as one short line.
class FakeHotKeys final : public HotKeys {
  public:
    std::optional<std::string> unavailableReason() const override { return {}; }

    HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                      HotKeyIdentifier identifier) override {
        const std::string number = std::to_string(identifier.id);
        calls->push_back("register " + std::to_string(keyCode) + "/" + std::to_string(modifiers) +
                         " as " + number);
        if (const auto refused = refusals.find(keyCode); refused != refusals.end()) {
            return {refused->second, {}};
        }
        return {HotKeyStatus::success,
                Subscription([calls = calls, number] { calls->push_back("release " + number); })};
    }

    Subscription installEventHandler(Handler newHandler) override {
        calls->push_back("install");
        handler = std::move(newHandler);
        return Subscription([] {});
    }

    void addEventTypes(HotKeyEventTypes types) override {
        calls->push_back(types == HotKeyEventTypes::hotKeys ? "+hot" : "+raw");
    }

    void removeEventTypes(HotKeyEventTypes types) override {
        calls->push_back(types == HotKeyEventTypes::hotKeys ? "-hot" : "-raw");
    }

    std::string limitation() const override { return limit; }

    HotKeyHint hint(const std::string& actionId) const override {
        const auto found = hints.find(actionId);
        return found != hints.end() ? found->second : HotKeyHint{};
    }

    Subscription onHintsChanged(std::function<void()> changed) override {
        return hintsChanged.connect(std::move(changed));
    }

    /// Sends the handler a hot-key event.
    std::int32_t fire(std::uint32_t id,
                      HotKeyEventKind kind = HotKeyEventKind::hotKeyPressed) const {
        return handler({.kind = kind, .identifier = HotKeyIdentifier{0x434C4D48, id}});
    }

    /// Sends the handler a raw key event.
    std::int32_t raw(std::uint32_t key, std::uint32_t modifiers,
                     HotKeyEventKind kind = HotKeyEventKind::rawKeyDown) const {
        return handler({.kind = kind, .keyCode = key, .keyModifiers = modifiers});
    }

    /// The calls since the last takeCalls().
    std::vector<std::string> takeCalls() const { return std::exchange(*calls, {}); }

    /// Status by key code.
    std::map<std::uint32_t, std::int32_t> refusals;
    std::string limit;
    std::map<std::string, HotKeyHint> hints;
    Signal<> hintsChanged;
    Handler handler;
    /// Shared, because tokens record their end and may outlive this object.
    std::shared_ptr<std::vector<std::string>> calls = std::make_shared<std::vector<std::string>>();
};

/// A few keys of a US layout.
class FakeKeyboardLayout final : public KeyboardLayout {
  public:
    std::optional<std::string> character(std::int64_t keyCode) const override {
        return lookUp(characters, keyCode);
    }

    std::optional<std::string> shiftedCharacter(std::int64_t keyCode) const override {
        return lookUp(shiftedCharacters, keyCode);
    }

    bool isDeadKey(std::int64_t keyCode, bool withShift) const override {
        return !withShift && lookUp(characters, keyCode) == "\u00B4";
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
    std::map<std::int64_t, std::string> shiftedCharacters;
    Signal<> changed;
};

/// The shortcuts of a desktop in memory.
class FakeSystemShortcuts final : public SystemShortcuts {
  public:
    std::vector<SymbolicHotKey> copySymbolicHotKeys() override { return entries; }

    std::vector<SymbolicHotKey> entries;
};

} // namespace calmora
