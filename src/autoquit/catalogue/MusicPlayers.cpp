#include "autoquit/catalogue/MusicPlayers.h"

#include "autoquit/catalogue/KnownApps.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

/// Desktop ids of what plays music, radio or spoken books and no films; of clients of a music
/// server as well. Sorted.
constexpr auto linuxPlayers = std::to_array<std::string_view>({
    // clang-format off
    "Cynthiune", "MPDCon", "alsaplayer", "app.moosync.moosync", "ario", "audacious", "betaradio",
    "cantata", "com.doycho.euterpe.gtk", "com.github.geigi.cozy", "com.github.louis77.tuner",
    "com.github.neithern.g4music", "com.github.taiko2k.tauonmb", "com.rafaelmardojai.Blanket",
    "com.sayonara-player.Sayonara", "com.yktoo.ymuse", "cubic.org-opencubicplayer",
    "de.haeckerfelix.Shortwave", "de.wagnermartin.Plattenalbum", "deepin-music",
    "dev.alextren.Spot", "exaile", "gbemol", "glurp", "gmpc", "gogglesmm", "io.bassi.Amberol",
    "io.github.Pithos", "io.github.quodlibet.QuodLibet", "io.gitlab.Goodvibes", "knowthelist",
    "lomiri-music-app", "lxmusic", "org.atheme.audacious", "org.clementine_player.Clementine",
    "org.fooyin.fooyin", "org.gmusicbrowser.gmusicbrowser", "org.gnome.Goobox",
    "org.gnome.Lollypop", "org.gnome.Music", "org.gnome.Podcasts", "org.gnome.Rhythmbox3",
    "org.kde.amarok", "org.kde.elisa", "org.kde.juk", "org.kde.kasts", "org.mixxx.Mixxx",
    "org.strawberrymusicplayer.strawberry", "pithos", "pragha", "qmmp", "qmmp-1", "rhythmbox",
    "silverjuke", "sonata", "sublime-music", "vagalume",
    // clang-format on
});

static_assert(std::ranges::is_sorted(linuxPlayers) &&
              std::ranges::adjacent_find(linuxPlayers) == linuxPlayers.end());

} // namespace

bool isMusicPlayer(std::string_view identifier) {
    return KnownApps::musicAppBundleIDs().contains(identifier) ||
           std::ranges::binary_search(linuxPlayers, identifier);
}

} // namespace calmora
