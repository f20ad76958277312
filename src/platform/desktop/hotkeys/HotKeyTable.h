// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"
#include "support/Subscription.h"

#include <functional>
#include <memory>
#include <vector>

namespace calmora {

/// The registered hot keys of a desktop that reports presses and releases, perhaps again and again
/// while a key is held. Tokens may outlive the table. Main thread.
class HotKeyTable {
  public:
    /// A press acts only while `mayAct` says so.
    explicit HotKeyTable(std::function<bool()> mayAct);
    ~HotKeyTable();

    HotKeyTable(const HotKeyTable&) = delete;
    HotKeyTable& operator=(const HotKeyTable&) = delete;

    /// Adds a hot key until the token ends; `onRemoved` is called then, unless the table is gone.
    [[nodiscard]] Subscription add(HotKeyCombination combination, HotKeyIdentifier identifier,
                                   std::function<void()> onRemoved);

    [[nodiscard]] std::vector<HotKeyCombination> combinations() const;

    /// Installs the one handler, until the token ends.
    [[nodiscard]] Subscription setHandler(HotKeys::Handler handler);

    /// Whether presses and releases reach the handler; initially not.
    void setReporting(bool isReporting);

    /// The desktop reports a press. Reports of a key that is held already are ignored.
    void press(HotKeyCombination combination);

    /// The desktop reports a release. Reaches the handler if the press did.
    void release(HotKeyCombination combination);

    /// Releases every key: nobody will report it.
    void releaseAll();

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace calmora
