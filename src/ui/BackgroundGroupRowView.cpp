// SPDX-License-Identifier: MIT
#include "ui/BackgroundGroupRowView.h"

#include "ui/AppRowView.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <limits>
#include <utility>

namespace calmora {
namespace {

constexpr Points headerSpacing{8};
constexpr int chevronPoints = 10;
constexpr Points chevronBox{12};
constexpr Points groupIconSide{20};
constexpr Points countPadding{5};
constexpr Points memberIndent{20};

std::size_t memberCount(const AppInfo& app) {
    return app.childProcesses ? app.childProcesses->size() : 0;
}

} // namespace

/// The clickable first line of a group.
class BackgroundGroupRowView::Header final : public Button {
  public:
    explicit Header(BackgroundGroupRowView& group)
        : Button({}, TextStyle::caption, &group), group_(group) {
        setObjectName("groupHeader");
        setFocusPolicy(Qt::TabFocus);
        setAutoDefault(false);
    }

    void setPresence(double presence) {
        if (presence != presence_) {
            presence_ = presence;
            update();
        }
    }

    /// Shows the group's present values; repaints only when they differ.
    void showGroup() {
        const AppInfo& app = group_.row_.app;
        const QString name = displayName(app.name);
        const std::size_t count = memberCount(app);
        if (name != name_ || count != count_ || app.icon != icon_ ||
            group_.isExpanded_ != isExpanded_) {
            name_ = name;
            count_ = count;
            isExpanded_ = group_.isExpanded_;
            icon_ = app.icon;
            setAccessibleName(QStringLiteral("%1, %2").arg(name_).arg(count_));
            setAccessibleDescription(uiText(isExpanded_ ? "Expanded" : "Collapsed"));
            update();
        }
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isLeft = event->key() == Qt::Key_Left;
        if (isLeft || event->key() == Qt::Key_Right) {
            const bool closes = isLeft == (layoutDirection() == Qt::LeftToRight);
            if (closes == isExpanded_) {
                click();
            }
        } else {
            Button::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent*) override {
        const Theme theme = Theme::of(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(isDown() ? presence_ * 0.6 : presence_);
        const auto placed = [this](int x, int width, int height) {
            const QRect box(x, (this->height() - height) / 2, width, height);
            return QStyle::visualRect(layoutDirection(), rect(), box);
        };
        int left = metrics::inset;
        const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
        const QRect chevron = placed(left, chevronBox, chevronBox);
        painter.save();
        if (!isExpanded_ && rightToLeft) {
            painter.translate(2 * chevron.center().x() + 1, 0);
            painter.scale(-1, 1);
        }
        drawSymbol(painter, chevron, isExpanded_ ? "chevron.down" : "chevron.right",
                   Theme::symbolSide(chevronPoints) - 2, theme.color(ThemeColor::tertiary));
        painter.restore();
        left += chevronBox + headerSpacing;

        const QRect iconBounds = placed(left, groupIconSide, groupIconSide);
        drawIcon(painter, iconBounds, icon_, {"gearshape.2.fill", groupIconSide - 2},
                 theme.color(ThemeColor::tertiary));
        left += groupIconSide + headerSpacing;

        const QString count = QString::number(count_);
        const QFont countFont = Theme::font(TextStyle::caption2);
        const QFontMetrics countMetrics(countFont);
        const int countWidth = countMetrics.horizontalAdvance(count) + 2 * countPadding;
        const QFont nameFont = Theme::font(TextStyle::caption, QFont::Medium);
        const QFontMetrics nameMetrics(nameFont);
        const int room = width() - metrics::inset - left - headerSpacing - countWidth;
        const QString name = nameMetrics.elidedText(name_, Qt::ElideRight, room);
        const int nameWidth = std::min(room, nameMetrics.horizontalAdvance(name) + 1);
        painter.setPen(theme.color(ThemeColor::secondary));
        painter.setFont(nameFont);
        drawLine(painter, placed(left, nameWidth, height()), name, LineEnd::leading,
                 layoutDirection());
        left += nameWidth + headerSpacing;

        const QRect badge = placed(left, countWidth, countMetrics.height() + Points{2});
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ThemeColor::fill));
        painter.drawRoundedRect(badge, metrics::badgeRadius, metrics::badgeRadius);
        painter.setPen(theme.color(ThemeColor::tertiary));
        painter.setFont(countFont);
        painter.drawText(badge, Qt::AlignCenter, count);
        drawRowFocus(painter, *this);
    }

