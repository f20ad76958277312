// SPDX-License-Identifier: MIT
#include "ui/AppRowView.h"

#include "ui/QuitTexts.h"
#include "ui/ReasonButton.h"
#include "ui/RowLayout.h"
#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr Points rowSpacing{10};
constexpr Points rowIconSide{24};
constexpr int figureSymbolPoints = 9;
constexpr Points figureGap{2};
constexpr Points badgeGap{3};
constexpr Points badgePadding{6};
constexpr int quitPoints = 16;
/// Controls take clicks a little beyond what they draw.
constexpr Points clickMargin{5};
/// Between the sides of the row and its face under the pointer.
constexpr Points highlightInset{6};
constexpr int hoverMilliseconds = 100;

/// A name keeps this many characters; figures give way first.
constexpr int leastCharacters = 8;

/// Where the name starts, from the leading end.
int nameStart() {
    return metrics::inset + metrics::checkBox + rowIconSide + 2 * rowSpacing;
}

/// The width of the name, or of its start where it is long.
int leastNameWidth(const QString& name) {
    const QString start =
        name.size() > leastCharacters ? name.first(leastCharacters) + QChar(0x2026) : name;
    return QFontMetrics(Theme::font(TextStyle::body, QFont::Medium)).horizontalAdvance(start) + 1;
}

/// Figures of the usual length keep their column, so that nothing jumps when digits change.
int columnWidth(const QFontMetrics& metrics, const QString& text, const QString& usual) {
    return std::max(metrics.horizontalAdvance(text), metrics.horizontalAdvance(usual));
}

/// Whether both rows look and read alike.
bool isShownAlike(const AppRow& a, const AppRow& b) {
    const auto isSame = [](const auto& one, const auto& other, const auto& text) {
        return one == other || text(one) == text(other);
    };
    return a.app.pid == b.app.pid && a.app.name == b.app.name && a.app.icon == b.app.icon &&
           a.app.isSelected == b.app.isSelected && a.isWhitelisted == b.isWhitelisted &&
           a.app.isBackgroundApp == b.app.isBackgroundApp && a.app.quitState == b.app.quitState &&
           a.app.canBeForced == b.app.canBeForced && a.isForceQuit == b.isForceQuit &&
           a.resourceDisplay == b.resourceDisplay &&
           isSame(a.app.cpuUsage, b.app.cpuUsage, cpuText) &&
           isSame(a.app.memoryMB, b.app.memoryMB, memoryText);
}

/// A percentage as screen readers read it: number and sign apart.
QString spoken(QString percent) {
    return percent.replace('%', QStringLiteral(" %"));
}

} // namespace

AppRowView::AppRowView(QWidget* parent)
    : StackRow(parent), check_(new CheckBox(this)), reason_(new ReasonButton(this)),
      quit_(new SymbolButton(this)) {
    setObjectName("appRow");
    check_->setObjectName("tick");
    reason_->installEventFilter(this);
    quit_->setObjectName("quit");
    hoverFade_.setDuration(hoverMilliseconds);
    hoverFade_.setEasingCurve(QEasingCurve::InOutQuad);
    hoverFade_.setStartValue(0.0);
    hoverFade_.setEndValue(1.0);
    check_->installEventFilter(this);
    quit_->installEventFilter(this);
    connect(&hoverFade_, &QVariantAnimation::valueChanged, this, [this] { update(); });
    // The callback may lead to other values for this row, so a copy of it runs.
    connect(check_, &QAbstractButton::clicked, this, [this] {
        if (const auto toggle = row_.onToggle) {
            toggle();
        }
    });
    connect(reason_, &QAbstractButton::clicked, this, [this] {
        if (const auto show = row_.onShow) {
            show();
        }
    });
    connect(quit_, &QAbstractButton::clicked, this, [this] {
        if (const auto quit = row_.onQuit) {
            quit();
        }
    });
}

