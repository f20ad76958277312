#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "KeyboardShortcuts/RecorderControl.h"
#include "KeyboardShortcuts/ShortcutConflicts.h"
#include "platform/InputEvent.h"
#include "platform/MainMenu.h"
#include "support/Subscription.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace calmora {

class LocalizedStrings;
class NotificationCenter;
class SystemShortcuts;

/// What recorders meet the program through. Everything must outlive them.
struct RecorderEnvironment {
    KeyboardShortcuts& shortcuts;
    NotificationCenter& notifications;
    SystemShortcuts& systemShortcuts;
    KeyboardLayout& layout;
    LocalizedStrings& strings;
    MainMenu mainMenu;
    /// Opens the time of an alert, in which hot keys and timers wait; may be empty.
    std::function<Subscription()> beginAlert;
    /// What keeps shortcuts from working everywhere here, as a text to show (a key of
    /// LocalizedStrings); empty where nothing does.
    std::string limitation;
};

/// What becomes of an event that the recorder has looked at.
enum class RecorderVerdict { pass, swallow };

/// The decisions of a recorder control: what its states are, which keys it takes, refuses, or
/// leaves to others. Main thread.
class ShortcutRecorder {
  public:
    using OnChange = std::function<void(const std::optional<Shortcut>&)>;

    /// Notification of the beginning and the end of recording; its user info has a bool under
    /// "isActive".
    static constexpr const char* activeStatusDidChange =
        "KeyboardShortcuts_recorderActiveStatusDidChange";

    /// The control and the environment must outlive the recorder. `onChange` is told of every
    /// change made through this control.
    ShortcutRecorder(const RecorderEnvironment& environment, RecorderControl& control,
                     KeyboardShortcuts::Name name, OnChange onChange);
    ShortcutRecorder(const ShortcutRecorder&) = delete;
    ShortcutRecorder& operator=(const ShortcutRecorder&) = delete;
    ~ShortcutRecorder();

    [[nodiscard]] const KeyboardShortcuts::Name& shortcutName() const { return name_; }

    void setShortcutName(const KeyboardShortcuts::Name& name);

    [[nodiscard]] bool isRecording() const { return isRecording_; }

    /// The control has got the focus: starts recording, if it is in a window.
    void startRecording();

    /// The control has lost the focus, its window the keyboard, or it has left its window.
    void endRecording();

    /// The text was edited, in practice by the clear button.
    void textDidChange(const std::string& text);

    /// Decides about an event that arrived while recording. May show an alert and return after
    /// its answer.
    RecorderVerdict handle(const InputEvent& event);

  private:
    void setStoredText();
    void showText(const std::optional<Shortcut>& shortcut);
    RecorderVerdict handleKey(const InputEvent& event);
    RecorderVerdict record(const Shortcut& shortcut);
    /// The chosen button; absent when the recorder is gone by the time of the answer.
    std::optional<std::size_t> ask(const RecorderAlert& alert);
    [[nodiscard]] RecorderVerdict refuse();

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