  private:
    BackgroundGroupRowView& group_;
    QString name_;
    std::size_t count_ = 0;
    bool isExpanded_ = false;
    double presence_ = 1;
    std::optional<Image> icon_;
};

BackgroundGroupRowView::BackgroundGroupRowView(QWidget* parent)
    : StackRow(parent), header_(new Header(*this)),
      members_(new RowStack(
          {.make = [](RowKind) { return std::make_unique<AppRowView>(); },
           .bind = [this](StackRow& view, const RowKey& key) { bindMember(view, key); },
           .reveal = nullptr,
           .movedUnderPointer =
               [this] {
                   if (row_.onMembersMoved) {
                       row_.onMembersMoved();
                   }
               }},
          this)),
      bandBottom_(std::numeric_limits<int>::max() / 2) {
    setObjectName("backgroundGroupRow");
    connect(header_, &QAbstractButton::clicked, this, [this] {
        setExpanded(!isExpanded_);
        if (const auto changed = onExpandedChanged_) {
            changed(isExpanded_);
        }
    });
}

void BackgroundGroupRowView::setRow(BackgroundGroupRow row) {
    row_ = std::move(row);
    header_->showGroup();
    setAccessibleName(displayName(row_.app.name));
    members_->setAccessibleName(accessibleName());
    std::vector<RowSlot> slots;
    if (row_.app.childProcesses) {
        for (const AppInfo& member : *row_.app.childProcesses) {
            slots.push_back({.key = {RowKind::backgroundApp, member.pid}, .height = appRowHeight});
        }
    }
    members_->setRows(std::move(slots), RowMotion::jump);
    showBand();
}

void BackgroundGroupRowView::setExpanded(bool expanded) {
    isExpanded_ = expanded;
    header_->showGroup();
    updateGeometry();
}

int BackgroundGroupRowView::heightOf(const AppInfo& app, bool isExpanded) {
    return groupHeaderHeight + (isExpanded ? static_cast<int>(memberCount(app)) * appRowHeight : 0);
}

void BackgroundGroupRowView::setPresence(double presence) {
    header_->setPresence(presence);
}

void BackgroundGroupRowView::setBand(int top, int bottom) {
    bandTop_ = top;
    bandBottom_ = bottom;
    showBand();
}

void BackgroundGroupRowView::showBand() {
    // While the group opens or closes it is lower than its members; those cut off need not exist.
    const int shown = testAttribute(Qt::WA_Resized) ? height() : int{groupHeaderHeight};
    const int bottom = std::min(bandBottom_, shown);
    members_->setBand(bandTop_ - groupHeaderHeight,
                      std::max(bottom - groupHeaderHeight, bandTop_ - groupHeaderHeight));
}

void BackgroundGroupRowView::resizeEvent(QResizeEvent*) {
    header_->setGeometry(0, 0, width(), groupHeaderHeight);
    const int left = layoutDirection() == Qt::RightToLeft ? 0 : memberIndent;
    members_->setGeometry(left, groupHeaderHeight, width() - memberIndent, members_->height());
    showBand();
}

void BackgroundGroupRowView::bindMember(StackRow& view, const RowKey& key) {
    const auto& members = *row_.app.childProcesses;
    const auto member = std::ranges::find(members, key.pid, &AppInfo::pid);
    if (member == members.end()) {
        return;
    }
    const auto telling = [pid = key.pid](const std::function<void(ProcessId)>& callback) {
        return [callback, pid] {
            if (callback) {
                callback(pid);
            }
        };
    };
    static_cast<AppRowView&>(view).setRow({.app = *member,
                                           .isForceQuit = row_.isForceQuit,
                                           .resourceDisplay = row_.resourceDisplay,
                                           .isWhitelisted = member->isWhitelisted,
                                           .onToggle = telling(row_.onToggle),
                                           .onQuit = telling(row_.onQuit),
                                           .onToggleWhitelist = telling(row_.onToggleWhitelist),
                                           .onShow = telling(row_.onShow),
                                           .acceptsPress = row_.acceptsPress});
}

void BackgroundGroupRowView::updateHover() {
    for (QObject* child : members_->children()) {
        if (auto* row = dynamic_cast<StackRow*>(child); row && row->isVisible()) {
            row->updateHover();
        }
    }
}

std::optional<RowFocus> BackgroundGroupRowView::focused() const {
    if (header_->hasFocus()) {
        return RowFocus{0, RowColumn::check};
    }
    if (const auto line = members_->focusedLine()) {
        const RowKey key{RowKind::backgroundApp, (*row_.app.childProcesses)[line->row].pid};
        return RowFocus{static_cast<int>(line->row) + 1,
                        members_->rowWidget(key)->focused()->column};
    }
    return {};
}

void BackgroundGroupRowView::focusOn(RowFocus place) {
    if (place.line == 0) {
        header_->setFocus(Qt::TabFocusReason);
    } else {
        members_->focusLine({static_cast<std::size_t>(place.line - 1), 0}, place.column);
    }
}

std::vector<QWidget*> BackgroundGroupRowView::tabStops(int line) {
    if (line == 0) {
        return {header_};
    }
    if (!row_.app.childProcesses ||
        static_cast<std::size_t>(line) > row_.app.childProcesses->size()) {
        return {};
    }
    const ProcessId pid = (*row_.app.childProcesses)[static_cast<std::size_t>(line) - 1].pid;
    StackRow* member = members_->rowWidget({RowKind::backgroundApp, pid});
    return member ? member->tabStops(0) : std::vector<QWidget*>{};
}

} // namespace calmora