bool AppRowView::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    return (isPress && row_.acceptsPress && !row_.acceptsPress()) ||
           StackRow::eventFilter(watched, event);
}

void AppRowView::setRow(AppRow row) {
    const AppRow old = std::exchange(row_, std::move(row));
    if (isShownAlike(old, row_)) {
        check_->setChecked(isTicked()); // A click ticks it before anybody decides.
        return;
    }
    const QString name = displayName(row_.app.name);
    const bool isOther = old.app.pid != row_.app.pid || name != name_ ||
                         old.isWhitelisted != row_.isWhitelisted ||
                         old.app.quitState != row_.app.quitState ||
                         old.app.isBackgroundApp != row_.app.isBackgroundApp ||
                         old.resourceDisplay != row_.resourceDisplay;
    if (old.app.pid != row_.app.pid) {
        // Another application: whether the pointer is over it is found out when it is in place.
        hoverFade_.stop();
        isHovered_ = false;
    }
    if (old.app.icon != row_.app.icon) {
        update(iconBounds_);
    }
    name_ = name;
    showState();
    if (isOther) {
        arrange();
        update();
        return;
    }
    // Only figures changed: repaint those that differ, unless a longer one moves its neighbours.
    const std::vector<Figure> before = figures_;
    std::vector<Figure> now = figures();
    if (before.size() != now.size()) {
        arrange();
        update();
        return;
    }
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i].bounds != before[i].bounds) {
            arrange();
            update();
            return;
        }
        if (now[i].text != before[i].text) {
            update(now[i].bounds);
        }
    }
    figures_ = std::move(now);
}

void AppRowView::showState() {
    check_->setChecked(isTicked());
    check_->setEnabled(!row_.isWhitelisted && !row_.app.isBackgroundApp);
    quit_->setVisible(!row_.isWhitelisted);
    quit_->setSymbol(row_.isForceQuit ? "xmark.circle.fill" : "power.circle", quitPoints,
                     row_.isForceQuit ? ThemeColor::red : ThemeColor::secondary);
    const bool isRefused = row_.isForceQuit && !row_.app.canBeForced;
    quit_->setEnabled(!isRefused && row_.app.quitState != QuitState::quitting);
    const QString action = isRefused ? uiText("This desktop does not tell which process has which "
                                              "of these windows, so none can be forced to quit.")
                                     : uiText(row_.isForceQuit ? "Force Quit" : "Quit");
    changeToolTip(*quit_, action);
    const auto say = [](QWidget& widget, const QString& words) {
        if (widget.accessibleName() != words) {
            widget.setAccessibleName(words);
        }
    };
    say(*check_, name_);
    say(*quit_, uiText(row_.isForceQuit ? "Force Quit %@" : "Quit %@", name_));
    QStringList details;
    if (row_.isWhitelisted) {
        details << uiText("Protected");
    } else if (row_.app.quitState != QuitState::none) {
        details << quitText(row_.app.quitState);
    } else {
        if (showsCPU(row_.resourceDisplay)) {
            details << uiText("CPU %@", spoken(cpuText(row_.app.cpuUsage)));
        }
        if (showsMemory(row_.resourceDisplay)) {
            details << uiText("Memory %@", memoryText(row_.app.memoryMB));
        }
    }
    say(*this, (QStringList(name_) + details).join(", "));
    reason_->setReason(row_.isWhitelisted ? QuitState::none : row_.app.quitState, name_);
    check_->setOpacity(opacity());
    quit_->setOpacity(opacity());
}

QRect AppRowView::mirrored(const QRect& bounds) const {
    return QStyle::visualRect(layoutDirection(), rect(), bounds);
}

