// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeyboardLayout.h"
#include "platform/linux/keyboard/AsciiKeymap.h"
#include "support/Signal.h"

namespace calmora {

class X11Keyboard;

/// What the keys write, by the X server's keymap: the active layout if it can write ASCII, else
/// the first of the user's layouts that can, else a US layout. The keymap is read when a key is
/// first asked for and again after a change.
class X11KeyboardLayout final : public KeyboardLayout {
  public:
    /// Reads the keymap of another window system; null if there is none.
    using ReadKeymap = std::function<XkbKeymap(xkb_context*)>;

    /// `keyboard` must outlive the layout. `readOther` is called where there is no X server, such
    /// as on Wayland without Xwayland; may be empty.
    explicit X11KeyboardLayout(X11Keyboard& keyboard, ReadKeymap readOther = nullptr);

    [[nodiscard]] std::optional<std::string> character(std::int64_t keyCode) const override;
    [[nodiscard]] std::optional<std::string> shiftedCharacter(std::int64_t keyCode) const override;
    [[nodiscard]] bool isDeadKey(std::int64_t keyCode, bool withShift) const override;
    [[nodiscard]] std::optional<std::int64_t> keyCode(std::uint32_t nativeKey) const override;

    [[nodiscard]] Subscription onChanged(std::function<void()> handler) override {
        return changed_.connect(std::move(handler));
    }

  private:
    [[nodiscard]] std::optional<std::string> characterOn(std::int64_t keyCode,
                                                         std::uint32_t level) const;
    void read() const;
    void readFromServer() const;
    void readFromOther() const;

    X11Keyboard& keyboard_;
    ReadKeymap readOther_;
    XkbContext context_ = makeXkbContext();
    /// Null until it is read.
    mutable XkbKeymap keymap_;
    mutable xkb_layout_index_t layout_ = 0;
    Signal<> changed_;
    Subscription layoutChanges_;
};

} // namespace calmora
