// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/wayland/backend/CompositorConnection.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// An invisible surface over every output while a transient window is open. It takes the clicks
/// outside of that window, and tells where the pointer is, which Wayland tells nobody else. Has a
/// connection of its own, so that it costs nothing while nothing is open.
/// Source: zwlr_layer_shell_v1; wp_viewporter (one pixel fills the output).
class OutsideCatcher {
  public:
    /// One output. All places are relative to it, in device-independent pixels.
    struct Output {
        std::string name;
        Size size;
        /// What bars leave of it. Where that lies is not told.
        Size usable;
        /// Where the pointer was first. Absent while it has been elsewhere, or where the compositor
        /// tells only once it moves.
        std::optional<Point> pointer;
    };

    /// Covers the outputs, and waits `timeout` at most for the compositor to tell where the
    /// pointer is. `onPress` is called from the event loop, for every button and touch.
    OutsideCatcher(std::chrono::milliseconds timeout, std::function<void()> onPress);

    OutsideCatcher(const OutsideCatcher&) = delete;
    OutsideCatcher& operator=(const OutsideCatcher&) = delete;
    ~OutsideCatcher();

    /// Empty where the surfaces could not be made.
    [[nodiscard]] std::vector<Output> outputs() const;

    /// Leaves `holes` on the output of this name to the windows below.
    void setHoles(const std::string& output, const std::vector<Rect>& holes);

    /// Takes clicks, or leaves all of them to the windows below.
    void setCatching(bool isCatching);

  private:
    struct Objects;
    class Cover;
    class Input;

    void notifyPress();

    CompositorConnection connection_;
    std::function<void()> onPress_;
    std::unique_ptr<Objects> objects_;
    std::vector<std::unique_ptr<Cover>> covers_;
    std::unique_ptr<Input> input_;
    bool isCatching_ = true;
    QObject context_;
};

} // namespace calmora
