// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "settings/AppSettings.h"
#include "ui/RowStack.h"

#include <functional>
#include <utility>

namespace calmora {

/// The values that a BackgroundGroupRowView shows, and its callbacks, each called with the process
/// id of the member.
struct BackgroundGroupRow {
    /// The group; its `childProcesses` are the members.
    AppInfo app = {};
    /// Force mode of the popover.
    bool isForceQuit = false;
    /// Handed on to the members' rows.
    ResourceDisplay resourceDisplay = ResourceDisplay::cpuOnly;
    /// A member's tick box was clicked.
    std::function<void(ProcessId)> onToggle = nullptr;
    /// A member's quit button was clicked.
    std::function<void(ProcessId)> onQuit = nullptr;
    /// A member's protection item was chosen; may be absent.
    std::function<void(ProcessId)> onToggleWhitelist = nullptr;
    /// The reason why a member has stayed was clicked.
    std::function<void(ProcessId)> onShow = nullptr;
    /// Whether a press on a member's controls may act now; absent means always.
    std::function<bool()> acceptsPress = nullptr;
    /// Another member has come under the pointer by itself; may be absent.
    std::function<void()> onMembersMoved = nullptr;
};

/// A group of background applications: a header that opens and closes it, and one AppRowView per
/// member, indented, of which only those in sight exist. Starts collapsed.
class BackgroundGroupRowView final : public StackRow {
  public:
    explicit BackgroundGroupRowView(QWidget* parent = nullptr);

    void setRow(BackgroundGroupRow row);

    /// Whether the members are shown.
    [[nodiscard]] bool isExpanded() const { return isExpanded_; }

    /// Opens or closes the group without calling the handler.
    void setExpanded(bool expanded);

    /// Called after the user opened or closed the group; the owner then gives the view the height
    /// of sizeHint(), at once or animated.
    void setOnExpandedChanged(std::function<void(bool)> handler) {
        onExpandedChanged_ = std::move(handler);
    }

    /// The height of a group with its header and, when expanded, its members.
    [[nodiscard]] static int heightOf(const AppInfo& app, bool isExpanded);

    [[nodiscard]] QSize sizeHint() const override { return {360, heightOf(row_.app, isExpanded_)}; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }

    void setPresence(double presence) override;
    void setBand(int top, int bottom) override;
    void updateHover() override;
    [[nodiscard]] std::optional<RowFocus> focused() const override;
    void focusOn(RowFocus place) override;
    [[nodiscard]] std::vector<QWidget*> tabStops(int line) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Header;

    void bindMember(StackRow& view, const RowKey& key);
    void showBand();

    BackgroundGroupRow row_;
    bool isExpanded_ = false;
    std::function<void(bool)> onExpandedChanged_;
    Header* header_;
    RowStack* members_;
    int bandTop_ = 0;
    int bandBottom_;
};

} // namespace calmora
