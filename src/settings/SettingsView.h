// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/Platform.h"
#include "settings/GeneralSettingsView.h"

#include <QWidget>

#include <optional>

class QTabBar;

namespace calmora {

class AppSettings;
class DesktopExtension;
class LoginItem;
struct RecorderEnvironment;
class Updater;

/// What the settings depend on. The references must outlive the view.
struct SettingsSurroundings {
    Platform platform;
    LoginItem& loginItem;
    DesktopLimitations limitations = {};
    AutoQuitOptions autoQuit;
    /// For the recorders of the shortcuts.
    const RecorderEnvironment& recorders;
    /// The program's icon; absent means none.
    std::optional<Image> icon;
    /// Null where the desktop has none.
    DesktopExtension* extension = nullptr;
};

/// The content of the settings window: three panes behind tabs. They are made anew when the
/// desktop's font gets another size.
class SettingsView final : public QWidget {
  public:
    static constexpr QSize size{450, 560};

    /// Starts with the first pane.
    SettingsView(AppSettings& settings, Updater& updater, const SettingsSurroundings& surroundings,
                 QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void build();
    void followFont();

    AppSettings& settings_;
    Updater& updater_;
    SettingsSurroundings surroundings_;
    QTabBar* tabs_ = nullptr;
    double builtScale_ = 0;
};

} // namespace calmora
