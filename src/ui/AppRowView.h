// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "settings/AppSettings.h"
#include "ui/RowStack.h"
#include "widgets/Controls.h"

#include <QIcon>
#include <QVariantAnimation>

#include <functional>
#include <optional>

class QMenu;

namespace calmora {

class ReasonButton;

/// The values that an AppRowView shows, and its callbacks.
struct AppRow {
    AppInfo app = {};
    /// Force mode of the popover.
    bool isForceQuit = false;
    ResourceDisplay resourceDisplay = ResourceDisplay::cpuOnly;
    /// The application is protected: a badge replaces figures and quit button.
    bool isWhitelisted = false;
    /// The tick box was clicked.
    std::function<void()> onToggle = nullptr;
    /// The quit button was clicked.
    std::function<void()> onQuit = nullptr;
    /// The protection item of the context menu was chosen.
    std::function<void()> onToggleWhitelist = nullptr;
    /// Whether the context menu offers to quit the application and to start it again; absent means
    /// no. Asked when the menu opens.
    std::function<bool()> canQuitAndReopen = nullptr;
    /// That was chosen.
    std::function<void()> onQuitAndReopen = nullptr;
    /// The reason why the application has stayed was clicked.
    std::function<void()> onShow = nullptr;
    /// Whether a press on the tick box or the quit button may act now; absent means always.
    std::function<bool()> acceptsPress = nullptr;
};

/// One application: tick box, icon, name, figures and quit button. Holds no model: it shows the
/// values that it is given and reports actions. A background application's box is disabled and
/// unticked and it has no context menu, since neither would do anything; it can be quit. An
/// application with several candidates cannot be forced: the quit button's tool tip says why.
/// While it is being quit, or has stayed, that is said in place of the figures; a reason is a
/// button that is cut where the name needs the space. Repaints only where something shown has
/// changed.
class AppRowView final : public StackRow {
  public:
    explicit AppRowView(QWidget* parent = nullptr);

    /// Shows other values; another process id makes it another row.
    void setRow(AppRow row);

    /// Whether the pointer is over the row.
    [[nodiscard]] bool isHovered() const { return isHovered_; }

    /// The name as it is drawn: cut at its end where it is too long.
    [[nodiscard]] const QString& shownName() const { return shownName_; }

    [[nodiscard]] QSize sizeHint() const override { return {Points{360}, appRowHeight}; }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::ListItem;
    }

    /// The item of the context menu.
    [[nodiscard]] std::optional<RowAction> accessibleAction() const override;
    void setPresence(double presence) override;
    void updateHover() override;
    [[nodiscard]] std::optional<RowFocus> focused() const override;
    void focusOn(RowFocus place) override;
    [[nodiscard]] std::vector<QWidget*> tabStops(int line) override;

  protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

    void enterEvent(QEnterEvent*) override { setHovered(true); }

    /// Swallows presses on the controls that must not act.
    bool eventFilter(QObject* watched, QEvent* event) override;

    void hideEvent(QHideEvent* event) override;

    void leaveEvent(QEvent*) override { setHovered(false); }

    void paintEvent(QPaintEvent* event) override;

    void resizeEvent(QResizeEvent*) override { arrange(); }

  private:
    /// One shown figure: a symbol, or none, and a text, right-aligned in a column.
    struct Figure {
        QString symbol;
        QString text;
        QRect bounds;
    };

    [[nodiscard]] bool isTicked() const {
        return row_.app.isSelected && !row_.app.isBackgroundApp && !row_.isWhitelisted;
    }

    void setHovered(bool hovered);
    void showState();
    void arrange();
    [[nodiscard]] std::vector<Figure> figures() const;
    [[nodiscard]] QRect mirrored(const QRect& bounds) const;
    /// The symbol of an item of the context menu.
    [[nodiscard]] QIcon menuSymbol(const QMenu& menu, const char* name, ThemeColor color) const;
    void paintBadge(QPainter& painter, const Theme& theme) const;

    /// Background applications are fainter.
    [[nodiscard]] double opacity() const {
        return presence_ * (row_.app.isBackgroundApp ? 0.7 : 1.0);
    }

    AppRow row_;
    bool isHovered_ = false;
    double presence_ = 1;

    CheckBox* check_;
    ReasonButton* reason_;
    SymbolButton* quit_;
    QVariantAnimation hoverFade_;

    QString name_;
    QString shownName_;
    QRect nameBounds_;
    QRect iconBounds_;
    QRect badgeBounds_;
    std::vector<Figure> figures_;
};

} // namespace calmora
