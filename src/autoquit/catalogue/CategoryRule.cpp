#include "autoquit/catalogue/CategoryRule.h"

#include "autoquit/catalogue/Words.h"

#include <algorithm>
#include <string_view>

namespace calmora {
namespace {

constexpr std::string_view neverQuitCategories =
    "Accessibility "                                     // Somebody depends on it.
    "Archiving FileTools "                               // Backup and synchronisation too.
    "Calendar Clock "                                    // They remind.
    "ConsoleOnly Shell TerminalEmulator "                // A terminal: what runs in it is lost.
    "Emulator "                                          // What runs inside is lost.
    "Compression DiscBurning FileManager "               // They work in the background.
    "Dialup FileTransfer P2P RemoteAccess "              // Connections.
    "Recorder Telephony TelephonyTools VideoConference " // They need not use much of the CPU.
    "Security "                                          // Password managers and keys.
    "Applet DesktopSettings Filesystem HardwareSettings Monitor PackageManager Printing Settings "
    "System TrayIcon";

/// Documents and conversations.
constexpr std::string_view cautiousCategories =
    "AudioVideoEditing Building Chat ContactManagement Database Debugger Electronics Email "
    "Engineering Finance GUIDesigner HamRadio IDE IRCClient InstantMessaging Midi "
    "NumericalAnalysis OCR Presentation Profiling ProjectManagement Publishing RevisionControl "
    "Scanning Sequencer Spreadsheet TextEditor TextTools Translation WebDevelopment WordProcessor";

/// Main categories: cautious unless the application only shows something.
constexpr std::string_view mainCategories =
    "Audio AudioVideo Development Game Graphics Network Office Science Video";

constexpr std::string_view showingCategories =
    "Calculator Dictionary Documentation Feed News Viewer WebBrowser";

bool hasAny(std::span<const std::string> categories, std::string_view words) {
    return std::ranges::any_of(
        categories, [words](const std::string& category) { return hasWord(words, category); });
}

} // namespace

IdleBehavior behaviorOfCategories(std::span<const std::string> categories) {
    if (hasAny(categories, neverQuitCategories)) {
        return IdleBehavior::neverQuit;
    }
    const bool isWork = hasAny(categories, cautiousCategories);
    const bool mayBeWork =
        hasAny(categories, mainCategories) && !hasAny(categories, showingCategories);
    return isWork || mayBeWork ? IdleBehavior::cautious : IdleBehavior::safeToQuit;
}

} // namespace calmora
