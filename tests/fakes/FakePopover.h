#pragma once

#include "platform/Popover.h"
#include "support/Signal.h"

#include <utility>
#include <vector>

namespace calmora {

/// A popover without a window.
class FakePopover final : public Popover {
  public:
    void setContentSize(Size newSize) override { size = newSize; }

    bool isShown() const override { return shown_; }

    void show(std::optional<Rect> anchor) override {
        willShow.emit();
        shown_ = true;
        anchors.push_back(anchor);
    }

    void performClose() override {
        if (shown_) {
            shown_ = false;
            didClose.emit();
        }
    }

    Subscription onWillShow(std::function<void()> handler) override {
        return willShow.connect(std::move(handler));
    }

    Subscription onDidClose(std::function<void()> handler) override {
        return didClose.connect(std::move(handler));
    }

    Size size;
    /// The anchor of every showing, in order.
    std::vector<std::optional<Rect>> anchors;
    Signal<> willShow;
    Signal<> didClose;

  private:
    bool shown_ = false;
};

} // namespace calmora
