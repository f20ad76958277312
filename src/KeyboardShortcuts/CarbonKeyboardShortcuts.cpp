// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

namespace calmora {

void CarbonKeyboardShortcuts::registerShortcut(const Shortcut& shortcut, Callback onKeyDown,
                                               Callback onKeyUp) {
    const std::int64_t id = ++lastId_;
    Subscription hotKey = registerWithSystem(shortcut, id);
    if (!hotKey) {
        return;
    }
    table_.emplace(id,
                   HotKey{shortcut, std::move(hotKey), std::move(onKeyDown), std::move(onKeyUp)});
    if (!eventHandler_) {
        eventHandler_ = hotKeys_.installEventHandler(
            [this](const HotKeyEvent& event) { return handle(event); });
        updateEventHandler();
    }
}

void CarbonKeyboardShortcuts::unregisterShortcut(const Shortcut& shortcut) {
    std::erase_if(table_, [&](const auto& entry) { return entry.second.shortcut == shortcut; });
}

void CarbonKeyboardShortcuts::update(bool isEnabled, bool isMenuOpen) {
    isEnabled_ = isEnabled;
    isMenuOpen_ = isMenuOpen;
    updateEventHandler();
}

std::int32_t CarbonKeyboardShortcuts::handle(const HotKeyEvent& event) {
    switch (event.kind) {
    case HotKeyEventKind::hotKeyPressed:
    case HotKeyEventKind::hotKeyReleased:
        return matchHotKey(event);
    case HotKeyEventKind::rawKeyDown:
    case HotKeyEventKind::rawKeyUp:
        return matchRawKey(event);
    }
    return HotKeyStatus::notHandled;
}

Subscription CarbonKeyboardShortcuts::registerWithSystem(const Shortcut& shortcut,
                                                         std::int64_t id) {
    HotKeyRegistration answer{HotKeyStatus::badValue, {}};
    const std::int64_t values[] = {shortcut.carbonKeyCode, shortcut.carbonModifiers, id};
    if (std::ranges::all_of(values, std::in_range<std::uint32_t, std::int64_t>)) {
        answer = hotKeys_.registerHotKey(static_cast<std::uint32_t>(shortcut.carbonKeyCode),
                                         static_cast<std::uint32_t>(shortcut.carbonModifiers),
                                         {signature, static_cast<std::uint32_t>(id)});
    }
    if (answer.status == HotKeyStatus::success && answer.hotKey) {
        return std::move(answer.hotKey);
    }
    std::printf("Error registering hotkey %s: %d\n", text_.description(shortcut).c_str(),
                answer.status);
    std::fflush(stdout);
    return {};
}

void CarbonKeyboardShortcuts::updateEventHandler() {
    if (!eventHandler_) {
        return;
    }
    if (!isEnabled_) {
        suspend();
        hotKeys_.removeEventTypes(HotKeyEventTypes::hotKeys);
        hotKeys_.removeEventTypes(HotKeyEventTypes::rawKeys);
    } else if (isMenuOpen_) {
        suspend();
        hotKeys_.removeEventTypes(HotKeyEventTypes::hotKeys);
        hotKeys_.addEventTypes(HotKeyEventTypes::rawKeys);
    } else {
        resume();
        hotKeys_.removeEventTypes(HotKeyEventTypes::rawKeys);
        hotKeys_.addEventTypes(HotKeyEventTypes::hotKeys);
    }
}

void CarbonKeyboardShortcuts::resume() {
    for (auto at = table_.begin(); at != table_.end();) {
        HotKey& hotKey = at->second;
        if (!hotKey.carbonHotKey) {
            hotKey.carbonHotKey = registerWithSystem(hotKey.shortcut, at->first);
        }
        at = hotKey.carbonHotKey ? std::next(at) : table_.erase(at);
    }
}

void CarbonKeyboardShortcuts::suspend() {
    for (auto& [id, hotKey] : table_) {
        hotKey.carbonHotKey.reset();
    }
}

// Callbacks are copied before they are called: they may unregister their own entry.

std::int32_t CarbonKeyboardShortcuts::matchHotKey(const HotKeyEvent& event) {
    const auto* identifier = std::get_if<HotKeyIdentifier>(&event.identifier);
    if (!identifier) {
        return std::get<std::int32_t>(event.identifier);
    }
    const auto found = table_.find(identifier->id);
    if (identifier->signature != signature || found == table_.end()) {
        return HotKeyStatus::notHandled;
    }
    const HotKey& hotKey = found->second;
    const Shortcut shortcut = hotKey.shortcut;
    const Callback callback =
        event.kind == HotKeyEventKind::hotKeyPressed ? hotKey.onKeyDown : hotKey.onKeyUp;
    callback(shortcut);
    return HotKeyStatus::success;
}

std::int32_t CarbonKeyboardShortcuts::matchRawKey(const HotKeyEvent& event) {
    for (const auto* parameter : {&event.keyCode, &event.keyModifiers}) {
        if (const auto* status = std::get_if<std::int32_t>(parameter)) {
            return *status;
        }
    }
    const Shortcut shortcut{std::get<std::uint32_t>(event.keyCode),
                            normalizedCarbonModifiers(std::get<std::uint32_t>(event.keyModifiers))};
    const auto found = std::ranges::find_if(
        table_, [&](const auto& entry) { return entry.second.shortcut == shortcut; });
    if (found == table_.end()) {
        return HotKeyStatus::notHandled;
    }
    const Callback callback =
        event.kind == HotKeyEventKind::rawKeyDown ? found->second.onKeyDown : found->second.onKeyUp;
    callback(shortcut);
    return HotKeyStatus::success;
}

} // namespace calmora
