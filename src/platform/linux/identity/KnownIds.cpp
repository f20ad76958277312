// SPDX-License-Identifier: MIT
#include "platform/linux/identity/KnownIds.h"

#include <algorithm>
#include <array>

namespace calmora {

namespace {

// Each pair's comment names the origin of the desktop id. Ids that are their own well-known
// identifier are listed for completeness.
// clang-format off
constexpr std::array<KnownId, 148> table = {{
    {"1password", "com.1password.1password"}, // vendor's package
    {"1password_1password", "com.1password.1password"}, // Snap store: <snap>_<application>
    {"AdobeReader", "com.adobe.Reader"}, // vendor's package
    {"Postman", "com.postmanlabs.mac"}, // written by the vendor's program or AppImage
    {"Zoom", "us.zoom.xos"}, // vendor's package
    {"android-studio_android-studio", "com.google.android.studio"}, // Snap store: <snap>_<application>
    {"bitwarden", "com.bitwarden.desktop"}, // vendor's package
    {"bitwarden_bitwarden", "com.bitwarden.desktop"}, // Snap store: <snap>_<application>
    {"blender", "org.blenderfoundation.blender"}, // Debian
    {"blender_blender", "org.blenderfoundation.blender"}, // Snap store: <snap>_<application>
    {"brave-browser", "com.brave.Browser"}, // vendor's package
    {"brave_brave", "com.brave.Browser"}, // Snap store: <snap>_<application>
    {"bytedance-feishu", "com.bytedance.macos.feishu"}, // vendor's package
    {"bytedance-lark", "com.bytedance.macos.feishu"}, // vendor's package
    {"chromium", "org.chromium.Chromium"}, // Debian
    {"chromium-browser", "org.chromium.Chromium"}, // Debian before 12 and Ubuntu
    {"chromium_chromium", "org.chromium.Chromium"}, // Snap store: <snap>_<application>
    {"clion_clion", "com.jetbrains.CLion"}, // Snap store: <snap>_<application>
    {"cn.feishu.Feishu", "com.bytedance.macos.feishu"}, // Flathub
    {"code", "com.microsoft.VSCode"}, // vendor's package
    {"code-insiders", "com.microsoft.VSCodeInsiders"}, // vendor's package
    {"code-insiders_code-insiders", "com.microsoft.VSCodeInsiders"}, // Snap store: <snap>_<application>
    {"code_code", "com.microsoft.VSCode"}, // Snap store: <snap>_<application>
    {"com.adobe.Reader", "com.adobe.Reader"}, // Flathub
    {"com.bitwarden.desktop", "com.bitwarden.desktop"}, // Flathub
    {"com.blackmagicdesign.resolve", "com.blackmagic-design.DaVinciResolve"}, // vendor's package
    {"com.brave.Browser", "com.brave.Browser"}, // Flathub
    {"com.discordapp.Discord", "com.hnc.Discord"}, // Flathub
    {"com.dropbox.Client", "com.getdropbox.dropbox"}, // Flathub
    {"com.getpostman.Postman", "com.postmanlabs.mac"}, // Flathub
    {"com.github.IsmaelMartinez.teams_for_linux", "com.microsoft.teams2"}, // Flathub
    {"com.google.AndroidStudio", "com.google.android.studio"}, // Flathub
    {"com.google.Chrome", "com.google.Chrome"}, // Flathub
    {"com.jetbrains.CLion", "com.jetbrains.CLion"}, // Flathub
    {"com.jetbrains.DataGrip", "com.jetbrains.datagrip"}, // Flathub
    {"com.jetbrains.GoLand", "com.jetbrains.goland"}, // Flathub
    {"com.jetbrains.IntelliJ-IDEA-Community", "com.jetbrains.intellij"}, // Flathub
    {"com.jetbrains.IntelliJ-IDEA-Ultimate", "com.jetbrains.intellij"}, // Flathub
    {"com.jetbrains.PhpStorm", "com.jetbrains.PhpStorm"}, // Flathub
    {"com.jetbrains.PyCharm-Community", "com.jetbrains.pycharm"}, // Flathub
    {"com.jetbrains.PyCharm-Professional", "com.jetbrains.pycharm"}, // Flathub
    {"com.jetbrains.Rider", "com.jetbrains.rider"}, // Flathub
    {"com.jetbrains.RubyMine", "com.jetbrains.rubymine"}, // Flathub
    {"com.jetbrains.WebStorm", "com.jetbrains.WebStorm"}, // Flathub
    {"com.mastermindzh.tidal-hifi", "com.tidal.desktop"}, // Flathub
    {"com.microsoft.Edge", "com.microsoft.edgemac"}, // Flathub
    {"com.microsoft.Teams", "com.microsoft.teams2"}, // Flathub
    {"com.obsproject.Studio", "com.obsproject.obs-studio"}, // Debian
    {"com.onepassword.OnePassword", "com.1password.1password"}, // Flathub
    {"com.opera.Opera", "com.operasoftware.Opera"}, // Flathub
    {"com.plexamp.Plexamp", "tv.plex.plexamp"}, // Flathub
    {"com.skype.Client", "com.skype.skype"}, // Flathub
    {"com.slack.Slack", "com.tinyspeck.slackmacgap"}, // Flathub
    {"com.spotify.Client", "com.spotify.client"}, // Flathub
    {"com.sublimetext.three", "com.sublimetext.4"}, // Flathub
    {"com.tencent.WeChat", "com.tencent.xinWeChat"}, // Flathub
    {"com.todoist.Todoist", "com.todoist.mac.Todoist"}, // Flathub
    {"com.valvesoftware.Steam", "com.valvesoftware.steam"}, // Flathub
    {"com.visualstudio.code", "com.microsoft.VSCode"}, // Flathub
    {"com.visualstudio.code.insiders", "com.microsoft.VSCodeInsiders"}, // Flathub
    {"com.vivaldi.Vivaldi", "com.vivaldi.Vivaldi"}, // Flathub
    {"cursor", "com.todesktop.230313mzl4w4u92"}, // vendor's package
    {"datagrip_datagrip", "com.jetbrains.datagrip"}, // Snap store: <snap>_<application>
    {"deezer-desktop", "com.deezer.deezer-desktop"}, // community package of the vendor's service
    {"dev.aunetx.deezer", "com.deezer.deezer-desktop"}, // Flathub
    {"dev.warp.Warp", "dev.warp.Warp-Stable"}, // vendor's package
    {"discord", "com.hnc.Discord"}, // vendor's package
    {"discord_discord", "com.hnc.Discord"}, // Snap store: <snap>_<application>
    {"docker-desktop", "com.docker.docker"}, // vendor's package
    {"dropbox", "com.getdropbox.dropbox"}, // Debian
    {"figma-linux", "com.figma.Desktop"}, // community package of the vendor's service
    {"figma-linux_figma-linux", "com.figma.Desktop"}, // Snap store: <snap>_<application>
    {"firefox", "org.mozilla.firefox"}, // Debian
    {"firefox-esr", "org.mozilla.firefox"}, // Debian
    {"firefox_firefox", "org.mozilla.firefox"}, // Snap store: <snap>_<application>
    {"fr.handbrake.ghb", "fr.handbrake.HandBrake"}, // Debian
    {"github-desktop", "com.github.GitHubClient"}, // community package of the vendor's service
    {"goland_goland", "com.jetbrains.goland"}, // Snap store: <snap>_<application>
    {"google-chrome", "com.google.Chrome"}, // vendor's package
    {"intellij-idea-community_intellij-idea-community", "com.jetbrains.intellij"}, // Snap store: <snap>_<application>
    {"intellij-idea-ultimate_intellij-idea-ultimate", "com.jetbrains.intellij"}, // Snap store: <snap>_<application>
    {"io.github.Figma_Linux.figma_linux", "com.figma.Desktop"}, // Flathub
    {"io.github.shiftey.Desktop", "com.github.GitHubClient"}, // Flathub
    {"jetbrains-clion", "com.jetbrains.CLion"}, // written by the vendor's program or AppImage
    {"jetbrains-datagrip", "com.jetbrains.datagrip"}, // written by the vendor's program or AppImage
    {"jetbrains-goland", "com.jetbrains.goland"}, // written by the vendor's program or AppImage
    {"jetbrains-idea", "com.jetbrains.intellij"}, // written by the vendor's program or AppImage
    {"jetbrains-idea-ce", "com.jetbrains.intellij"}, // written by the vendor's program or AppImage
    {"jetbrains-phpstorm", "com.jetbrains.PhpStorm"}, // written by the vendor's program or AppImage
    {"jetbrains-pycharm", "com.jetbrains.pycharm"}, // written by the vendor's program or AppImage
    {"jetbrains-pycharm-ce", "com.jetbrains.pycharm"}, // written by the vendor's program or AppImage
    {"jetbrains-rider", "com.jetbrains.rider"}, // written by the vendor's program or AppImage
    {"jetbrains-rubymine", "com.jetbrains.rubymine"}, // written by the vendor's program or AppImage
    {"jetbrains-studio", "com.google.android.studio"}, // written by the vendor's program or AppImage
    {"jetbrains-toolbox", "com.jetbrains.toolbox"}, // written by the vendor's program or AppImage
    {"jetbrains-webstorm", "com.jetbrains.WebStorm"}, // written by the vendor's program or AppImage
    {"md.obsidian.Obsidian", "md.obsidian"}, // Flathub
    {"microsoft-edge", "com.microsoft.edgemac"}, // vendor's package
    {"obs", "com.obsproject.obs-studio"}, // Debian before 12 and Ubuntu
    {"obs-studio_obs-studio", "com.obsproject.obs-studio"}, // Snap store: <snap>_<application>
    {"obsidian", "md.obsidian"}, // vendor's package
    {"obsidian_obsidian", "md.obsidian"}, // Snap store: <snap>_<application>
    {"opera", "com.operasoftware.Opera"}, // vendor's package
    {"opera_opera", "com.operasoftware.Opera"}, // Snap store: <snap>_<application>
    {"org.blender.Blender", "org.blenderfoundation.blender"}, // Flathub
    {"org.chromium.Chromium", "org.chromium.Chromium"}, // Flathub
    {"org.mozilla.firefox", "org.mozilla.firefox"}, // Flathub
    {"org.telegram.desktop", "ru.keepcoder.Telegram"}, // Debian
    {"org.videolan.VLC", "org.videolan.vlc"}, // Flathub
    {"phpstorm_phpstorm", "com.jetbrains.PhpStorm"}, // Snap store: <snap>_<application>
    {"plex-desktop_plex-desktop", "tv.plex.desktop"}, // Snap store: <snap>_<application>
    {"plexamp", "tv.plex.plexamp"}, // written by the vendor's program or AppImage
    {"plexamp_plexamp", "tv.plex.plexamp"}, // Snap store: <snap>_<application>
    {"postman_postman", "com.postmanlabs.mac"}, // Snap store: <snap>_<application>
    {"pycharm-community_pycharm-community", "com.jetbrains.pycharm"}, // Snap store: <snap>_<application>
    {"pycharm-professional_pycharm-professional", "com.jetbrains.pycharm"}, // Snap store: <snap>_<application>
    {"replit", "com.electron.replit"}, // vendor's package
    {"rider_rider", "com.jetbrains.rider"}, // Snap store: <snap>_<application>
    {"rubymine_rubymine", "com.jetbrains.rubymine"}, // Snap store: <snap>_<application>
    {"skype_skypeforlinux", "com.skype.skype"}, // Snap store: <snap>_<application>
    {"skypeforlinux", "com.skype.skype"}, // vendor's package
    {"slack", "com.tinyspeck.slackmacgap"}, // vendor's package
    {"slack_slack", "com.tinyspeck.slackmacgap"}, // Snap store: <snap>_<application>
    {"spotify", "com.spotify.client"}, // vendor's package
    {"spotify_spotify", "com.spotify.client"}, // Snap store: <snap>_<application>
    {"steam", "com.valvesoftware.steam"}, // Debian
    {"steam_steam", "com.valvesoftware.steam"}, // Snap store: <snap>_<application>
    {"sublime-text_subl", "com.sublimetext.4"}, // Snap store: <snap>_<application>
    {"sublime_text", "com.sublimetext.4"}, // vendor's package
    {"tableplus", "com.tinyapp.TablePlus"}, // vendor's package
    {"teams", "com.microsoft.teams2"}, // vendor's package
    {"teams-for-linux", "com.microsoft.teams2"}, // community package of the vendor's service
    {"teams-for-linux_teams-for-linux", "com.microsoft.teams2"}, // Snap store: <snap>_<application>
    {"telegram-desktop_telegram-desktop", "ru.keepcoder.Telegram"}, // Snap store: <snap>_<application>
    {"telegramdesktop", "ru.keepcoder.Telegram"}, // Debian before 12 and Ubuntu
    {"tidal-hifi", "com.tidal.desktop"}, // community package of the vendor's service
    {"tidal-hifi_tidal-hifi", "com.tidal.desktop"}, // Snap store: <snap>_<application>
    {"todoist", "com.todoist.mac.Todoist"}, // written by the vendor's program or AppImage
    {"todoist_todoist", "com.todoist.mac.Todoist"}, // Snap store: <snap>_<application>
    {"tv.plex.PlexDesktop", "tv.plex.desktop"}, // Flathub
    {"us.zoom.Zoom", "us.zoom.xos"}, // Flathub
    {"vivaldi-stable", "com.vivaldi.Vivaldi"}, // vendor's package
    {"vivaldi_vivaldi", "com.vivaldi.Vivaldi"}, // Snap store: <snap>_<application>
    {"vlc", "org.videolan.vlc"}, // Debian
    {"vlc_vlc", "org.videolan.vlc"}, // Snap store: <snap>_<application>
    {"webstorm_webstorm", "com.jetbrains.WebStorm"}, // Snap store: <snap>_<application>
    {"wechat", "com.tencent.xinWeChat"}, // vendor's package
    {"zoom-client_zoom-client", "us.zoom.xos"}, // Snap store: <snap>_<application>
}};
// clang-format on

static_assert(std::ranges::is_sorted(table, {}, &KnownId::desktopId));

/// Strips the UUID that JetBrains' installer appends.
std::string_view withoutInstallationId(std::string_view id) {
    constexpr std::size_t uuidLength = 36;
    if (!id.starts_with("jetbrains-") || id.size() <= uuidLength + 1 ||
        id[id.size() - uuidLength - 1] != '-' ||
        id.substr(id.size() - uuidLength).find_first_not_of("0123456789abcdef-") !=
            std::string_view::npos) {
        return id;
    }
    return id.substr(0, id.size() - uuidLength - 1);
}

} // namespace

std::span<const KnownId> knownIds() {
    return table;
}

std::string wellKnownIdentifier(std::string_view desktopId) {
    const std::string_view id = withoutInstallationId(desktopId);
    const auto found = std::ranges::lower_bound(table, id, {}, &KnownId::desktopId);
    const bool isKnown = found != table.end() && found->desktopId == id;
    return std::string(isKnown ? found->wellKnown : desktopId);
}

} // namespace calmora
