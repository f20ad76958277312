// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/EventMonitor.h"
#include "platform/Geometry.h"
#include "platform/Image.h"
#include "platform/MainMenu.h"
#include "support/Subscription.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

class LocalizedStrings;
class NotificationCenter;
class SystemShortcuts;

/// What recorders need of the program. Everything must outlive them.
struct RecorderEnvironment {
    KeyboardShortcuts& shortcuts;
    NotificationCenter& notifications;
    SystemShortcuts& systemShortcuts;
    KeyboardLayout& layout;
    LocalizedStrings& strings;
    MainMenu mainMenu;
    /// Suspends hot keys and timers while an alert is open; may be empty.
    std::function<Subscription()> beginAlert;
    /// Says what else the user must know of shortcuts here.
    HotKeys& hotKeys;
    /// The program's, which its alerts show.
    Image icon = {};
};

/// An alert of the recorder. The first button is the safe one and the answer of Escape.
struct RecorderAlert {
    std::string messageText;
    std::string informativeText;
    /// Empty means the single default button.
    std::vector<std::string> buttons;
};

/// What the recorder's logic needs of its view: a box like a search field, without a caret because
/// nothing can be typed.
class RecorderControl {
  public:
    virtual ~RecorderControl() = default;

    [[nodiscard]] virtual Size bounds() const = 0;

    /// Whether it is in a window.
    [[nodiscard]] virtual bool isInWindow() const = 0;

    /// `spoken` is the same in words, for tooltip and screen reader. Does not count as editing.
    virtual void showText(const std::string& text, const std::string& spoken) = 0;

    virtual void setPlaceholder(const std::string& text) = 0;
    virtual void showClearButton(bool isShown) = 0;

    /// Clicks the clear button: empties the text, which counts as editing.
    virtual void clickClearButton() = 0;

    /// Starts or stops passing all key-downs and mouse-ups of the program to the recorder.
    virtual void monitorEvents(bool isMonitoring) = 0;

    /// Removes the focus, which ends editing.
    virtual void blur() = 0;

    /// Gives the focus back to the control.
    virtual void focus() = 0;

    virtual void beep() = 0;

    /// Shows the alert, as a sheet if the control has a window. Returns the index of the chosen
    /// button.
    virtual std::size_t runAlert(const RecorderAlert& alert) = 0;
};

/// Whether the recorder consumed the event.
enum class RecorderVerdict { pass, swallow };

/// The logic of a recorder control: its states, and which keys it records, refuses or passes on.
/// Main thread.
class ShortcutRecorder {
  public:
    using OnChange = std::function<void(const std::optional<Shortcut>&)>;

    /// Posted when recording starts and ends; its user info has a bool under "isActive".
    static constexpr const char* activeStatusDidChange =
        "KeyboardShortcuts_recorderActiveStatusDidChange";

    /// The control and the environment must outlive the recorder. `onChange` is called for every
    /// change made through this control.
    ShortcutRecorder(const RecorderEnvironment& environment, RecorderControl& control,
                     KeyboardShortcuts::Name name, OnChange onChange);
    ShortcutRecorder(const ShortcutRecorder&) = delete;
    ShortcutRecorder& operator=(const ShortcutRecorder&) = delete;
    ~ShortcutRecorder();

    [[nodiscard]] const KeyboardShortcuts::Name& shortcutName() const { return name_; }

    void setShortcutName(const KeyboardShortcuts::Name& name);

    [[nodiscard]] bool isRecording() const { return isRecording_; }

    /// The control got the focus. Starts recording if it is in a window.
    void startRecording();

    /// The control lost the focus or left its window, or the window became inactive.
    void endRecording();

    /// The text was edited: the clear button emptied it.
    void textDidChange(const std::string& text);

    /// Handles an event while recording. May show an alert and block until it is answered.
    RecorderVerdict handle(const InputEvent& event);

  private:
    void setStoredText() { showText(environment_.shortcuts.getShortcut(name_)); }

    void showText(const std::optional<Shortcut>& shortcut);
    RecorderVerdict handleKey(const InputEvent& event);
    RecorderVerdict record(const Shortcut& shortcut);
    /// The chosen button; absent if the recorder was destroyed meanwhile.
    std::optional<std::size_t> ask(const RecorderAlert& alert);

    [[nodiscard]] RecorderVerdict refuse() {
        control_.beep();
        return RecorderVerdict::swallow;
    }

    const RecorderEnvironment& environment_;
    RecorderControl& control_;
    KeyboardShortcuts::Name name_;
    OnChange onChange_;
    bool isRecording_ = false;
    std::string text_;
    std::shared_ptr<int> life_ = std::make_shared<int>(0);
    Subscription nameChanges_;
    Subscription layoutChanges_;
};

} // namespace calmora
