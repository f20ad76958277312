// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"
#include "platform/desktop/hotkeys/HotKeyTable.h"
#include "support/Signal.h"

#include <QStringList>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <vector>

namespace calmora {

class ShellLink;

/// Hot keys of a GNOME session: our extension in the shell takes them while it is attached, else
/// other hot keys do, if there are any. Each call waits for the shell's answer.
class ShellHotKeys final : public HotKeys {
  public:
    /// `link` and `other` must outlive it. `mayReturn`: the others may take over again when the
    /// extension leaves, because they ask the user nothing. `mayAct` says whether a press may act
    /// now.
    ShellHotKeys(ShellLink& link, HotKeys& other, bool mayReturn, std::function<bool()> mayAct);
    ShellHotKeys(const ShellHotKeys&) = delete;
    ShellHotKeys& operator=(const ShellHotKeys&) = delete;

    [[nodiscard]] std::optional<std::string> unavailableReason() const override;

    /// A key without a number on X11 keyboards is a bad value; one that the shell refuses is taken.
    /// While the extension is about to come, success.
    [[nodiscard]] HotKeyRegistration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                    HotKeyIdentifier identifier) override;
    [[nodiscard]] Subscription installEventHandler(Handler handler) override;
    void addEventTypes(HotKeyEventTypes types) override;
    void removeEventTypes(HotKeyEventTypes types) override;
    [[nodiscard]] std::string limitation() const override;
    void setActions(std::function<std::vector<HotKeyAction>()> actions) override;
    /// Of a key that was recorded and that the shell refuses: unassigned.
    [[nodiscard]] HotKeyHint hint(const std::string& actionId) const override;
    [[nodiscard]] Subscription onHintsChanged(std::function<void()> handler) override;

  private:
    [[nodiscard]] bool isShells() const;
    void stateChanged();
    /// Makes the shell hold exactly the keys of the table; notes those that it refuses. False
    /// without an answer; tries again then, because a shell that is busy, as at login, has grabbed
    /// the keys perhaps, but under numbers that we do not know.
    bool grab();
    void takeElsewhere(HotKeyCombination combination);
    void removed(HotKeyCombination combination);
    /// What is registered.
    [[nodiscard]] std::set<HotKeyCombination> combinations() const;

    ShellLink& link_;
    HotKeys& other_;
    bool mayReturn_ = false;
    bool wasAttached_ = false;
    HotKeyTable table_;
    /// By the shell's numbers.
    std::map<uint, HotKeyCombination> grabbed_;
    std::set<HotKeyCombination> refused_;
    /// Those that other hot keys hold meanwhile.
    std::map<HotKeyCombination, HotKeyRegistration> elsewhere_;
    std::function<std::vector<HotKeyAction>()> actions_;
    Signal<> hintsChanged_;
    Subscription otherHandler_;
    std::vector<Subscription> subscriptions_;
    QTimer grabbingAgain_;
};

/// The combination as mutter takes it, such as "<Control><Alt>0x2e"; empty for a key without a
/// number. Source: mutter, meta_parse_accelerator: a hexadecimal number is an X key code.
[[nodiscard]] QString shellAccelerator(HotKeyCombination combination);

} // namespace calmora
