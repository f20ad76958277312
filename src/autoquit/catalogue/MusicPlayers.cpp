#include "autoquit/catalogue/MusicPlayers.h"

#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/Words.h"

namespace calmora {
namespace {

/// Names of the desktop files of programs that play music, radio or spoken books and no films, and
/// of clients of a music server.
constexpr std::string_view linuxPlayers = R"(
    Cynthiune MPDCon alsaplayer app.moosync.moosync ario audacious betaradio cantata
    com.doycho.euterpe.gtk com.github.geigi.cozy com.github.louis77.tuner
    com.github.neithern.g4music com.github.taiko2k.tauonmb com.rafaelmardojai.Blanket
    com.sayonara-player.Sayonara com.yktoo.ymuse cubic.org-opencubicplayer de.haeckerfelix.Shortwave
    de.wagnermartin.Plattenalbum deepin-music dev.alextren.Spot exaile gbemol glurp gmpc gogglesmm
    io.bassi.Amberol io.github.Pithos io.github.quodlibet.QuodLibet io.gitlab.Goodvibes knowthelist
    lomiri-music-app lxmusic org.atheme.audacious org.clementine_player.Clementine org.fooyin.fooyin
    org.gmusicbrowser.gmusicbrowser org.gnome.Goobox org.gnome.Lollypop org.gnome.Music
    org.gnome.Podcasts org.gnome.Rhythmbox3 org.kde.amarok org.kde.elisa org.kde.juk org.kde.kasts
    org.mixxx.Mixxx org.strawberrymusicplayer.strawberry pithos pragha qmmp qmmp-1 rhythmbox
    silverjuke sonata sublime-music vagalume
)";

} // namespace

bool isMusicPlayer(std::string_view identifier) {
    return KnownApps::musicAppBundleIDs().contains(identifier) || hasWord(linuxPlayers, identifier);
}

} // namespace calmora
