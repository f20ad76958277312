// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/catalogue/KnownApps.h"

#include <array>
#include <string_view>

namespace calmora {

/// One line of the built-in catalogue.
struct KnownAppEntry {
    std::string_view bundleIdentifier;
    std::string_view displayName;
    AppCategory category;
    IdleBehavior idleBehavior;
};

/// One vendor whose unlisted applications are known by the start of their identifier.
struct KnownAppPrefix {
    std::string_view prefix;
    AppCategory category;
    IdleBehavior idleBehavior;
};

/// The vendor prefixes. No identifier begins with two of them.
inline constexpr std::array<KnownAppPrefix, 3> knownAppPrefixes{{
    {"com.adobe.", AppCategory::creative, IdleBehavior::cautious},
    {"com.jetbrains.", AppCategory::devTool, IdleBehavior::cautious},
    {"com.seriflabs.", AppCategory::creative, IdleBehavior::cautious},
}};

/// The catalogue by category. Only lookup() reads it; it has a header of its own because it is
/// data, and long.
inline constexpr std::array<KnownAppEntry, 147> knownAppTable{{
    // clang-format off
    {"com.apple.Safari", "Safari", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.google.Chrome", "Google Chrome", AppCategory::browser, IdleBehavior::safeToQuit},
    {"org.mozilla.firefox", "Firefox", AppCategory::browser, IdleBehavior::safeToQuit},
    {"company.thebrowser.Browser", "Arc", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.brave.Browser", "Brave Browser", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.microsoft.edgemac", "Microsoft Edge", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.operasoftware.Opera", "Opera", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.vivaldi.Vivaldi", "Vivaldi", AppCategory::browser, IdleBehavior::safeToQuit},
    {"org.chromium.Chromium", "Chromium", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.nickvision.nickvision-browser", "Orion", AppCategory::browser, IdleBehavior::safeToQuit},
    {"com.apple.Safari.WebApp", "Safari Web App", AppCategory::browser, IdleBehavior::safeToQuit},

    {"com.figma.Desktop", "Figma", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.bohemiancoding.sketch3", "Sketch", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.adobe.Photoshop", "Adobe Photoshop", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.Illustrator", "Adobe Illustrator", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.PremierePro", "Adobe Premiere Pro", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.AfterEffects", "Adobe After Effects", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.LightroomClassicCC7", "Adobe Lightroom Classic", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.Lightroom", "Adobe Lightroom", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.InDesign", "Adobe InDesign", AppCategory::creative, IdleBehavior::cautious},
    {"com.adobe.xd", "Adobe XD", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.adobe.Reader", "Adobe Acrobat Reader", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.adobe.Acrobat.Pro", "Adobe Acrobat Pro", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.seriflabs.affinityphoto2", "Affinity Photo 2", AppCategory::creative, IdleBehavior::cautious},
    {"com.seriflabs.affinitydesigner2", "Affinity Designer 2", AppCategory::creative, IdleBehavior::cautious},
    {"com.seriflabs.affinitypublisher2", "Affinity Publisher 2", AppCategory::creative, IdleBehavior::cautious},
    {"com.pixelmatorteam.pixelmator.x", "Pixelmator Pro", AppCategory::creative, IdleBehavior::cautious},
    {"com.blackmagic-design.DaVinciResolve", "DaVinci Resolve", AppCategory::creative, IdleBehavior::cautious},
    {"com.apple.FinalCut", "Final Cut Pro", AppCategory::creative, IdleBehavior::cautious},
    {"com.apple.logic10", "Logic Pro", AppCategory::creative, IdleBehavior::cautious},
    {"com.apple.garageband10", "GarageBand", AppCategory::creative, IdleBehavior::cautious},
    {"org.blenderfoundation.blender", "Blender", AppCategory::creative, IdleBehavior::cautious},
    {"com.maxon.Cinema4D", "Cinema 4D", AppCategory::creative, IdleBehavior::cautious},
    {"com.apple.iWork.Pages", "Pages", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.apple.iWork.Numbers", "Numbers", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.apple.iWork.Keynote", "Keynote", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.apple.freeform", "Freeform", AppCategory::creative, IdleBehavior::safeToQuit},
    {"com.obsproject.obs-studio", "OBS Studio", AppCategory::creative, IdleBehavior::cautious},
    {"net.telestream.screenflow10", "ScreenFlow", AppCategory::creative, IdleBehavior::cautious},

    {"com.microsoft.VSCode", "Visual Studio Code", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.apple.dt.Xcode", "Xcode", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.intellij", "IntelliJ IDEA", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.WebStorm", "WebStorm", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.pycharm", "PyCharm", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.datagrip", "DataGrip", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.jetbrains.CLion", "CLion", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.rider", "Rider", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.goland", "GoLand", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.rubymine", "RubyMine", AppCategory::devTool, IdleBehavior::cautious},
    {"com.jetbrains.PhpStorm", "PhpStorm", AppCategory::devTool, IdleBehavior::cautious},
    {"com.sublimetext.4", "Sublime Text", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.googlecode.iterm2", "iTerm2", AppCategory::devTool, IdleBehavior::cautious},
    {"com.apple.Terminal", "Terminal", AppCategory::devTool, IdleBehavior::cautious},
    {"com.docker.docker", "Docker Desktop", AppCategory::devTool, IdleBehavior::neverQuit},
    {"com.postmanlabs.mac", "Postman", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.tinyapp.TablePlus", "TablePlus", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.google.android.studio", "Android Studio", AppCategory::devTool, IdleBehavior::cautious},
    {"com.panic.Nova", "Nova", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.todesktop.230313mzl4w4u92", "Cursor", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"dev.warp.Warp-Stable", "Warp", AppCategory::devTool, IdleBehavior::cautious},
    {"com.github.GitHubClient", "GitHub Desktop", AppCategory::devTool, IdleBehavior::cautious},
    {"com.panic.Transmit", "Transmit", AppCategory::devTool, IdleBehavior::cautious},
    {"ch.sudo.cyberduck", "Cyberduck", AppCategory::devTool, IdleBehavior::cautious},
    {"com.linear", "Linear", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.electron.replit", "Replit", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.copilot.copilotapp", "Copilot (GitHub)", AppCategory::devTool, IdleBehavior::neverQuit},
    {"com.microsoft.VSCodeInsiders", "VS Code Insiders", AppCategory::devTool, IdleBehavior::safeToQuit},
    {"com.jetbrains.toolbox", "JetBrains Toolbox", AppCategory::devTool, IdleBehavior::neverQuit},

    {"com.tinyspeck.slackmacgap", "Slack", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.hnc.Discord", "Discord", AppCategory::communication, IdleBehavior::safeToQuit},
    {"us.zoom.xos", "Zoom", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.microsoft.teams2", "Microsoft Teams", AppCategory::communication, IdleBehavior::safeToQuit},
    {"ru.keepcoder.Telegram", "Telegram", AppCategory::communication, IdleBehavior::safeToQuit},
    {"net.whatsapp.WhatsApp", "WhatsApp", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.tencent.xinWeChat", "WeChat", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.bytedance.macos.feishu", "Lark (Feishu)", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.skype.skype", "Skype", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.apple.FaceTime", "FaceTime", AppCategory::communication, IdleBehavior::safeToQuit},
    {"com.apple.MobileSMS", "Messages", AppCategory::communication, IdleBehavior::neverQuit},
    {"com.readdle.smartemail-macos", "Spark Mail", AppCategory::communication, IdleBehavior::cautious},
    {"com.apple.mail", "Apple Mail", AppCategory::communication, IdleBehavior::cautious},
    {"com.tapbots.Ivory", "Ivory (Mastodon)", AppCategory::communication, IdleBehavior::safeToQuit},

    {"com.spotify.client", "Spotify", AppCategory::media, IdleBehavior::cautious},
    {"com.apple.Music", "Apple Music", AppCategory::media, IdleBehavior::cautious},
    {"org.videolan.vlc", "VLC", AppCategory::media, IdleBehavior::safeToQuit},
    {"com.colliderli.iina", "IINA", AppCategory::media, IdleBehavior::safeToQuit},
    {"tv.plex.desktop", "Plex", AppCategory::media, IdleBehavior::cautious},
    {"com.apple.podcasts", "Podcasts", AppCategory::media, IdleBehavior::cautious},
    {"com.apple.TV", "Apple TV", AppCategory::media, IdleBehavior::cautious},
    {"com.apple.Photos", "Photos", AppCategory::media, IdleBehavior::cautious},
    {"com.apple.Preview", "Preview", AppCategory::media, IdleBehavior::safeToQuit},
    {"com.apple.QuickTimePlayerX", "QuickTime Player", AppCategory::media, IdleBehavior::safeToQuit},
    {"com.apple.iBooksX", "Books", AppCategory::media, IdleBehavior::safeToQuit},

    {"com.microsoft.Word", "Microsoft Word", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.microsoft.Excel", "Microsoft Excel", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.microsoft.Powerpoint", "Microsoft PowerPoint", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.microsoft.Outlook", "Microsoft Outlook", AppCategory::office, IdleBehavior::cautious},
    {"com.microsoft.onenote.mac", "Microsoft OneNote", AppCategory::office, IdleBehavior::cautious},
    {"notion.id", "Notion", AppCategory::office, IdleBehavior::safeToQuit},
    {"md.obsidian", "Obsidian", AppCategory::office, IdleBehavior::safeToQuit},
    {"net.shinyfrog.bear", "Bear", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.lukilabs.lukiapp", "Craft", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.ulyssesapp.mac", "Ulysses", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.culturedcode.ThingsMac", "Things 3", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.todoist.mac.Todoist", "Todoist", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.omnigroup.OmniFocus3", "OmniFocus", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.apple.iCal", "Calendar", AppCategory::office, IdleBehavior::neverQuit},
    {"com.apple.reminders", "Reminders", AppCategory::office, IdleBehavior::neverQuit},
    {"com.apple.Notes", "Notes", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.apple.Maps", "Maps", AppCategory::office, IdleBehavior::safeToQuit},
    {"com.flexibits.fantastical2.mac", "Fantastical", AppCategory::office, IdleBehavior::neverQuit},

    {"com.getdropbox.dropbox", "Dropbox", AppCategory::cloudStorage, IdleBehavior::neverQuit},
    {"com.google.drivefs", "Google Drive", AppCategory::cloudStorage, IdleBehavior::neverQuit},
    {"com.microsoft.OneDrive", "OneDrive", AppCategory::cloudStorage, IdleBehavior::neverQuit},
    {"com.box.desktop", "Box Drive", AppCategory::cloudStorage, IdleBehavior::neverQuit},

    {"com.apple.ActivityMonitor", "Activity Monitor", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.apple.DiskUtility", "Disk Utility", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.apple.systempreferences", "System Settings", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.apple.finder", "Finder", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.apple.AppStore", "App Store", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.macpaw.CleanMyMac4", "CleanMyMac X", AppCategory::systemUtility, IdleBehavior::safeToQuit},
    {"com.runningwithcrayons.Alfred", "Alfred", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.raycast.macos", "Raycast", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.surteesstudios.Bartender", "Bartender", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.bjango.istatmenus", "iStat Menus", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"org.pqrs.Karabiner-Elements.Settings", "Karabiner-Elements", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.hegenberg.BetterTouchTool", "BetterTouchTool", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.crowdcafe.windowmagnet", "Magnet", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.knollsoft.Rectangle", "Rectangle", AppCategory::systemUtility, IdleBehavior::neverQuit},
    {"com.apple.PhotoBooth", "Photo Booth", AppCategory::systemUtility, IdleBehavior::safeToQuit},
    {"com.apple.weather", "Weather", AppCategory::systemUtility, IdleBehavior::safeToQuit},

    {"com.1password.1password", "1Password", AppCategory::security, IdleBehavior::neverQuit},
    {"com.bitwarden.desktop", "Bitwarden", AppCategory::security, IdleBehavior::neverQuit},
    {"at.obdev.LittleSnitchConfiguration", "Little Snitch", AppCategory::security, IdleBehavior::neverQuit},

    {"com.sindresorhus.Dato", "Dato", AppCategory::menuBarApp, IdleBehavior::neverQuit},
    {"com.if.Amphetamine", "Amphetamine", AppCategory::menuBarApp, IdleBehavior::neverQuit},
    {"com.dwarvesv.minimalbar", "Hidden Bar", AppCategory::menuBarApp, IdleBehavior::neverQuit},
    {"com.mowglii.ItsycalApp", "Itsycal", AppCategory::menuBarApp, IdleBehavior::neverQuit},
    {"com.nickvision.handmirror", "Hand Mirror", AppCategory::menuBarApp, IdleBehavior::neverQuit},
    {"com.nickkuo.menubarx", "MenubarX", AppCategory::menuBarApp, IdleBehavior::neverQuit},

    {"com.parallels.desktop.console", "Parallels Desktop", AppCategory::utility, IdleBehavior::cautious},
    {"com.vmware.fusion", "VMware Fusion", AppCategory::utility, IdleBehavior::cautious},
    {"fr.handbrake.HandBrake", "HandBrake", AppCategory::utility, IdleBehavior::cautious},
    {"com.adobe.acc.AdobeCreativeCloud", "Adobe Creative Cloud", AppCategory::utility, IdleBehavior::neverQuit},
    {"com.grammarly.ProjectLlama", "Grammarly", AppCategory::utility, IdleBehavior::neverQuit},

    {"com.valvesoftware.steam", "Steam", AppCategory::gaming, IdleBehavior::cautious},
    {"com.epicgames.EpicGamesLauncher", "Epic Games Launcher", AppCategory::gaming, IdleBehavior::cautious},
    // clang-format on
}};

} // namespace calmora
