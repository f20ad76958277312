// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "settings/OpenAtLogin.h"
#include "support/Subscription.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;
class DesktopExtension;
class ExtraSettings;
class Form;
class FormSection;
class LoginItem;
class Updater;
template <typename Value>
class Preference;

/// What the desktop does not allow, in English; empty where nothing is missing.
struct DesktopLimitations {
    /// What the list of applications lacks.
    std::string list = {};
    /// What is never quit automatically.
    std::string autoQuit = {};
};

/// What the section about auto-quit needs besides AppSettings.
struct AutoQuitOptions {
    ExtraSettings& extras;
    /// Opens the sheet with the options and the forecast over a window.
    std::function<void(QWidget& window)> openSheet;
};

/// The General pane of the settings window: every preference in ten sections, and the extension
/// of the desktop where there is one. Each control shows
/// a preference and writes to it at once; the pane holds no copy. While the pane exists, it applies
/// the preference openAtLogin to the login item.
class GeneralSettingsView final : public QWidget {
  public:
    /// All references must outlive the pane, and `extension`, which is null where the desktop has
    /// none.
    GeneralSettingsView(AppSettings& settings, Updater& updater, LoginItem& loginItem,
                        const Platform& platform, DesktopLimitations limitations,
                        AutoQuitOptions autoQuit, DesktopExtension* extension = nullptr,
                        QWidget* parent = nullptr);

    /// Whether the sheet that adds an application to the never-quit list is shown.
    [[nodiscard]] bool showingAddAppSheet() const { return showingAddAppSheet_; }

  private:
    void build(Form& form);
    /// Adds a row that shows and edits a preference; returns the row.
    QWidget* addSwitch(FormSection& section, Preference<bool>& preference, const char* title);
    template <typename Value, typename Choices>
    QWidget* addPicker(FormSection& section, Preference<Value>& preference, const char* title,
                       const Choices& choices);
    void addAutoQuit(FormSection& section);
    /// Adds a row that offers once to spare what is in use.
    void addSparingOffer(FormSection& section);
    void addReset(FormSection& section);
    void addUpdates(FormSection& section);
    /// Adds a section that is there while settings cannot be saved.
    void addUsability(FormSection& section);
    void addExtension(FormSection& section, DesktopExtension& extension);
    /// Updates every control from the settings.
    void refresh();
    void showAddAppSheet();

    AppSettings& settings_;
    Updater& updater_;
    Platform platform_;
    DesktopLimitations limitations_;
    AutoQuitOptions autoQuit_;
    bool showingAddAppSheet_ = false;
    OpenAtLogin openAtLogin_;
    /// Each updates controls from the settings.
    std::vector<std::function<void()>> bindings_;
    Subscription changes_;
    Subscription extraChanges_;
    Subscription usability_;
    Subscription extensionChanges_;
};

} // namespace calmora
