// SPDX-License-Identifier: MIT
#include "platform/desktop/hotkeys/HotKeyTable.h"

#include <cstdint>
#include <map>
#include <utility>

namespace calmora {

struct HotKeyTable::State {
    struct Entry {
        HotKeyCombination combination;
        HotKeyIdentifier identifier;
        std::function<void()> onRemoved;
    };

    std::function<bool()> mayAct;
    std::map<std::uint64_t, Entry> entries;
    std::uint64_t nextEntry = 0;
    /// Keys that are down, with the hot keys that they fired.
    std::map<HotKeyCombination, std::vector<HotKeyIdentifier>> held;
    HotKeys::Handler handler;
    bool isReporting = false;

    void notify(HotKeyEventKind kind, HotKeyIdentifier identifier) const {
        if (isReporting && handler) {
            const HotKeys::Handler copy = handler;
            HotKeyEvent event;
            event.kind = kind;
            event.identifier = identifier;
            copy(event);
        }
    }
};

HotKeyTable::HotKeyTable(std::function<bool()> mayAct) : state_(std::make_shared<State>()) {
    state_->mayAct = std::move(mayAct);
}

HotKeyTable::~HotKeyTable() {
    state_->handler = nullptr;
}

Subscription HotKeyTable::add(HotKeyCombination combination, HotKeyIdentifier identifier,
                              std::function<void()> onRemoved) {
    const std::uint64_t id = state_->nextEntry++;
    state_->entries.emplace(id, State::Entry{combination, identifier, std::move(onRemoved)});
    return Subscription([weak = std::weak_ptr(state_), id] {
        if (const auto state = weak.lock()) {
            if (const auto entry = state->entries.extract(id)) {
                entry.mapped().onRemoved();
            }
        }
    });
}

std::vector<HotKeyCombination> HotKeyTable::combinations() const {
    std::vector<HotKeyCombination> result;
    for (const auto& [id, entry] : state_->entries) {
        result.push_back(entry.combination);
    }
    return result;
}

Subscription HotKeyTable::setHandler(HotKeys::Handler handler) {
    state_->handler = std::move(handler);
    return Subscription([weak = std::weak_ptr(state_)] {
        if (const auto state = weak.lock()) {
            state->handler = nullptr;
        }
    });
}

void HotKeyTable::setReporting(bool isReporting) {
    state_->isReporting = isReporting;
}

void HotKeyTable::press(HotKeyCombination combination) {
    const auto state = state_;
    if (state->held.contains(combination)) {
        return; // it repeats
    }
    std::vector<HotKeyIdentifier> fired;
    for (const auto& [id, entry] : state->entries) {
        if (entry.combination == combination && state->mayAct()) {
            fired.push_back(entry.identifier);
        }
    }
    state->held.emplace(combination, fired);
    for (const HotKeyIdentifier identifier : fired) {
        state->notify(HotKeyEventKind::hotKeyPressed, identifier);
    }
}

void HotKeyTable::release(HotKeyCombination combination) {
    const auto state = state_;
    if (const auto node = state->held.extract(combination)) {
        for (const HotKeyIdentifier identifier : node.mapped()) {
            state->notify(HotKeyEventKind::hotKeyReleased, identifier);
        }
    }
}

void HotKeyTable::releaseAll() {
    const auto state = state_;
    while (!state->held.empty()) {
        release(state->held.begin()->first);
    }
}

} // namespace calmora
