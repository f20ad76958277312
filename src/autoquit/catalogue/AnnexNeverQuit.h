#pragma once

#include <array>
#include <span>
#include <string_view>

// What is never quit automatically: somebody waits for it, or work in it dies unseen.
// Desktop ids of Debian 12 and 13, of flatpaks and of vendors' packages. Each array is sorted.

namespace calmora {

// clang-format off

/// Terminals: whatever runs in them dies with them.
inline constexpr auto annexTerminals = std::to_array<std::string_view>({
    "Alacritty", "Terminal", "alacritty", "app.devsuite.Ptyxis", "com.gexperts.Tilix",
    "com.github.amezin.ddterm", "com.mitchellh.ghostty", "com.raggesilver.BlackBox",
    "com.system76.CosmicTerm", "cool-retro-term", "cutecom", "debian-uxterm", "debian-xterm",
    "deepin-terminal", "foot", "foot-server", "footclient", "gmrun", "gtkterm", "guake",
    "guake-indicator", "io.elementary.terminal", "kitty", "lomiri-terminal-app",
    "lxde-x-terminal-emulator", "lxterminal", "mate-terminal", "minicom", "mlterm",
    "org.alacritty.Alacritty", "org.contourterminal.Contour", "org.gnome.Console",
    "org.gnome.Ptyxis", "org.gnome.Terminal", "org.kde.konsole", "org.kde.qmlkonsole",
    "org.kde.yakuake", "org.laptop.Terminal.activity", "org.wezfurlong.wezterm", "pangoterm",
    "pterm", "qterminal", "qterminal-drop", "rxvt-unicode", "sakura", "seyon", "st", "terminator",
    "terminology", "terminus", "termit", "tilda", "tilda-dbus", "uxterm", "x3270", "xfce4-terminal",
    "xfce4-terminal-emulator", "xgterm", "xiterm+thai", "xterm", "zutty",
});

/// Terminals that Debian packages without a desktop entry.
inline constexpr auto annexTerminalPrograms = std::to_array<std::string_view>({
    "exe:/usr/bin/Eterm.Eterm",
});

/// Connections to other machines, in both directions.
inline constexpr auto annexConnections = std::to_array<std::string_view>({
    "barrier", "clusterssh", "com.github.debauchee.barrier", "com.github.muriloventuroso.easyssh",
    "dev.lizardbyte.app.Sunshine", "epoptes", "ganyremote", "gitso", "grdesktop", "kanyremote",
    "org.deskflow.deskflow", "org.gnome.Connections", "org.gnome.NetworkDisplays",
    "org.gnome.Shell.Extensions.GSConnect", "org.kde.kdeconnect.app",
    "org.kde.kdeconnect.nonplasma", "org.kde.krdc", "org.kde.krdp", "org.kde.krfb",
    "org.remmina.Remmina", "org.remmina.Remmina-file", "org.tigervnc.vncviewer", "putty",
    "pyhoca-gui", "remmina-gnome", "remote-viewer", "sdl-freerdp3", "secpanel", "ssvnc",
    "veyon-master", "vinagre", "vino-server", "x11vnc", "x2goclient", "x2gofm", "xfreerdp3", "xpra",
    "xpra-gui", "xpra-launcher", "xpra-shadow", "xtigervncviewer",
});

/// Virtual machines, emulators and Windows programs: what runs inside is lost.
inline constexpr auto annexMachines = std::to_array<std::string_view>({
    "PlayOnLinux", "app.xemu.xemu", "aqemu", "aranym-jit", "aranym-mmu", "ares", "blastem",
    "cen64-qt", "com.dosbox_x.DOSBox-X", "com.libretro.RetroArch", "com.supermodel3.Supermodel",
    "com.usebottles.bottles", "dolphin-emu", "dosbox", "fceux", "fs-uae-arcade", "fuse-gtk",
    "fuse-sdl", "gnome-video-arcade", "hatari", "herculesstudio", "io.github.dosbox-staging",
    "io.mgba.mGBA", "mame", "mednaffe", "mupen64plus-qt", "nestopia", "net.cebix.basilisk",
    "net.emulicious.Emulicious", "net.pcsx2.PCSX2", "net.sourceforge.fuse_emulator.Fuse",
    "openMSX-Catapult", "org.citra_emu.citra", "org.flycast.Flycast", "org.gnome.Boxes",
    "org.libretro.RetroArch", "org.mamedev.MAME", "org.ppsspp.PPSSPP",
    "org.virt_manager.virt-manager", "org.virtualsquare.umps3", "org.winehq.wine",
    "org.yuzu_emu.yuzu", "osmose-emulator", "protontricks", "q4wine", "qtrvsim", "retroarch",
    "rlvm", "stella", "tilem2", "virt-manager", "virtualbox", "virtualjaguar", "vmware-player",
    "vmware-workstation", "winetricks",
});

/// System tools and settings.
inline constexpr auto annexSystemTools = std::to_array<std::string_view>({
    "alacarte", "android-file-transfer", "avahi-discover", "bacula-tray-monitor", "bat", "batmon",
    "biometric-manager", "boinc-manager", "budgie-control-center", "ca.desrt.dconf-editor",
    "cairo-dock", "cairo-dock-cairo", "ccsm", "clamtk", "cmst", "com.github.tchx84.Flatseal",
    "com.mattjakeman.ExtensionManager", "com.protonvpn.www", "compiz-start", "compton",
    "configure-debian", "cpu-x", "ddcui", "displaycal", "displaycal-apply-profiles", "etherape",
    "ettercap", "fcitx", "firewall-config", "fusion-icon", "fwbuilder", "gammastep-indicator",
    "gkdebconf", "gkrellm", "gnome-nettool", "gnome-system-log", "gnome-system-monitor", "gol",
    "gpomme", "grub-customizer", "gsmartcontrol", "gufw", "hardinfo", "hardinfo2", "im-config",
    "indicator-sensors", "io.github.pwr_solaar.solaar", "io.github.wiiznokes.fan-control", "jgmenu",
    "jstest-gtk", "kernelshark", "km-config", "kshutdown", "laptop-mode-tools", "lshw-gtk",
    "lxtask", "mate-system-log", "mate-system-monitor", "mate-user-admin", "menulibre",
    "mobi.phosh.MobileSettings", "modem-manager-gui", "nagstamon", "needrestart",
    "needrestart-session", "net.opentabletdriver.OpenTabletDriver", "nm-connection-editor",
    "nm-tray", "nut-monitor", "nut-monitor-py3qt5", "opensnitch_ui", "org.bluesabre.Mugshot",
    "org.coolero.Coolero", "org.corectrl.CoreCtrl", "org.debian.galternatives", "org.fcitx.Fcitx5",
    "org.freedesktop.MalcontentControl", "org.freedesktop.Piper", "org.gnome.Extensions",
    "org.gnome.Firmware", "org.gnome.GPaste.Ui", "org.gnome.KrbAuthDialog", "org.gnome.Logs",
    "org.gnome.PowerStats", "org.gnome.Settings", "org.gnome.SystemMonitor", "org.gnome.Usage",
    "org.gnome.tweaks", "org.kde.akonadiimportwizard", "org.kde.kalarm", "org.kde.kinfocenter",
    "org.kde.kmenuedit", "org.kde.ksystemlog", "org.kde.kwatchgnupg", "org.kde.latte-dock",
    "org.kde.plasma-systemmonitor", "org.kde.systemmonitor", "org.mozilla.vpn",
    "org.openrgb.OpenRGB", "org.rnd2.cpupower_gui", "org.ubuntubudgie.shufflercontrol",
    "org.wireshark.Wireshark", "org.xfce.PanelProfiles", "org.xrdesktop.settings", "plank",
    "process-viewer", "psensor", "qps", "razercfg", "redshift-gtk", "redshift-qt", "riseup-vpn",
    "sepolicy", "snapper-gui", "solaar", "stacer", "system-config-printer", "systemsettings",
    "tint2", "usbview", "wpa_gui", "xfce-settings-manager", "xfce4-sensors",
    "xfce4-settings-editor", "xfce4-taskmanager", "xsensors",
});

/// Installing and updating software.
inline constexpr auto annexInstallers = std::to_array<std::string_view>({
    "calamares-install-debian", "gdebi", "install-debian", "org.gnome.PackageUpdater",
    "org.gnome.Packages", "org.gnome.Software", "org.kde.apper", "org.kde.discover",
    "software-properties-gtk", "software-properties-qt", "synaptic", "torbrowser-settings",
});

/// Passwords, keys and one-time codes.
inline constexpr auto annexSecrets = std::to_array<std::string_view>({
    "NitrokeyAuthenticator", "cardpeek", "com.belmoussaoui.Authenticator",
    "com.cloudchewie.cloudotp", "com.github.paolostivanin.GTKCrypto",
    "com.github.paolostivanin.OTPClient", "com.governikus.ausweisapp2",
    "com.nitrokey.nitrokey-app2", "com.yubico.yubioath", "de.hohnstaedt.xca", "firejail-ui",
    "firetools", "gnomint", "gpa", "gringotts", "info.olasagasti.revelation",
    "io.github.mhogomchungu.sirikali", "keepass2", "lomiri-tfamanager-app", "luckyluks",
    "me.proton.Pass", "nitrokey-app", "nmapsi4", "nmapsi4-admin", "org.cryptomator.Cryptomator",
    "org.gnome.Keysign", "org.gnome.World.Secrets", "org.gnome.seahorse.Application",
    "org.kde.keysmith", "org.kde.kgpg", "org.kde.kleopatra", "org.kde.kwalletmanager",
    "org.kde.kwalletmanager5", "org.keepassxc.KeePassXC", "org.postmarketos.Numberstation",
    "password-gorilla", "pwsafe", "qtpass", "stoken-gui", "stoken-gui-small", "xca", "ykman-gui",
    "zenmap", "zenmap-root",
});

/// Disks, backups and synchronisation.
inline constexpr auto annexDisks = std::to_array<std::string_view>({
    "AcetoneISO", "FreeFileSync", "QDiskInfo", "RealTimeSync", "backintime-qt",
    "backintime-qt-root", "bleachbit-root", "brasero", "btrfs-assistant", "burner", "caja-dropbox",
    "com.borgbase.Vorta", "com.diffingo.fwbackups", "com.nextcloud.desktopclient.nextcloud",
    "com.seafile.seafile-applet", "com.synology.SynologyDrive", "com.syntevo.SmartSynchronize",
    "deepin-boot-maker", "dkopp", "dvdisaster", "gcdmaster", "git-annex",
    "gnome-disk-image-mounter", "gnome-disk-image-writer", "gparted", "grsync", "guymager", "gzbd",
    "image-analyzer", "io.gitlab.secu_design.usb-imager", "isomaster", "kdiskmark", "live_clone",
    "luckybackup", "luckybackup-su", "me.kozec.syncthingtk", "mintstick", "mintstick-format",
    "onedriver", "org.bleachbit.BleachBit", "org.freefilesync.FreeFileSync", "org.gnome.DejaDup",
    "org.gnome.DiskUtility", "org.gnome.MultiWriter", "org.gnome.World.PikaBackup",
    "org.kde.isoimagewriter", "org.kde.k3b", "org.kde.kbackup", "org.kde.kfloppy",
    "org.kde.kwikdisk", "org.kde.partitionmanager", "org.kde.smb4k", "org.raspberrypi.rpi-imager",
    "owncloud", "qpxtool", "rclone-browser", "redhat-usermount", "scolasync", "seafile", "shredder",
    "sync", "syncthing-gtk", "syncthing-start", "syncthingtray", "timeshift-gtk", "ukopp",
    "unison-2.51+4.13.1-gtk", "unison-2.52-gtk", "unison-2.53-gtk", "xfburn",
});

/// Downloads, file transfer and servers.
inline constexpr auto annexTransfers = std::to_array<std::string_view>({
    "Camera", "FTP", "WebHTTrack", "amule", "app.drey.Warp", "com.github.persepolisdm.persepolis",
    "com.github.unrud.VideoDownloader", "com.transmissionbt.Transmission", "davmail",
    "de.haeckerfelix.Fragments", "deluge", "eiskaltdcpp-gtk", "eiskaltdcpp-qt", "filezilla", "gftp",
    "gmtp", "gnomad2", "gnunet-fs-gtk", "gpodder", "gtkam", "gtkpod", "httraqt",
    "io.frama.tractor.carburetor", "io.github.TransmissionRemoteGtk", "io.github.nozwock.Packet",
    "jftp", "jupyter-notebook", "jupyterlab", "litecoin-qt", "mediathekview",
    "net.damonlynch.rapid_photo_downloader", "org.equeim.Tremotesf",
    "org.filezillaproject.Filezilla", "org.freedownloadmanager.Manager", "org.gnome.frogr",
    "org.gnome.pan", "org.kde.kget", "org.kde.ktorrent", "org.nicotine_plus.Nicotine",
    "org.onionshare.OnionShare", "org.openscopeproject.TrguiNG", "org.qbittorrent.qBittorrent",
    "org.sabnzbd.sabnzbd", "org.tractor.carburetor", "persepolis", "qweborf", "sabnzbdplus",
    "sachesi", "selektor", "torbrowser", "transgui", "transmission-gtk", "transmission-qt",
    "uget-gtk", "youtubedl-gui",
});

/// File managers: they copy and move in the background.
inline constexpr auto annexFileManagers = std::to_array<std::string_view>({
    "4Pane", "GWorkspace", "caja", "caja-browser", "caja-home", "dev.tchx84.Portfolio", "doublecmd",
    "far2l", "nemo", "org.gnome.Nautilus", "org.gnome.gnome-commander", "org.kde.dolphin",
    "org.kde.krusader", "pcmanfm", "pcmanfm-qt", "peony", "rox-filer", "spacefm", "thunar",
    "tuxcmd", "worker", "xfe",
});

/// Aids for seeing, hearing, typing and pointing; helpers that work unseen.
inline constexpr auto annexHelpers = std::to_array<std::string_view>({
    "actiona", "autokey-gtk", "autokey-qt", "caffeine", "clipit", "com.github.hluk.copyq",
    "com.github.spheras.desktopfolder", "com.github.wwmm.easyeffects",
    "com.github.wwmm.pulseeffects", "com.ulduzsoft.Birdtray", "dasher", "diodon", "eviacam",
    "gnome-pie", "gnubiff", "gprompter", "gxneur", "input-pad", "input-remapper-gtk",
    "io.github.antimicrox.antimicrox", "io.github.slgobinath.SafeEyes", "kdocker", "kupfer",
    "mailnag", "nwg-clipman", "onboard", "org.holylobster.nuntius", "org.kde.klipper",
    "org.kde.kmag", "org.kde.kmousetool", "org.kde.kmouth", "org.kde.rsibreak",
    "org.kde.xwaylandvideobridge", "org.rncbc.qjackctl", "org.rncbc.qpwgraph", "parcellite",
    "pasystray", "plover", "pnmixer", "qlipper", "raysession", "safeeyes", "screenkey",
    "spotlighter", "synapse", "variety", "workrave", "wstroke-config", "xfce4-clipman", "xzoom",
});

/// Recordings and broadcasts.
inline constexpr auto annexRecorders = std::to_array<std::string_view>({
    "be.maartenbaert.simplescreenrecorder", "butt", "com.uploadedlobster.peek",
    "deepin-screen-recorder", "gmerlin-recorder", "gnome-dvb-control", "guvcview", "idjc",
    "io.github.seadve.Kooha", "kazam", "kluppe", "mkchromecast", "net.flyingpimonster.Camera",
    "nl.brixit.Switcher", "openlp", "org.entangle_photo.Manager", "org.gnome.Cheese",
    "org.gnome.Snapshot", "org.gnome.SoundRecorder", "org.kde.kamoso", "org.kde.krecorder",
    "org.mixxx.Mixxx", "qjackrcd", "qlcplus", "simplescreenrecorder", "timemachine", "traverso",
    "vimix", "voctogui", "vokoscreenNG", "webcamoid",
});

/// Copying a disc takes longer than it takes to forget it.
inline constexpr auto annexRippers = std::to_array<std::string_view>({
    "asunder", "org.gnome.SoundJuicer", "org.gnome.gitlab.grimripper", "ripperx",
});

/// Calls: nobody looks at the window of one.
inline constexpr auto annexCalls = std::to_array<std::string_view>({
    "info.mumble.Mumble", "io.github.qtox.qTox", "jami", "jamulus", "linphone", "mangler", "mumble",
    "net.jami.Jami", "org.gnome.Calls", "org.jacktrip.JackTrip", "org.kde.phone.dialer",
    "org.kde.plasma.dialer", "qtel", "twinkle",
});

/// Alarms, timers and calendars, which remind.
inline constexpr auto annexReminders = std::to_array<std::string_view>({
    "SimpleAgenda", "alarm-clock-applet", "charmtimetracker", "etm", "gtimer", "lomiri-clock-app",
    "org.gnome.Calendar", "org.gnome.Pomodoro", "org.gnome.clocks", "org.kde.calindori",
    "org.kde.kalendar", "org.kde.kclock", "org.kde.korganizer", "org.kde.kronometer",
    "org.kde.kteatime", "org.kde.ktimer", "org.kde.ktimetracker", "org.kde.merkuro.calendar",
    "org.xfce.orage", "osmo", "stopwatch", "tkremind",
});

/// Machines, radios, telescopes and prints that are under way.
inline constexpr auto annexInstruments = std::to_array<std::string_view>({
    "IMSProg", "altusmetrum-altosui", "altusmetrum-telegps", "bCNC", "chirp",
    "com.chirpmyradio.chirp", "direwolf", "flrig", "foxtrotgps", "galvani", "gpredict",
    "io.github.betaflight.BetaflightConfigurator", "navit", "opencpn", "org.kde.kstars", "ponyprog",
    "pronterface", "qFlipper", "qdmr", "repetier-host", "repsnapper", "stlink-gui", "ucrpf1host",
    "wfview", "xastir",
});

/// Presentations: they stay in front for as long as somebody talks.
inline constexpr auto annexPresenters = std::to_array<std::string_view>({
    "io.github.pympress", "pympress",
});

/// All of these, by subject.
inline constexpr std::array<std::span<const std::string_view>, 17> annexNeverQuit{
    annexTerminals, annexTerminalPrograms, annexConnections, annexMachines, annexSystemTools,
    annexInstallers, annexSecrets, annexDisks, annexTransfers, annexFileManagers, annexHelpers,
    annexRecorders, annexRippers, annexCalls, annexReminders, annexInstruments, annexPresenters,
};

// clang-format on

} // namespace calmora
