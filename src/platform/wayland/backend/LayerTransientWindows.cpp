// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/LayerTransientWindows.h"

#include "platform/wayland/backend/BarArea.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace calmora {

namespace {

/// An icon in a bar is about this wide.
constexpr int usualSide = 22;
/// How long to wait for the pointer's place: while a button is held on the icon, the bar keeps it.
constexpr std::chrono::milliseconds clickTime{400};
/// The same where the compositor tells it only once the pointer moves.
constexpr std::chrono::milliseconds answerTime{30};
/// How long a compositor may take to move the keyboard. On a busy machine that is long: a shorter
/// wait closed the popover under a user who had just answered an alert.
constexpr std::chrono::milliseconds keyboardTime{2000};

/// An icon whose middle is at a place on a screen.
Rect iconAt(Point place, const QScreen& screen) {
    const QPoint origin = screen.geometry().topLeft();
    return {place.x + origin.x() - usualSide / 2, place.y + origin.y() - usualSide / 2, usualSide,
            usualSide};
}

/// The keyboard of one transient window.
class LayerFocusGrab final : public FocusGrab {
  public:
    LayerFocusGrab(LayerTransientWindows& windows, QWindow& window,
                   std::function<bool()> isAlertOpen, std::function<void(Leaving)> onLeft)
        : windows_(windows), window_(window), isAlertOpen_(std::move(isAlertOpen)),
          onLeft_(std::move(onLeft)), hasKeyboard_(QGuiApplication::focusWindow() == &window) {
        QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &context_,
                         [this](QWindow*) { focusMoved(); });
        presses_ = windows_.onPressedOutside([this] { leave(); });
    }

    void renew() override { windows_.setKeyboard(window_, LayerRole::Keyboard::exclusive); }

    void check() override {
        // An alert had it, and not every compositor gives it back.
        if (!isFocused()) {
            renew();
            QTimer::singleShot(keyboardTime, &context_, [this] { closeUnlessFocused(); });
        }
    }

  private:
    [[nodiscard]] bool isFocused() const { return QGuiApplication::focusWindow() == &window_; }

    void focusMoved() {
        if (isFocused()) {
            hasKeyboard_ = true;
            windows_.setKeyboard(window_, LayerRole::Keyboard::onDemand);
        } else if (std::exchange(hasKeyboard_, false)) {
            // Between two windows of ours there is a moment with none.
            QTimer::singleShot(0, &context_, [this] { closeUnlessFocused(); });
        }
    }

    void closeUnlessFocused() {
        if (!isFocused()) {
            leave();
        }
    }

    void leave() {
        if (const auto onLeft = onLeft_; !isAlertOpen_()) {
            onLeft(Leaving::turnedAway);
        }
    }

    LayerTransientWindows& windows_;
    QWindow& window_;
    std::function<bool()> isAlertOpen_;
    std::function<void(Leaving)> onLeft_;
    bool hasKeyboard_;
    QObject context_;
    Subscription presses_;
};

} // namespace

LayerTransientWindows::LayerTransientWindows(bool panelTellsPlace)
    : panelTellsPlace_(panelTellsPlace) {
    if (isUsable()) {
        qApp->installEventFilter(this);
    }
}

LayerTransientWindows::~LayerTransientWindows() = default;

Qt::WindowFlags LayerTransientWindows::transientFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

