// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Popover.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/window/TransientFrame.h"
#include "platform/qt/window/TransientWindows.h"
#include "support/Signal.h"

#include <QDeadlineTimer>

#include <chrono>
#include <memory>

namespace calmora {

/// The window under the status icon. It has the focus while it is shown and closes at Escape, a
/// press outside of it and the icon, and when another window gets the focus. An alert of ours does
/// not close it.
class QtPopover final : public Popover {
  public:
    /// For so long it refuses to open after the user left it. Otherwise one click on the status
    /// icon would close it by the press, which counts as one outside where the icon's place is
    /// unknown, and open it again by the release.
    static constexpr std::chrono::milliseconds reopenDelay{250};

    /// The arguments must outlive the popover.
    QtPopover(TransientWindows& windows, AlertSession& alerts);

    ~QtPopover() override;

    void setContent(std::unique_ptr<QWidget> content);

    void setContentSize(Size size) override;

    [[nodiscard]] bool isShown() const override { return focus_ != nullptr; }

    void show(std::optional<Rect> anchor) override;

    void stayOpenWhile(std::function<bool()> holds) override { holds_ = std::move(holds); }

    void performClose() override;

    [[nodiscard]] Subscription onWillShow(std::function<void()> handler) override;

    [[nodiscard]] Subscription onDidClose(std::function<void()> handler) override;

    /// The body's bounds on the virtual screen.
    [[nodiscard]] const Rect& bounds() const { return bounds_; }

  private:
    void userLeft(Leaving how);

    TransientWindows& windows_;
    AlertSession& alerts_;
    Size contentSize_;
    std::optional<Rect> anchor_;
    Rect bounds_;
    QDeadlineTimer reopening_{0};
    std::function<bool()> holds_ = [] { return false; };
    Signal<> willShow_;
    Signal<> didClose_;
    TransientFrame frame_;
    std::unique_ptr<FocusGrab> focus_;
    Subscription alertChanges_;
};

} // namespace calmora
