#include "app/GlobalShortcuts.h"

#include "app/ProgramMenu.h"
#include "platform/linux/desktop_shortcuts/GnomeShortcuts.h"
#include "platform/linux/desktop_shortcuts/KdeShortcuts.h"
#include "platform/linux/desktop_shortcuts/XfceShortcuts.h"
#include "platform/linux/xdg/BaseDirectories.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace calmora {
namespace {

/// Where openbox keeps its bindings, the user's before the system's.
std::vector<std::filesystem::path> openboxFiles() {
    const BaseDirectories directories = BaseDirectories::fromEnvironment();
    std::vector<std::filesystem::path> files{directories.configHome / "openbox" / "rc.xml"};
    for (const auto& folder : directories.configDirs) {
        files.push_back(folder / "openbox" / "rc.xml");
    }
    return files;
}

/// A Wayland compositor tells its X server only of keys that go to windows of X11.
std::string limitation() {
    return std::getenv("WAYLAND_DISPLAY")
               ? "On Wayland, shortcuts work only while an X11 application is in front."
               : "";
}

} // namespace

GlobalShortcuts::GlobalShortcuts(EventPoll& events, const QDBusConnection& sessionBus,
                                 UserDefaults& defaults, Text& text,
                                 const LocalizedStrings& programStrings, AlertSession& alertSession)
    : keyboard_(events), hotKeys_(keyboard_), layout_(keyboard_),
      desktop_(layout_, {openboxShortcuts(keyboard_.connection(), openboxFiles()),
                         gnomeShortcuts(keyboard_.connection()), xfceShortcuts(sessionBus),
                         kdeShortcuts(sessionBus)}),
      shortcuts_({defaults, notifications_, hotKeys_, layout_, strings_, text}),
      recorders_{shortcuts_,  notifications_,
                 desktop_,    layout_,
                 strings_,    programMenu(programStrings),
                 {},          [&alertSession] { return alertSession.begin(); },
                 limitation()},
      menus_(notifications_,
             [this](std::uint32_t nativeKey, ModifierFlags modifiers) {
                 const auto key = layout_.keyCode(nativeKey);
                 return key && shortcuts_.isRegistered(Shortcut::of(Key{*key}, modifiers));
             }),
      // What was pressed while a question was open was no answer to it, nor meant for later.
      alertEnds_(alertSession.onChanged([this](bool isOpen) {
          if (!isOpen) {
              keyboard_.discardKeyPresses();
          }
      })) {}

} // namespace calmora