PopoverSurroundings LayerTransientWindows::popoverSurroundings(std::optional<Rect> icon) {
    const bool isTold = panelTellsPlace_ && icon;
    cover(isTold ? std::chrono::milliseconds(0) : tellsPointer_ ? clickTime : answerTime);
    PopoverSurroundings surroundings{isTold ? icon : std::nullopt, {}};
    const std::vector<OutsideCatcher::Output> outputs = catcher_->outputs();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect whole = screen->geometry();
        OutsideCatcher::Output output{.name = {},
                                      .size = {whole.width(), whole.height()},
                                      .usable = {whole.width(), whole.height()},
                                      .pointer = {}};
        const auto found =
            std::ranges::find(outputs, screen->name().toStdString(), &OutsideCatcher::Output::name);
        if (found != outputs.end()) {
            output = *found;
        }
        const auto onScreen = [&](Rect rect) {
            return Rect{rect.x + whole.x(), rect.y + whole.y(), rect.width, rect.height};
        };
        std::optional<Point> hint = output.pointer;
        if (isTold) {
            hint = {icon->x + icon->width / 2 - whole.x(), icon->y + icon->height / 2 - whole.y()};
            output.usable = usableBesideIcon(output.size, output.usable, *hint);
        } else if (!hint && lastIcon_) {
            hint = {lastIcon_->x + usualSide / 2 - whole.x(),
                    lastIcon_->y + usualSide / 2 - whole.y()};
        }
        const Rect area = areaBesideBars(output.size, output.usable, hint);
        if (!isTold && output.pointer && isInBar(*output.pointer, area)) {
            surroundings.icon = lastIcon_ = iconAt(*output.pointer, *screen);
        }
        const ScreenArea place{onScreen({0, 0, output.size.width, output.size.height}),
                               onScreen(area)};
        auto& screens = surroundings.screens;
        screens.insert(output.pointer ? screens.begin() : screens.end(), place);
    }
    tellsPointer_ = isTold || std::ranges::any_of(outputs, [](const auto& output) {
                        return output.pointer.has_value();
                    });
    if (!surroundings.icon) {
        surroundings.icon = lastIcon_;
    }
    return surroundings;
}

/// labwc tells the pointer's place only once the popover is shown: that is for the next time.
void LayerTransientWindows::learnIcon() {
    const std::vector<OutsideCatcher::Output> outputs = catcher_->outputs();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const auto output =
            std::ranges::find(outputs, screen->name().toStdString(), &OutsideCatcher::Output::name);
        if (output != outputs.end() && output->pointer &&
            isInBar(*output->pointer,
                    areaBesideBars(output->size, output->usable, output->pointer))) {
            lastIcon_ = iconAt(*output->pointer, *screen);
        }
    }
}

void LayerTransientWindows::setInputArea(QWindow& window, const QRect& inner) {
    const auto found = shown_.find(&window);
    if (found == shown_.end()) {
        return;
    }
    const qreal scale = window.devicePixelRatio();
    found->second.inner =
        QRectF(inner.x() / scale, inner.y() / scale, inner.width() / scale, inner.height() / scale)
            .toAlignedRect();
    found->second.role->setInputArea(*found->second.inner);
    updateCover();
}

std::unique_ptr<FocusGrab> LayerTransientWindows::grabFocus(QWindow& window,
                                                            std::function<bool()> isAlertOpen,
                                                            std::function<void(Leaving)> onLeft) {
    return std::make_unique<LayerFocusGrab>(*this, window, std::move(isAlertOpen),
                                            std::move(onLeft));
}

void LayerTransientWindows::setKeyboard(QWindow& window, LayerRole::Keyboard keyboard) {
    if (const auto found = shown_.find(&window); found != shown_.end()) {
        found->second.role->setKeyboard(keyboard);
    }
}

bool LayerTransientWindows::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWindowType()) {
        willShow(*static_cast<QWindow*>(watched));
    } else if (watched->isWidgetType() && static_cast<QWidget*>(watched)->isWindow()) {
        const auto& widget = *static_cast<const QWidget*>(watched);
        QWindow* window = widget.windowHandle();
        if (event->type() == QEvent::Hide && window &&
            window->flags().testFlag(Qt::BypassWindowManagerHint)) {
            // Its surface is gone; the next one comes with the next platform window.
            window->destroy();
        } else if (event->type() == QEvent::ZOrderChange &&
                   (widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog)) {
            // A window of ours comes to the front, but not every compositor moves the keyboard.
            QTimer::singleShot(0, this, [this] { pressed(); });
        }
    }
    return false;
}

std::optional<LayerRole::Options> LayerTransientWindows::optionsFor(const QWindow& window) const {
    using Keyboard = LayerRole::Keyboard;
    const QWindow* parent = window.transientParent();
    const bool isOurs = !parent || shown_.contains(const_cast<QWindow*>(parent));
    switch (window.type()) {
    case Qt::ToolTip:
        return isOurs && !window.inherits("QShapedPixmapWindow")
                   ? std::optional(LayerRole::Options{.isOverlay = true, .takesPointer = false})
                   : std::nullopt;
    case Qt::Popup:
        // A menu of the popover leaves the keyboard to it: Qt passes the keys on.
        return isOurs ? std::optional(LayerRole::Options{.isOverlay = true,
                                                         .keyboard = parent ? Keyboard::none
                                                                            : Keyboard::onDemand})
                      : std::nullopt;
    default: {
        if (!window.flags().testFlag(Qt::BypassWindowManagerHint)) {
            return std::nullopt;
        }
        const bool isAlert = window.modality() != Qt::NonModal;
        return LayerRole::Options{
            .isOverlay = isAlert, .keyboard = Keyboard::onDemand, .isCentred = isAlert};
    }
    }
}

