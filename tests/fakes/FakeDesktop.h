// SPDX-License-Identifier: MIT
// What a desktop shows, plays and reports, in memory.
#pragma once

#include "fakes/LookUp.h"
#include "platform/Alerts.h"
#include "platform/Bundle.h"
#include "platform/EventMonitor.h"
#include "platform/Popover.h"
#include "platform/Sound.h"
#include "platform/StatusItem.h"
#include "platform/UserNotifications.h"
#include "support/Signal.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// Answers alerts at once.
class FakeAlerts final : public Alerts {
  public:
    std::size_t runModal(const Alert& alert) override {
        shown.push_back(alert);
        onShow();
        std::size_t answer = alert.buttons.size() - 1;
        if (!answers.empty()) {
            answer = answers.front();
            answers.pop_front();
        }
        return answer;
    }

    /// The next choices of the user; then always the last button.
    std::deque<std::size_t> answers;
    std::vector<Alert> shown;
    /// What happens while an alert is open.
    std::function<void()> onShow = [] {};
};

/// An installation in memory.
class FakeBundle final : public Bundle {
  public:
    std::optional<std::string> bundleIdentifier() const override { return identifier; }

    std::optional<std::string> shortVersion() const override { return "1.2.3"; }

    std::optional<std::filesystem::path> resource(const std::string& name,
                                                  const std::string& extension) const override {
        return lookUp(resources, name + "." + extension);
    }

    std::optional<std::string> identifier = "app.calmora.Calmora";
    /// By "name.extension".
    std::map<std::string, std::filesystem::path> resources{{"quit-sound.wav", "quit-sound.wav"}};
};

/// Keyboard events sent by flags.emit({ModifierFlags::option}).
class FakeEventMonitor final : public EventMonitor {
  public:
    Subscription onModifierFlagsChanged(std::function<void(ModifierFlags)> handler) override {
        return flags.connect(std::move(handler));
    }

    Signal<ModifierFlags> flags;
};

/// Counts how often queued input was discarded.
class FakeInputGate final : public InputGate {
  public:
    void discardQueuedInput() override { ++discards; }

    int discards = 0;
};

/// A popover without a window.
class FakePopover final : public Popover {
  public:
    std::function<bool()> staysOpen;

    void setContentSize(Size newSize) override { size = newSize; }

    bool isShown() const override { return shown_; }

    void show(std::optional<Rect>) override {
        willShow.emit();
        shown_ = true;
    }

    void stayOpenWhile(std::function<bool()> holds) override { staysOpen = std::move(holds); }

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
    Signal<> willShow;
    Signal<> didClose;

  private:
    bool shown_ = false;
};

/// Makes silent sounds.
class FakeSoundOutput final : public SoundOutput {
  public:
    std::unique_ptr<Sound> load(const std::filesystem::path&) override {
        return std::make_unique<Silent>(calls);
    }

    /// "stop" and "play" of every sound, in order.
    std::vector<std::string> calls;

  private:
    struct Silent final : Sound {
        explicit Silent(std::vector<std::string>& all) : heard(all) {}

        void stop() override { heard.emplace_back("stop"); }

        void play() override { heard.emplace_back("play"); }

        std::vector<std::string>& heard;
    };
};

/// A status item that nobody clicks, in no bar.
class FakeStatusItem final : public StatusItem {
  public:
    void setTemplateImage(const std::optional<Image>&, int) override {}

    void setAction(std::function<void(StatusEvent)>) override {}

    void setMenu(std::function<std::vector<StatusMenuItem>()> build) override { buildMenu = build; }

    void popUpMenu() override { wasPopoverShownAtMenu = isPopoverShown; }

    void setPopoverShown(bool isShown) override { isPopoverShown = isShown; }

    std::optional<Rect> frame() const override { return {}; }

    std::function<std::vector<StatusMenuItem>()> buildMenu;
    bool isPopoverShown = false;
    std::optional<bool> wasPopoverShownAtMenu;
};

/// Notices in memory.
class FakeUserNotifications final : public UserNotifications {
  public:
    void add(const UserNotification& notification) override {
        added.push_back(notification);
        if (onAdded) {
            onAdded();
        }
    }

    /// The outcome comes with settle().
    Subscription show(const UserNotification& notification, const std::string&,
                      std::chrono::milliseconds,
                      std::function<void(NoticeEvent)> handler) override {
        ++shows;
        pending_.push_back(notification.body);
        shown[notification.body] = std::move(handler);
        return Subscription([this, body = notification.body] { shown.erase(body); });
    }

    /// Tells what has become of the new notices that can be answered.
    void settle(NoticeEvent outcome) {
        for (const std::string& body : std::exchange(pending_, {})) {
            if (const auto handler = lookUp(shown, body)) {
                (*handler)(outcome);
            }
        }
    }

    /// Every notice, in order.
    std::vector<UserNotification> added;
    std::function<void()> onAdded;
    /// Those that can be answered and are not withdrawn, by their text.
    std::map<std::string, std::function<void(NoticeEvent)>> shown;
    /// How many of these there were.
    int shows = 0;

  private:
    std::vector<std::string> pending_;
};

} // namespace calmora