std::vector<AppRowView::Figure> AppRowView::figures() const {
    std::vector<Figure> figures;
    if (row_.isWhitelisted) {
        return figures;
    }
    const QFontMetrics metrics(Theme::font(TextStyle::caption));
    const int symbolWidth = Theme::symbolSide(figureSymbolPoints) + figureGap;
    const int leftmost = nameStart() + leastNameWidth(name_) + rowSpacing;
    int right = width() - metrics::inset - Theme::symbolSide(quitPoints) - rowSpacing;
    if (row_.app.quitState == QuitState::quitting) {
        const QString text = metrics.elidedText(quitText(row_.app.quitState), Qt::ElideRight,
                                                std::max(0, right - leftmost));
        const int wide = metrics.horizontalAdvance(text);
        figures.push_back({{}, text, mirrored(QRect(right - wide, 0, wide, height()))});
    }
    if (row_.app.quitState != QuitState::none) {
        return figures;
    }
    const auto add = [&](const char* symbol, const QString& text, const QString& usual) {
        const int wide = symbolWidth + columnWidth(metrics, text, usual);
        if (right - wide < leftmost) {
            return;
        }
        figures.push_back({symbol, text, mirrored(QRect(right - wide, 0, wide, height()))});
        right -= wide + rowSpacing;
    };
    if (showsMemory(row_.resourceDisplay)) {
        add("memorychip", memoryText(row_.app.memoryMB), QStringLiteral("8888 MB"));
    }
    if (showsCPU(row_.resourceDisplay)) {
        add("cpu", cpuText(row_.app.cpuUsage), QStringLiteral("88.8%"));
    }
    return figures;
}

void AppRowView::arrange() {
    const int quitSide = Theme::symbolSide(quitPoints);
    const QRect all = rect();
    const QRect clickable(metrics::inset - clickMargin, 0, metrics::checkBox + 2 * clickMargin,
                          all.height());
    check_->setGeometry(mirrored(clickable));
    const int left = nameStart();
    iconBounds_ = mirrored(QRect(left - rowSpacing - rowIconSide, (all.height() - rowIconSide) / 2,
                                 rowIconSide, rowIconSide));

    int right = all.width() - metrics::inset;
    quit_->setGeometry(mirrored(
        QRect(right - quitSide - clickMargin, 0, quitSide + 2 * clickMargin, all.height())));

    figures_ = figures();
    badgeBounds_ = {};
    if (row_.isWhitelisted) {
        const QFontMetrics metrics(Theme::font(TextStyle::caption2, QFont::Medium));
        const int symbol = 2 * badgePadding + Theme::symbolSide(figureSymbolPoints);
        const int whole = symbol + badgeGap + metrics.horizontalAdvance(uiText("Protected"));
        const int room = right - rowSpacing - left - leastNameWidth(name_);
        const int wide = whole <= room ? whole : symbol;
        const int high = metrics.height() + Points{4};
        badgeBounds_ = QRect(right - wide, (all.height() - high) / 2, wide, high);
        right = badgeBounds_.left();
        badgeBounds_ = mirrored(badgeBounds_);
    } else {
        right -= quitSide;
        for (const Figure& figure : figures_) {
            right -= rowSpacing + figure.bounds.width();
        }
        if (reason_->hasReason()) {
            right -= rowSpacing;
            const int high = reason_->sizeHint().height();
            const int wide = reason_->widthFor(right - rowSpacing - left - leastNameWidth(name_));
            right -= wide;
            reason_->setGeometry(mirrored(QRect(right, (all.height() - high) / 2, wide, high)));
        }
    }
    const QRect nameBounds(left, 0, std::max(0, right - rowSpacing - left), all.height());
    nameBounds_ = mirrored(nameBounds);
    shownName_ = QFontMetrics(Theme::font(TextStyle::body, QFont::Medium))
                     .elidedText(name_, Qt::ElideRight, nameBounds.width());
    setToolTip(shownName_ == name_ ? QString() : name_);
}