std::string LayerTransientWindows::activationToken() const {
    // Good for one window.
    constexpr auto ofPanel = "XDG_ACTIVATION_TOKEN";
    const std::string given = qEnvironmentVariable(ofPanel).toStdString();
    qunsetenv(ofPanel);
    return given.empty() ? shell_.activationToken(QGuiApplication::focusWindow()) : given;
}

void LayerTransientWindows::willShow(QWindow& window) {
    const auto options = optionsFor(window);
    if (!options || shown_.contains(&window)) {
        return;
    }
    window.setFlag(Qt::BypassWindowManagerHint);
    // What is opened from here gets a token from Qt. That of the click that led here grows old.
    qunsetenv("XDG_ACTIVATION_TOKEN");
    if (window.type() == Qt::Popup && !window.transientParent()) {
        placeAtPointer(window);
    }
    QScreen* screen = QGuiApplication::screenAt(window.geometry().center());
    if (options->isCentred && !QGuiApplication::focusWindow()) {
        screen = nullptr; // The one that the user works on, which the compositor knows.
    }
    Shown shown{.role = std::make_unique<LayerRole>(shell_, window, screen, *options,
                                                    [this, &window] { takenAway(window); }),
                .inner = {},
                .hiding =
                    connect(&window, &QWindow::visibleChanged, this, [this, &window](bool is) {
                        if (!is) {
                            willHide(window);
                        }
                    })};
    shown_[&window] = std::move(shown);
    updateCover();
}

void LayerTransientWindows::willHide(QWindow& window) {
    if (const auto found = shown_.find(&window); found != shown_.end()) {
        disconnect(found->second.hiding);
        shown_.erase(found);
        updateCover();
    }
}

void LayerTransientWindows::takenAway(QWindow& window) {
    if (window.modality() != Qt::NonModal) {
        // An alert waits for its answer: it shows itself on another screen.
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->windowHandle() == &window) {
                widget->hide();
                widget->show();
                return;
            }
        }
    } else {
        pressed();
    }
}

void LayerTransientWindows::placeAtPointer(QWindow& menu) {
    const PopoverSurroundings surroundings = popoverSurroundings(std::nullopt);
    if (!surroundings.screens.empty()) {
        const Rect place =
            placePopover({menu.width(), menu.height()}, surroundings.icon, surroundings.screens);
        menu.setPosition(place.x, place.y);
    }
}

void LayerTransientWindows::cover(std::chrono::milliseconds timeout) {
    if (!catcher_) {
        catcher_ = std::make_unique<OutsideCatcher>(timeout, [this] { pressed(); });
    }
}

void LayerTransientWindows::updateCover() {
    const auto isAlert = [](const auto& entry) { return entry.second.role->options().isCentred; };
    const auto takesKeys = [](const auto& entry) {
        return entry.second.role->options().keyboard != LayerRole::Keyboard::none;
    };
    if (!catcher_) {
        return;
    }
    if (std::ranges::none_of(
            shown_, [&](const auto& entry) { return takesKeys(entry) && !isAlert(entry); })) {
        learnIcon();
        catcher_.reset();
        return;
    }
    for (const QScreen* screen : QGuiApplication::screens()) {
        std::vector<Rect> holes;
        for (const auto& [window, shown] : shown_) {
            if (!shown.role->options().takesPointer) {
                continue;
            }
            const QRect whole = window->geometry();
            const QRect hole = (shown.inner ? shown.inner->translated(whole.topLeft()) : whole)
                                   .translated(-screen->geometry().topLeft());
            holes.push_back({hole.x(), hole.y(), hole.width(), hole.height()});
        }
        catcher_->setHoles(screen->name().toStdString(), holes);
    }
    // Where the compositor puts an alert is not known, and it is not left by a click.
    catcher_->setCatching(std::ranges::none_of(shown_, isAlert));
}

void LayerTransientWindows::pressed() {
    while (QWidget* menu = QApplication::activePopupWidget()) {
        if (!menu->close()) {
            break;
        }
    }
    pressedOutside_.emit();
}

} // namespace calmora
