#include "autoquit/catalogue/CategoryRule.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace calmora {
namespace {

// All three are sorted.
constexpr auto neverQuit = std::to_array<std::string_view>({
    "Accessibility",    // Somebody depends on it.
    "Applet",           //
    "Archiving",        // Backup programs are in it too.
    "Calendar",         // It reminds.
    "Clock",            // Alarms and timers.
    "Compression",      //
    "ConsoleOnly",      // Its window is a terminal's.
    "DesktopSettings",  //
    "Dialup",           //
    "DiscBurning",      //
    "Emulator",         // What runs inside is lost.
    "FileManager",      // It copies and moves.
    "FileTools",        // Synchronisation is in it too.
    "FileTransfer",     //
    "Filesystem",       //
    "HardwareSettings", //
    "Monitor",          //
    "P2P",              //
    "PackageManager",   //
    "Printing",         //
    "Recorder",         // A recording need not use much of the CPU.
    "RemoteAccess",     //
    "Security",         // Password managers and keys.
    "Settings",         //
    "Shell",            //
    "System",           //
    "Telephony",        // Nor need a call.
    "TelephonyTools",   //
    "TerminalEmulator", //
    "TrayIcon",         //
    "VideoConference",  //
});

/// Documents and conversations.
constexpr auto cautious = std::to_array<std::string_view>({
    "AudioVideoEditing",
    "Building",
    "Chat",
    "ContactManagement",
    "Database",
    "Debugger",
    "Electronics",
    "Email",
    "Engineering",
    "Finance",
    "GUIDesigner",
    "HamRadio",
    "IDE",
    "IRCClient",
    "InstantMessaging",
    "Midi",
    "NumericalAnalysis",
    "OCR",

    "Presentation",
    "Profiling",
    "ProjectManagement",
    "Publishing",
    "RevisionControl",
    "Scanning",
    "Sequencer",
    "Spreadsheet",
    "TextEditor",
    "TextTools",
    "Translation",
    "WebDevelopment",
    "WordProcessor",
});

/// Main categories: cautious unless the application only shows something.
constexpr auto cautiousUnlessShowing = std::to_array<std::string_view>({
    "Audio",
    "AudioVideo",
    "Development",
    "Game",
    "Graphics",
    "Network",
    "Office",
    "Science",
    "Video",
});

constexpr auto showing = std::to_array<std::string_view>({
    "Calculator",
    "Dictionary",
    "Documentation",
    "Feed",
    "News",
    "Viewer",
    "WebBrowser",
});

static_assert(std::ranges::is_sorted(neverQuit) && std::ranges::is_sorted(cautious) &&
              std::ranges::is_sorted(cautiousUnlessShowing) && std::ranges::is_sorted(showing));

bool hasAny(std::span<const std::string> categories, std::span<const std::string_view> sorted) {
    return std::ranges::any_of(categories, [sorted](std::string_view category) {
        return std::ranges::binary_search(sorted, category);
    });
}

} // namespace

IdleBehavior behaviorOfCategories(std::span<const std::string> categories) {
    if (hasAny(categories, neverQuit)) {
        return IdleBehavior::neverQuit;
    }
    const bool isWork = hasAny(categories, cautious);
    const bool mayBeWork =
        hasAny(categories, cautiousUnlessShowing) && !hasAny(categories, showing);
    return isWork || mayBeWork ? IdleBehavior::cautious : IdleBehavior::safeToQuit;
}

} // namespace calmora