void AppRowView::paintBadge(QPainter& painter, const Theme& theme) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.color(ThemeColor::tealFill));
    const double radius = badgeBounds_.height() / 2.0;
    painter.drawRoundedRect(badgeBounds_, radius, radius);
    const QColor teal = theme.color(ThemeColor::teal);
    const int side = Theme::symbolSide(figureSymbolPoints);
    const QRect inner = badgeBounds_.adjusted(badgePadding, 0, -badgePadding, 0);
    const QRect symbol(inner.left(), inner.top(), side, inner.height());
    const QRect text = inner.adjusted(side + badgeGap, 0, 0, 0);
    drawSymbol(painter, QStyle::visualRect(layoutDirection(), inner, symbol),
               "checkmark.shield.fill", side, teal);
    if (text.width() < side) {
        return; // There is room for the symbol only.
    }
    painter.setPen(teal);
    painter.setFont(Theme::font(TextStyle::caption2, QFont::Medium));
    painter.drawText(QStyle::visualRect(layoutDirection(), inner, text),
                     Qt::AlignCenter | Qt::TextSingleLine, uiText("Protected"));
}

void AppRowView::paintEvent(QPaintEvent* event) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double hover = hoverFade_.state() == QAbstractAnimation::Running
                             ? hoverFade_.currentValue().toDouble()
                             : (isHovered_ ? 1.0 : 0.0);
    if (hover > 0) {
        painter.setOpacity(hover);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ThemeColor::fill));
        painter.drawRoundedRect(rect().adjusted(highlightInset, 0, -highlightInset, 0),
                                metrics::rowRadius, metrics::rowRadius);
    }
    painter.setOpacity(opacity());
    const QRegion& region = event->region();
    if (region.intersects(iconBounds_)) {
        drawIcon(painter, iconBounds_, row_.app.icon, {"app.fill", rowIconSide - 2},
                 theme.color(ThemeColor::secondary));
    }
    if (region.intersects(nameBounds_)) {
        painter.setPen(theme.color(ThemeColor::primary));
        painter.setFont(Theme::font(TextStyle::body, QFont::Medium));
        drawLine(painter, nameBounds_, shownName_, LineEnd::leading, layoutDirection());
    }
    const int symbolSide = Theme::symbolSide(figureSymbolPoints);
    for (const Figure& figure : figures_) {
        if (!region.intersects(figure.bounds)) {
            continue;
        }
        if (!figure.symbol.isEmpty()) {
            QRect symbol = figure.bounds;
            symbol.setWidth(symbolSide);
            drawSymbol(painter, QStyle::visualRect(layoutDirection(), figure.bounds, symbol),
                       figure.symbol, symbolSide, theme.color(ThemeColor::tertiary));
        }
        painter.setPen(
            theme.color(figure.symbol.isEmpty() ? ThemeColor::tertiary : ThemeColor::secondary));
        painter.setFont(Theme::font(TextStyle::caption));
        drawLine(painter, figure.bounds, figure.text, LineEnd::trailing, layoutDirection());
    }
    if (row_.isWhitelisted) {
        paintBadge(painter, theme);
    }
    drawRowFocus(painter, *this);
}

void AppRowView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange ||
        event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange) {
        arrange();
        update();
    } else if (event->type() == QEvent::LanguageChange) {
        showState();
        arrange();
        update();
    } else if (event->type() == QEvent::ThemeChange) {
        update();
    }
    StackRow::changeEvent(event);
}

void AppRowView::hideEvent(QHideEvent*) {
    // A window that closes under the pointer gets no leave event.
    hoverFade_.stop();
    isHovered_ = false;
}

void AppRowView::updateHover() {
    setHovered(isVisible() && rect().contains(mapFromGlobal(QCursor::pos())));
}

