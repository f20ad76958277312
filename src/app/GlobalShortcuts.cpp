// SPDX-License-Identifier: MIT
#include "app/GlobalShortcuts.h"

#include "platform/HotKeys.h"
#include "platform/KeyboardLayout.h"
#include "platform/LocalizedStrings.h"
#include "platform/desktop/shortcuts/ShortcutSources.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/qt/WindowBackend.h"
#include "settings/ProgramMenu.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace calmora {
namespace {

/// Openbox's configuration files, the user's before the system's.
std::vector<std::filesystem::path> openboxFiles() {
    const BaseDirectories directories = BaseDirectories::fromEnvironment();
    std::vector<std::filesystem::path> files{directories.configHome / "openbox" / "rc.xml"};
    for (const auto& folder : directories.configDirs) {
        files.push_back(folder / "openbox" / "rc.xml");
    }
    return files;
}

std::vector<DesktopShortcuts::Source> sources(WindowBackend& backend,
                                              const QDBusConnection& sessionBus) {
    const auto windowManager = [&backend] { return backend.windowManagerName(); };
    return {openboxShortcuts(windowManager, openboxFiles()), gnomeShortcuts(windowManager),
            xfceShortcuts(sessionBus), kdeShortcuts(sessionBus)};
}

} // namespace

GlobalShortcuts::GlobalShortcuts(WindowBackend& backend, const QDBusConnection& sessionBus,
                                 UserDefaults& defaults, Text& text, LocalizedStrings& strings,
                                 AlertSession& alertSession, Image icon)
    : desktop_(backend.keyboardLayout(), sources(backend, sessionBus)),
      shortcuts_(
          {defaults, notifications_, backend.hotKeys(), backend.keyboardLayout(), strings, text}),
      recorders_{shortcuts_,
                 notifications_,
                 desktop_,
                 backend.keyboardLayout(),
                 strings,
                 programMenu(strings),
                 [&alertSession] { return alertSession.begin(); },
                 backend.hotKeys(),
                 std::move(icon)},
      menus_(notifications_,
             [this, &backend](std::uint32_t nativeKey, ModifierFlags modifiers) {
                 const auto key = backend.keyboardLayout().keyCode(nativeKey);
                 return key && shortcuts_.isRegistered(Shortcut::of(Key{*key}, modifiers));
             }),
      hotKeys_(backend.hotKeys()),
      // Hot keys pressed while an alert was open are dropped.
      alertEnds_(alertSession.onChanged([&backend](bool isOpen) {
          if (!isOpen) {
              backend.discardKeyPresses();
          }
      })) {
    hotKeys_.setActions([this, &strings] { return actions(strings); });
}

GlobalShortcuts::~GlobalShortcuts() {
    hotKeys_.setActions(nullptr);
}

std::vector<HotKeyAction> GlobalShortcuts::actions(const LocalizedStrings& strings) const {
    const QString program = QCoreApplication::applicationFilePath();
    const QString name = QFileInfo(program).fileName();
    const bool isInPath = QStandardPaths::findExecutable(name) == program;
    const std::string command = (isInPath ? name : program).toStdString();
    std::vector<HotKeyAction> result;
    for (const ProgramShortcut& row : programShortcuts) {
        HotKeyAction action{.id = row.name,
                            .description = strings.text(row.description),
                            .command = command + ' ' + row.option,
                            .combination = {}};
        if (const auto shortcut = shortcuts_.getShortcut({row.name, {}})) {
            action.combination = {static_cast<std::uint32_t>(shortcut->carbonKeyCode),
                                  static_cast<std::uint32_t>(shortcut->carbonModifiers)};
        }
        result.push_back(std::move(action));
    }
    return result;
}

} // namespace calmora
