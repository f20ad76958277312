// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "platform/NotificationCenter.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

std::string defaultsKey(const ShortcutName& name) {
    return KeyboardShortcuts::defaultsKeyPrefix + name.rawValue;
}

} // namespace

KeyboardShortcuts::KeyboardShortcuts(const KeyboardShortcutsPlatform& platform)
    : platform_(platform), text_(platform.layout, platform.strings, platform.text),
      hotKeys_(platform.hotKeys, text_) {}

ShortcutName KeyboardShortcuts::name(std::string rawValue,
                                     std::optional<Shortcut> defaultShortcut) {
    Name name{std::move(rawValue), defaultShortcut};
    if (defaultShortcut) {
        const std::string key = defaultsKey(name);
        if (!std::ranges::binary_search(platform_.defaults.keys(key), key)) {
            setShortcut(defaultShortcut, name);
        }
    }
    setUp();
    return name;
}

std::optional<Shortcut> KeyboardShortcuts::getShortcut(const Name& name) const {
    const auto stored = platform_.defaults.string(defaultsKey(name));
    return stored ? decodeShortcut(*stored) : std::nullopt;
}

void KeyboardShortcuts::setShortcut(const std::optional<Shortcut>& shortcut, const Name& name) {
    const std::string key = defaultsKey(name);
    const auto old = getShortcut(name);
    if (shortcut) {
        if (old) {
            unregisterShortcut(*old);
        }
        registerShortcut(*shortcut);
        platform_.defaults.set(key, encodeShortcut(*shortcut));
        notify(name);
    } else if (old) {
        if (name.defaultShortcut) {
            platform_.defaults.set(key, false);
        } else {
            platform_.defaults.remove(key);
        }
        unregisterShortcut(*old);
        notify(name);
    }
}

void KeyboardShortcuts::reset(const std::vector<Name>& names) {
    for (const Name& name : names) {
        setShortcut(name.defaultShortcut, name);
    }
}

void KeyboardShortcuts::resetAll() {
    const std::string prefix = defaultsKeyPrefix;
    std::vector<Name> names;
    for (const std::string& key : platform_.defaults.keys(prefix)) {
        names.push_back(name(key.substr(prefix.size())));
    }
    reset(names);
}

void KeyboardShortcuts::onKeyDown(const Name& name, Action action) {
    keyDownHandlers_[name].push_back(std::move(action));
    registerStored(name);
}

void KeyboardShortcuts::onKeyUp(const Name& name, Action action) {
    keyUpHandlers_[name].push_back(std::move(action));
    registerStored(name);
}

void KeyboardShortcuts::removeHandler(const Name& name) {
    keyDownHandlers_.erase(name);
    keyUpHandlers_.erase(name);
    const auto shortcut = getShortcut(name);
    const auto remaining = namesWithActions();
    if (shortcut && std::ranges::none_of(remaining, [&](const Name& other) {
            return getShortcut(other) == shortcut;
        })) {
        unregisterShortcut(*shortcut);
    }
}

void KeyboardShortcuts::removeAllHandlers() {
    const std::set<Name> names = namesWithActions();
    disable({names.begin(), names.end()});
    keyDownHandlers_.clear();
    keyUpHandlers_.clear();
}

void KeyboardShortcuts::enable(const std::vector<Name>& names) {
    for (const Name& name : names) {
        registerStored(name);
    }
}

void KeyboardShortcuts::disable(const std::vector<Name>& names) {
    for (const Name& name : names) {
        if (const auto shortcut = getShortcut(name)) {
            unregisterShortcut(*shortcut);
        }
    }
}

bool KeyboardShortcuts::isEnabled(const Name& name) const {
    const auto shortcut = getShortcut(name);
    return isEnabled_ && shortcut && registeredShortcuts_.contains(*shortcut);
}

Subscription KeyboardShortcuts::events(const Name& name,
                                       std::function<void(KeyboardShortcutEvent)> handler) {
    return streamHandlers_[name].connect(std::move(handler));
}

void KeyboardShortcuts::setEnabled(bool isEnabled) {
    if (std::exchange(isEnabled_, isEnabled) != isEnabled) {
        hotKeys_.update(isEnabled_, isMenuOpen_);
    }
}

void KeyboardShortcuts::setUp() {
    if (std::exchange(isSetUp_, true)) {
        return;
    }
    menuBegan_ = platform_.notifications.observe(MenuNotification::didBeginTracking,
                                                 [this](auto&&) { setMenuOpen(true); });
    menuEnded_ = platform_.notifications.observe(MenuNotification::didEndTracking,
                                                 [this](auto&&) { setMenuOpen(false); });
}

void KeyboardShortcuts::setMenuOpen(bool isOpen) {
    if (std::exchange(isMenuOpen_, isOpen) != isOpen) {
        hotKeys_.update(isEnabled_, isMenuOpen_);
    }
}

void KeyboardShortcuts::registerStored(const Name& name) {
    if (const auto shortcut = getShortcut(name)) {
        registerShortcut(*shortcut);
    }
}

void KeyboardShortcuts::registerShortcut(const Shortcut& shortcut) {
    if (!registeredShortcuts_.insert(shortcut).second) {
        return;
    }
    hotKeys_.registerShortcut(
        shortcut,
        [this](const Shortcut& fired) { dispatch(fired, KeyboardShortcutEvent::keyDown); },
        [this](const Shortcut& fired) { dispatch(fired, KeyboardShortcutEvent::keyUp); });
}

void KeyboardShortcuts::unregisterShortcut(const Shortcut& shortcut) {
    hotKeys_.unregisterShortcut(shortcut);
    registeredShortcuts_.erase(shortcut);
}

void KeyboardShortcuts::notify(const Name& name) {
    platform_.notifications.post({shortcutByNameDidChange, {{"name", name}}});
}

std::set<ShortcutName> KeyboardShortcuts::namesWithActions() const {
    std::set<Name> names;
    for (const Actions* actions : {&keyDownHandlers_, &keyUpHandlers_}) {
        for (const auto& [name, list] : *actions) {
            names.insert(name);
        }
    }
    return names;
}

void KeyboardShortcuts::dispatch(const Shortcut& shortcut, KeyboardShortcutEvent event) {
    if (handlersPaused_) {
        return;
    }
    // A copy: an action may change the actions.
    const Actions actions =
        event == KeyboardShortcutEvent::keyDown ? keyDownHandlers_ : keyUpHandlers_;
    for (const auto& [name, list] : actions) {
        if (getShortcut(name) == shortcut) {
            for (const Action& action : list) {
                action();
            }
        }
    }
    for (const auto& [name, stream] : streamHandlers_) {
        if (stream.hasListeners() && getShortcut(name) == shortcut) {
            stream.emit(event);
        }
    }
}

} // namespace calmora
