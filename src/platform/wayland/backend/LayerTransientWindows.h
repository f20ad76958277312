// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/TransientWindows.h"
#include "platform/wayland/backend/LayerRole.h"
#include "platform/wayland/backend/LayerShell.h"
#include "platform/wayland/backend/OutsideCatcher.h"
#include "support/Signal.h"

#include <QObject>

#include <map>
#include <memory>
#include <optional>

namespace calmora {

/// Transient windows on Wayland as layer surfaces, the popover above windows, and alerts, menus and
/// tool tips above it. Without a role of their own those would become windows among the others.
class LayerTransientWindows final : public QObject, public TransientWindows {
  public:
    /// Whether the place that panels give for their icon is one on the screen (Plasma) or relative
    /// to the icon (others).
    explicit LayerTransientWindows(bool panelTellsPlace);

    ~LayerTransientWindows() override;

    /// Whether Qt runs on Wayland and the compositor has layers. Otherwise of no use.
    [[nodiscard]] bool isUsable() const { return shell_.isPresent(); }

    [[nodiscard]] Qt::WindowFlags transientFlags() const override;

    /// At the pointer if it is in a bar, at the icon where the panel tells, else at the last place.
    [[nodiscard]] PopoverSurroundings popoverSurroundings(std::optional<Rect> icon) override;

    [[nodiscard]] bool isComposited() override { return true; }

    void setInputArea(QWindow& window, const QRect& inner) override;

    [[nodiscard]] std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) override;

    /// Only events tell them.
    [[nodiscard]] std::optional<ModifierFlags> modifiers() override { return std::nullopt; }

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override { return std::nullopt; }

    /// As WindowBackend::activationToken(): that of the panel's last click on our icon, else one on
    /// behalf of our window that has the keyboard.
    [[nodiscard]] std::string activationToken() const;

    /// Demands the keyboard for a window that is shown, or is content to have it.
    void setKeyboard(QWindow& window, LayerRole::Keyboard keyboard);

    /// Tells of a press outside of our windows.
    [[nodiscard]] Subscription onPressedOutside(std::function<void()> handler) {
        return pressedOutside_.connect(std::move(handler));
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Shown {
        std::unique_ptr<LayerRole> role;
        /// The part that takes the pointer, within the window; absent for all of it.
        std::optional<QRect> inner;
        QMetaObject::Connection hiding;
    };

    [[nodiscard]] std::optional<LayerRole::Options> optionsFor(const QWindow& window) const;
    void willShow(QWindow& window);
    void willHide(QWindow& window);
    void takenAway(QWindow& window);
    void placeAtPointer(QWindow& menu);
    void cover(std::chrono::milliseconds timeout);
    void learnIcon();
    void updateCover();
    void pressed();

    const bool panelTellsPlace_;
    LayerShell shell_;
    std::map<QWindow*, Shown> shown_;
    std::unique_ptr<OutsideCatcher> catcher_;
    /// The compositor told where the pointer was when it was last asked.
    bool tellsPointer_ = true;
    /// Where the icon was last.
    std::optional<Rect> lastIcon_;
    Signal<> pressedOutside_;
};

} // namespace calmora