void AppRowView::setHovered(bool hovered) {
    if (hovered == isHovered_) {
        return;
    }
    isHovered_ = hovered;
    hoverFade_.setDirection(hovered ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (hoverFade_.state() != QAbstractAnimation::Running && isVisible()) {
        hoverFade_.start();
    }
    update();
}

void AppRowView::setPresence(double presence) {
    if (presence != presence_) {
        presence_ = presence;
        check_->setOpacity(opacity());
        quit_->setOpacity(opacity());
        update();
    }
}

std::optional<RowAction> AppRowView::accessibleAction() const {
    if (row_.app.isBackgroundApp) {
        return {};
    }
    return RowAction{
        .name = row_.isWhitelisted ? QStringLiteral("unprotect") : QStringLiteral("protect"),
        .title = uiText(row_.isWhitelisted ? "Remove Protection" : "Never Quit This App"),
        // It belongs to the row as it is now: a menu stays open while the list changes.
        .run =
            [choose = row_.onToggleWhitelist] {
                if (choose) {
                    choose();
                }
            },
    };
}

QIcon AppRowView::menuSymbol(const QMenu& menu, const char* name, ThemeColor color) const {
    const Theme theme = Theme::of(*this);
    const int side = menu.style()->pixelMetric(QStyle::PM_SmallIconSize);
    QIcon symbol;
    for (const auto& [mode, inColor] :
         {std::pair(QIcon::Normal, theme.color(color)),
          std::pair(QIcon::Selected, theme.color(ThemeColor::onAccent))}) {
        symbol.addPixmap(symbolPixmap(name, side, inColor, devicePixelRatioF()), mode);
    }
    return symbol;
}

void AppRowView::contextMenuEvent(QContextMenuEvent* event) {
    const auto action = accessibleAction();
    if (!action) {
        return;
    }
    auto* menu = new QMenu(this);
    menu->setObjectName("rowMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const ThemeColor color = row_.isWhitelisted ? ThemeColor::red : ThemeColor::primary;
    if (row_.isWhitelisted) {
        QPalette palette = menu->palette();
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(role, Theme::of(*this).color(color));
        }
        menu->setPalette(palette);
    }
    const char* shield = row_.isWhitelisted ? "shield.slash" : "shield.lefthalf.filled";
    QAction* item = menu->addAction(menuSymbol(*menu, shield, color), action->title);
    item->setIconVisibleInMenu(true);
    connect(item, &QAction::triggered, menu, action->run);
    const bool mayQuit = !row_.isWhitelisted && (row_.app.canBeForced || !row_.isForceQuit);
    if (mayQuit && row_.canQuitAndReopen && row_.canQuitAndReopen()) {
        QAction* again =
            menu->addAction(menuSymbol(*menu, "power.circle", color),
                            uiText(row_.isForceQuit ? "Force Quit and Reopen" : "Quit and Reopen"));
        again->setIconVisibleInMenu(true);
        connect(again, &QAction::triggered, menu, row_.onQuitAndReopen);
    }
    if (event->reason() == QContextMenuEvent::Keyboard) {
        menu->popup(mapToGlobal(nameBounds_.center()));
        menu->setActiveAction(item);
    } else {
        menu->popup(event->globalPos());
    }
}

std::optional<RowFocus> AppRowView::focused() const {
    if (quit_->hasFocus()) {
        return RowFocus{0, RowColumn::quit};
    }
    if (check_->hasFocus() || reason_->hasFocus() || hasFocus()) {
        return RowFocus{0, RowColumn::check};
    }
    return {};
}

void AppRowView::focusOn(RowFocus place) {
    const std::vector<QWidget*> stops = tabStops(0);
    QWidget* target = place.column == RowColumn::check ? stops.front() : stops.back();
    target->setFocus(Qt::TabFocusReason);
    target->update();
}

std::vector<QWidget*> AppRowView::tabStops(int) {
    std::vector<QWidget*> stops;
    if (check_->isEnabled()) {
        stops.push_back(check_);
    }
    if (reason_->hasReason()) {
        stops.push_back(reason_);
    }
    if (!row_.isWhitelisted && quit_->isEnabled()) {
        stops.push_back(quit_);
    }
    if (stops.empty()) {
        // A protected row still has its context menu.
        stops.push_back(this);
    }
    return stops;
}

} // namespace calmora
