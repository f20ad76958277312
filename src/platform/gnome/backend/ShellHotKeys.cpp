// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellHotKeys.h"

#include "platform/gnome/backend/ShellLink.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <variant>

namespace calmora {
namespace {

/// While the link gives a silent shell time, trying costs nothing.
constexpr std::chrono::seconds grabbingInterval{1};

} // namespace

QString shellAccelerator(HotKeyCombination combination) {
    const auto key = x11KeyCode(combination.keyCode);
    if (!key || isLockKey(combination.keyCode)) {
        return {};
    }
    QString modifiers;
    for (const auto& [mask, name] :
         {std::pair(carbon::control, "<Control>"), std::pair(carbon::option, "<Alt>"),
          std::pair(carbon::shift, "<Shift>"), std::pair(carbon::command, "<Super>")}) {
        if ((combination.modifiers & mask) != 0) {
            modifiers += name;
        }
    }
    return modifiers + QString("0x%1").arg(*key, 2, 16, QChar('0'));
}

ShellHotKeys::ShellHotKeys(ShellLink& link, HotKeys& other, bool mayReturn,
                           std::function<bool()> mayAct)
    : link_(link), other_(other), mayReturn_(mayReturn), table_(std::move(mayAct)) {
    grabbingAgain_.setSingleShot(true);
    QObject::connect(&grabbingAgain_, &QTimer::timeout, &grabbingAgain_, [this] {
        if (link_.isAttached() && grab()) {
            hintsChanged_.emit();
        }
    });
    subscriptions_.push_back(link_.onStateChanged([this] { stateChanged(); }));
    subscriptions_.push_back(link_.onKeyPressed([this](uint id) {
        if (const auto found = grabbed_.find(id); found != grabbed_.end()) {
            // A copy: the handler may release the key. The shell tells of no release.
            const HotKeyCombination combination = found->second;
            table_.press(combination);
            table_.release(combination);
        }
    }));
}

bool ShellHotKeys::isShells() const {
    return link_.state() != ShellLink::State::absent || (wasAttached_ && !mayReturn_);
}

std::optional<std::string> ShellHotKeys::unavailableReason() const {
    return isShells() ? std::nullopt : other_.unavailableReason();
}

HotKeyRegistration ShellHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                HotKeyIdentifier identifier) {
    const HotKeyCombination combination{keyCode, modifiers};
    if (shellAccelerator(combination).isEmpty()) {
        return {HotKeyStatus::badValue, {}};
    }
    auto token = table_.add(combination, identifier, [this, combination] { removed(combination); });
    if (link_.isAttached()) {
        const bool isAnswered = grab();
        if (!isAnswered || refused_.contains(combination)) {
            return {isAnswered ? HotKeyStatus::taken : HotKeyStatus::unavailable, {}};
        }
    } else if (!isShells()) {
        takeElsewhere(combination);
        if (const std::int32_t status = elsewhere_[combination].status;
            status != HotKeyStatus::success) {
            return {status, {}};
        }
    }
    return {HotKeyStatus::success, std::move(token)};
}

void ShellHotKeys::removed(HotKeyCombination combination) {
    if (!combinations().contains(combination)) {
        elsewhere_.erase(combination);
    }
    if (link_.isAttached()) {
        grab();
    }
}

std::set<HotKeyCombination> ShellHotKeys::combinations() const {
    const auto all = table_.combinations();
    return {all.begin(), all.end()};
}

void ShellHotKeys::takeElsewhere(HotKeyCombination combination) {
    if (elsewhere_.contains(combination)) {
        return;
    }
    // The handler finds the hot key by its combination.
    elsewhere_[combination] = other_.registerHotKey(combination.keyCode, combination.modifiers,
                                                    {combination.modifiers, combination.keyCode});
}

bool ShellHotKeys::grab() {
    const auto wanted = combinations();
    QStringList accelerators;
    for (const HotKeyCombination combination : wanted) {
        accelerators.append(shellAccelerator(combination));
    }
    const auto ids = link_.grabKeys(accelerators);
    if (!ids) {
        grabbingAgain_.start(grabbingInterval);
        return false;
    }
    grabbingAgain_.stop();
    grabbed_.clear();
    refused_.clear();
    auto id = ids->begin();
    for (const HotKeyCombination combination : wanted) {
        if (*id != 0) {
            grabbed_[*id] = combination;
        } else {
            refused_.insert(combination);
        }
        ++id;
    }
    return true;
}

void ShellHotKeys::stateChanged() {
    grabbed_.clear();
    refused_.clear();
    elsewhere_.clear();
    wasAttached_ = wasAttached_ || link_.isAttached();
    other_.setActions(isShells() ? nullptr : actions_);
    if (link_.isAttached()) {
        grab();
    } else if (!isShells()) {
        for (const HotKeyCombination combination : combinations()) {
            takeElsewhere(combination);
        }
    }
    hintsChanged_.emit();
}

Subscription ShellHotKeys::installEventHandler(Handler handler) {
    otherHandler_ = other_.installEventHandler([this, handler](const HotKeyEvent& event) {
        const auto* identifier = std::get_if<HotKeyIdentifier>(&event.identifier);
        if (!identifier) {
            return handler(event);
        }
        const HotKeyCombination combination{identifier->id, identifier->signature};
        event.kind == HotKeyEventKind::hotKeyPressed ? table_.press(combination)
                                                     : table_.release(combination);
        return HotKeyStatus::success;
    });
    return table_.setHandler(std::move(handler));
}

void ShellHotKeys::addEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(true);
    }
    other_.addEventTypes(types);
}

void ShellHotKeys::removeEventTypes(HotKeyEventTypes types) {
    if (types == HotKeyEventTypes::hotKeys) {
        table_.setReporting(false);
    }
    other_.removeEventTypes(types);
}

std::string ShellHotKeys::limitation() const {
    if (!isShells()) {
        return other_.limitation();
    }
    return link_.state() == ShellLink::State::absent
               ? "Shortcuts wait for the GNOME extension to be switched on again."
               : "";
}

void ShellHotKeys::setActions(std::function<std::vector<HotKeyAction>()> actions) {
    actions_ = std::move(actions);
    other_.setActions(isShells() ? nullptr : actions_);
}

HotKeyHint ShellHotKeys::hint(const std::string& actionId) const {
    if (!isShells()) {
        return other_.hint(actionId);
    }
    const auto actions = actions_ ? actions_() : std::vector<HotKeyAction>();
    const auto found = std::ranges::find(actions, actionId, &HotKeyAction::id);
    const bool isRefused =
        found != actions.end() && found->combination && refused_.contains(*found->combination);
    return {.kind = isRefused ? HotKeyHint::Kind::unassigned : HotKeyHint::Kind::none, .text = {}};
}

Subscription ShellHotKeys::onHintsChanged(std::function<void()> handler) {
    auto both = std::make_shared<std::vector<Subscription>>();
    both->push_back(hintsChanged_.connect(handler));
    both->push_back(other_.onHintsChanged(std::move(handler)));
    return Subscription([both] { both->clear(); });
}

} // namespace calmora
