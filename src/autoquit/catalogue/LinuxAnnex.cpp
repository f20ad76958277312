// SPDX-License-Identifier: MIT
#include "autoquit/catalogue/LinuxAnnex.h"

#include <algorithm>

namespace calmora {
namespace {

/// Calls `visit` with each word of a text, in which blanks and line ends stand between the words.
template <typename Visit>
void forEachWord(std::string_view words, Visit visit) {
    constexpr std::string_view gaps = " \n";
    while (!words.empty()) {
        words.remove_prefix(std::min(words.find_first_not_of(gaps), words.size()));
        const std::string_view word = words.substr(0, words.find_first_of(gaps));
        if (!word.empty()) {
            visit(word);
        }
        words.remove_prefix(word.size());
    }
}

/// Whether a text of words has this word. Letter case counts.
bool hasWord(std::string_view words, std::string_view word) {
    bool isFound = false;
    forEachWord(words, [&](std::string_view other) { isFound = isFound || other == word; });
    return isFound;
}

// Applications of Debian 12 and 13, of flatpaks and of vendors' packages.
// Never quit: somebody waits for it, or work in it dies unseen.
// Cautious, which is quit only while it does not use the CPU: documents, conversations, players,
// tools that compute.
// Safe to quit: may go whenever it is idle, though its Categories would spare it.
constexpr AnnexSubject subjects[] = {
    // Terminals: whatever runs in them dies with them.
    {IdleBehavior::neverQuit, R"(
    Alacritty Terminal alacritty app.devsuite.Ptyxis com.gexperts.Tilix com.github.amezin.ddterm
    com.mitchellh.ghostty com.raggesilver.BlackBox com.system76.CosmicTerm cool-retro-term cutecom
    debian-uxterm debian-xterm deepin-terminal foot foot-server footclient gmrun gtkterm guake
    guake-indicator io.elementary.terminal kitty lomiri-terminal-app lxde-x-terminal-emulator
    lxterminal mate-terminal minicom mlterm org.alacritty.Alacritty org.contourterminal.Contour
    org.gnome.Console org.gnome.Ptyxis org.gnome.Terminal org.kde.konsole org.kde.qmlkonsole
    org.kde.yakuake org.laptop.Terminal.activity org.wezfurlong.wezterm pangoterm pterm qterminal
    qterminal-drop rxvt-unicode sakura seyon st terminator terminology terminus termit tilda
    tilda-dbus uxterm x3270 xfce4-terminal xfce4-terminal-emulator xgterm xiterm+thai xterm zutty
    )"},
    // Terminals that Debian packages without a desktop entry.
    {IdleBehavior::neverQuit, R"(
    exe:/usr/bin/Eterm.Eterm
    )"},
    // Connections to other machines, in both directions.
    {IdleBehavior::neverQuit, R"(
    barrier clusterssh com.github.debauchee.barrier com.github.muriloventuroso.easyssh
    dev.lizardbyte.app.Sunshine epoptes ganyremote gitso grdesktop kanyremote org.deskflow.deskflow
    org.gnome.Connections org.gnome.NetworkDisplays org.gnome.Shell.Extensions.GSConnect
    org.kde.kdeconnect.app org.kde.kdeconnect.nonplasma org.kde.krdc org.kde.krdp org.kde.krfb
    org.remmina.Remmina org.remmina.Remmina-file org.tigervnc.vncviewer putty pyhoca-gui
    remmina-gnome remote-viewer sdl-freerdp3 secpanel ssvnc veyon-master vinagre vino-server x11vnc
    x2goclient x2gofm xfreerdp3 xpra xpra-gui xpra-launcher xpra-shadow xtigervncviewer
    )"},
    // Virtual machines, emulators and Windows programs: what runs inside is lost.
    {IdleBehavior::neverQuit, R"(
    PlayOnLinux app.xemu.xemu aqemu aranym-jit aranym-mmu ares blastem cen64-qt
    com.dosbox_x.DOSBox-X com.libretro.RetroArch com.supermodel3.Supermodel com.usebottles.bottles
    dolphin-emu dosbox fceux fs-uae-arcade fuse-gtk fuse-sdl gnome-video-arcade hatari
    herculesstudio io.github.dosbox-staging io.mgba.mGBA mame mednaffe mupen64plus-qt nestopia
    net.cebix.basilisk net.emulicious.Emulicious net.pcsx2.PCSX2 net.sourceforge.fuse_emulator.Fuse
    openMSX-Catapult org.citra_emu.citra org.flycast.Flycast org.gnome.Boxes org.libretro.RetroArch
    org.mamedev.MAME org.ppsspp.PPSSPP org.virt_manager.virt-manager org.virtualsquare.umps3
    org.winehq.wine org.yuzu_emu.yuzu osmose-emulator protontricks q4wine qtrvsim retroarch rlvm
    stella tilem2 virt-manager virtualbox virtualjaguar vmware-player vmware-workstation winetricks
    )"},
    // System tools and settings.
    {IdleBehavior::neverQuit, R"(
    alacarte android-file-transfer avahi-discover bacula-tray-monitor bat batmon biometric-manager
    boinc-manager budgie-control-center ca.desrt.dconf-editor cairo-dock cairo-dock-cairo ccsm
    clamtk cmst com.github.tchx84.Flatseal com.mattjakeman.ExtensionManager com.protonvpn.www
    compiz-start compton configure-debian cpu-x ddcui displaycal displaycal-apply-profiles etherape
    ettercap fcitx firewall-config fusion-icon fwbuilder gammastep-indicator gkdebconf gkrellm
    gnome-nettool gnome-system-log gnome-system-monitor gol gpomme grub-customizer gsmartcontrol
    gufw hardinfo hardinfo2 im-config indicator-sensors io.github.pwr_solaar.solaar
    io.github.wiiznokes.fan-control jgmenu jstest-gtk kernelshark km-config kshutdown
    laptop-mode-tools lshw-gtk lxtask mate-system-log mate-system-monitor mate-user-admin menulibre
    mobi.phosh.MobileSettings modem-manager-gui nagstamon needrestart needrestart-session
    net.opentabletdriver.OpenTabletDriver nm-connection-editor nm-tray nut-monitor
    nut-monitor-py3qt5 opensnitch_ui org.bluesabre.Mugshot org.coolero.Coolero org.corectrl.CoreCtrl
    org.debian.galternatives org.fcitx.Fcitx5 org.freedesktop.MalcontentControl
    org.freedesktop.Piper org.gnome.Extensions org.gnome.Firmware org.gnome.GPaste.Ui
    org.gnome.KrbAuthDialog org.gnome.Logs org.gnome.PowerStats org.gnome.Settings
    org.gnome.SystemMonitor org.gnome.Usage org.gnome.tweaks org.kde.akonadiimportwizard
    org.kde.kalarm org.kde.kinfocenter org.kde.kmenuedit org.kde.ksystemlog org.kde.kwatchgnupg
    org.kde.latte-dock org.kde.plasma-systemmonitor org.kde.systemmonitor org.mozilla.vpn
    org.openrgb.OpenRGB org.rnd2.cpupower_gui org.ubuntubudgie.shufflercontrol
    org.wireshark.Wireshark org.xfce.PanelProfiles org.xrdesktop.settings plank process-viewer
    psensor qps razercfg redshift-gtk redshift-qt riseup-vpn sepolicy snapper-gui solaar stacer
    system-config-printer systemsettings tint2 usbview wpa_gui xfce-settings-manager xfce4-sensors
    xfce4-settings-editor xfce4-taskmanager xsensors
    )"},
    // Installing and updating software.
    {IdleBehavior::neverQuit, R"(
    calamares-install-debian gdebi install-debian org.gnome.PackageUpdater org.gnome.Packages
    org.gnome.Software org.kde.apper org.kde.discover software-properties-gtk software-properties-qt
    synaptic torbrowser-settings
    )"},
    // Passwords, keys and one-time codes.
    {IdleBehavior::neverQuit, R"(
    NitrokeyAuthenticator cardpeek com.belmoussaoui.Authenticator com.cloudchewie.cloudotp
    com.github.paolostivanin.GTKCrypto com.github.paolostivanin.OTPClient com.governikus.ausweisapp2
    com.nitrokey.nitrokey-app2 com.yubico.yubioath de.hohnstaedt.xca firejail-ui firetools gnomint
    gpa gringotts info.olasagasti.revelation io.github.mhogomchungu.sirikali keepass2
    lomiri-tfamanager-app luckyluks me.proton.Pass nitrokey-app nmapsi4 nmapsi4-admin
    org.cryptomator.Cryptomator org.gnome.Keysign org.gnome.World.Secrets
    org.gnome.seahorse.Application org.kde.keysmith org.kde.kgpg org.kde.kleopatra
    org.kde.kwalletmanager org.kde.kwalletmanager5 org.keepassxc.KeePassXC
    org.postmarketos.Numberstation password-gorilla pwsafe qtpass stoken-gui stoken-gui-small xca
    ykman-gui zenmap zenmap-root
    )"},
    // Disks, backups and synchronisation.
    {IdleBehavior::neverQuit, R"(
    AcetoneISO FreeFileSync QDiskInfo RealTimeSync backintime-qt backintime-qt-root bleachbit-root
    brasero btrfs-assistant burner caja-dropbox com.borgbase.Vorta com.diffingo.fwbackups
    com.nextcloud.desktopclient.nextcloud com.seafile.seafile-applet com.synology.SynologyDrive
    com.syntevo.SmartSynchronize deepin-boot-maker dkopp dvdisaster gcdmaster git-annex
    gnome-disk-image-mounter gnome-disk-image-writer gparted grsync guymager gzbd image-analyzer
    io.gitlab.secu_design.usb-imager isomaster kdiskmark live_clone luckybackup luckybackup-su
    me.kozec.syncthingtk mintstick mintstick-format onedriver org.bleachbit.BleachBit
    org.freefilesync.FreeFileSync org.gnome.DejaDup org.gnome.DiskUtility org.gnome.MultiWriter
    org.gnome.World.PikaBackup org.kde.isoimagewriter org.kde.k3b org.kde.kbackup org.kde.kfloppy
    org.kde.kwikdisk org.kde.partitionmanager org.kde.smb4k org.raspberrypi.rpi-imager owncloud
    qpxtool rclone-browser redhat-usermount scolasync seafile shredder sync syncthing-gtk
    syncthing-start syncthingtray timeshift-gtk ukopp unison-2.51+4.13.1-gtk unison-2.52-gtk
    unison-2.53-gtk xfburn
    )"},
    // Downloads, file transfer and servers.
    {IdleBehavior::neverQuit, R"(
    Camera FTP WebHTTrack amule app.drey.Warp com.github.persepolisdm.persepolis
    com.github.unrud.VideoDownloader com.transmissionbt.Transmission davmail
    de.haeckerfelix.Fragments deluge eiskaltdcpp-gtk eiskaltdcpp-qt filezilla gftp gmtp gnomad2
    gnunet-fs-gtk gpodder gtkam gtkpod httraqt io.frama.tractor.carburetor
    io.github.TransmissionRemoteGtk io.github.nozwock.Packet jftp jupyter-notebook jupyterlab
    litecoin-qt mediathekview net.damonlynch.rapid_photo_downloader org.equeim.Tremotesf
    org.filezillaproject.Filezilla org.freedownloadmanager.Manager org.gnome.frogr org.gnome.pan
    org.kde.kget org.kde.ktorrent org.nicotine_plus.Nicotine org.onionshare.OnionShare
    org.openscopeproject.TrguiNG org.qbittorrent.qBittorrent org.sabnzbd.sabnzbd
    org.tractor.carburetor persepolis qweborf sabnzbdplus sachesi selektor torbrowser transgui
    transmission-gtk transmission-qt uget-gtk youtubedl-gui
    )"},
    // File managers: they copy and move in the background.
    {IdleBehavior::neverQuit, R"(
    4Pane GWorkspace caja caja-browser caja-home dev.tchx84.Portfolio doublecmd far2l nemo
    org.gnome.Nautilus org.gnome.gnome-commander org.kde.dolphin org.kde.krusader pcmanfm pcmanfm-qt
    peony rox-filer spacefm thunar tuxcmd worker xfe
    )"},
    // Aids for seeing, hearing, typing and pointing; helpers that work unseen.
    {IdleBehavior::neverQuit, R"(
    actiona autokey-gtk autokey-qt caffeine clipit com.github.hluk.copyq
    com.github.spheras.desktopfolder com.github.wwmm.easyeffects com.github.wwmm.pulseeffects
    com.ulduzsoft.Birdtray dasher diodon eviacam gnome-pie gnubiff gprompter gxneur input-pad
    input-remapper-gtk io.github.antimicrox.antimicrox io.github.slgobinath.SafeEyes kdocker kupfer
    mailnag nwg-clipman onboard org.holylobster.nuntius org.kde.klipper org.kde.kmag
    org.kde.kmousetool org.kde.kmouth org.kde.rsibreak org.kde.xwaylandvideobridge
    org.rncbc.qjackctl org.rncbc.qpwgraph parcellite pasystray plover pnmixer qlipper raysession
    safeeyes screenkey spotlighter synapse variety workrave wstroke-config xfce4-clipman xzoom
    )"},
    // Recordings and broadcasts.
    {IdleBehavior::neverQuit, R"(
    be.maartenbaert.simplescreenrecorder butt com.uploadedlobster.peek deepin-screen-recorder
    gmerlin-recorder gnome-dvb-control guvcview idjc io.github.seadve.Kooha kazam kluppe
    mkchromecast net.flyingpimonster.Camera nl.brixit.Switcher openlp org.entangle_photo.Manager
    org.gnome.Cheese org.gnome.Snapshot org.gnome.SoundRecorder org.kde.kamoso org.kde.krecorder
    org.mixxx.Mixxx qjackrcd qlcplus simplescreenrecorder timemachine traverso vimix voctogui
    vokoscreenNG webcamoid
    )"},
    // Copying a disc takes longer than it takes to forget it.
    {IdleBehavior::neverQuit, R"(
    asunder org.gnome.SoundJuicer org.gnome.gitlab.grimripper ripperx
    )"},
    // Calls: nobody looks at the window of one.
    {IdleBehavior::neverQuit, R"(
    info.mumble.Mumble io.github.qtox.qTox jami jamulus linphone mangler mumble net.jami.Jami
    org.gnome.Calls org.jacktrip.JackTrip org.kde.phone.dialer org.kde.plasma.dialer qtel twinkle
    )"},
    // Alarms, timers and calendars, which remind.
    {IdleBehavior::neverQuit, R"(
    SimpleAgenda alarm-clock-applet charmtimetracker etm gtimer lomiri-clock-app org.gnome.Calendar
    org.gnome.Pomodoro org.gnome.clocks org.kde.calindori org.kde.kalendar org.kde.kclock
    org.kde.korganizer org.kde.kronometer org.kde.kteatime org.kde.ktimer org.kde.ktimetracker
    org.kde.merkuro.calendar org.xfce.orage osmo stopwatch tkremind
    )"},
    // Machines, radios, telescopes and prints that are under way.
    {IdleBehavior::neverQuit, R"(
    IMSProg altusmetrum-altosui altusmetrum-telegps bCNC chirp com.chirpmyradio.chirp direwolf flrig
    foxtrotgps galvani gpredict io.github.betaflight.BetaflightConfigurator navit opencpn
    org.kde.kstars ponyprog pronterface qFlipper qdmr repetier-host repsnapper stlink-gui ucrpf1host
    wfview xastir
    )"},
    // Presentations: they stay in front for as long as somebody talks.
    {IdleBehavior::neverQuit, R"(
    io.github.pympress pympress
    )"},
    // Mail.
    {IdleBehavior::cautious, R"(
    GNUMail astroid claws-mail com.getmailspring.Mailspring com.github.vladimiry.ElectronMail
    com.tutanota.Tutanota eu.betterbird.Betterbird me.proton.Mail org.claws_mail.Claws-Mail
    org.desktop.Balsa org.gnome.Evolution org.gnome.Geary org.kde.kmail2 org.kde.kontact
    org.kde.ktnef org.kde.merkuro.contact org.kde.merkuro.mail org.mozilla.Thunderbird sylpheed
    thunderbird viagee
    )"},
    // Chat.
    {IdleBehavior::cautious, R"(
    TalkSoup chat.delta.desktop com.chatterino.chatterino com.discordapp.DiscordCanary
    com.github.quaternion com.github.xeco23.WasIstLos com.icanblink.blink com.qq.QQ
    com.wire.WireDesktop de.schmidhuberj.Flare dev.geopjr.Tuba dev.vencord.Vesktop im.dino.Dino
    im.kaidan.kaidan im.riot.Riot im.srain.Srain io.github.Hexchat io.github.iptux_src.iptux
    io.github.spacingbat3.webcord jdim kildclient kvirc loqui mikutter net.kvirc.KVIrc5 nheko
    org.gajim.Gajim org.gnome.Fractal org.gnome.Polari org.kde.choqok org.kde.kdeconnect.sms
    org.kde.konversation org.kde.ktpcontactlist org.kde.neochat org.kde.spacebar org.kde.tokodon
    org.kop316.meshtastic org.laptop.Chat.activity org.nanuc.Axolotl org.nongnu.dianara
    org.perezdecastro.Revolt org.quassel_irc.QuasselClient org.signal.Signal org.squidowl.halloy
    pcmanx pidgin psi psi-plus psi-plus-webkit pumpa quassel quasselclient signal-desktop
    sm.puri.Chatty tkabber toxic utox
    )"},
    // Text editors.
    {IdleBehavior::cautious, R"(
    Ink SciTE TextEdit bless bluefish com.github.marktext.marktext com.helix_editor.Helix
    dev.lapce.lapce dev.zed.Zed efte emacs emacsclient far2ledit feathernotes featherpad formiko
    geany gobby-0.5 gvim io.neovim.nvim jedit jeex juffed l3afpad lxvile me.mitya57.ReText
    mu.codewith.editor nedit notepadqq nvim-qt org.geany.Geany org.gnome.GHex org.gnome.TextEditor
    org.gnome.gedit org.gnome.gitlab.somas.Apostrophe org.gnu.emacs org.kde.ghostwriter org.kde.kate
    org.kde.kwrite org.kde.okteta org.vim.Vim org.xfce.mousepad pluma tea uxvile wxHexEditor xfw
    xjed xmlcopyeditor xvile yudit
    )"},
    // Notes and diaries.
    {IdleBehavior::cautious, R"(
    Affiche almanah basket cherrytree com.adilhanney.saber com.github.phase1geo.minder
    com.github.ransome1.sleek com.github.xournalpp.xournalpp com.logseq.Logseq gtimelog
    io.github.mrvladus.List mnemosyne net.cozic.joplin_desktop net.sourceforge.Lifeograph nixnote2
    noblenote org.gnome.Almanah org.gnome.Gnote org.gnome.Hamster.GUI org.gnome.Notes org.gnome.Todo
    org.gnome.World.Iotas org.kde.kjots org.kde.klevernotes org.kde.knotes org.kde.marknote
    org.kde.zanshin org.qownnotes.QOwnNotes org.standardnotes.standardnotes org.zim_wiki.Zim
    rednotebook rhinote tomboy-ng treeline treesheets xournal xpad zim
    )"},
    // Development.
    {IdleBehavior::cautious, R"(
    GammaRay Gorm ProjectCenter Projucer SuperColliderIDE anjuta ar.xjuan.Cambalache arduino
    basexgui bf-animation-editor bf-level-editor bf-model-editor cc.arduino.IDE2 clips cmake-gui
    codeblocks codium com.axosoft.GitKraken com.github.Murmele.Gittyup com.github.alecaddd.sequeler
    com.syntevo.SmartGit com.unity.UnityHub com.visualstudio.code.oss com.vscodium.codium
    cppcheck-gui crystal-facet-uml ddd edb eric7_ide flamerobin fluid gambas3 giggle git-cola
    git-dag glogg gnuradio-grc godot3 graide groovyConsole hotspot idle-python3.11
    io.beekeeperstudio.Studio io.dbeaver.DBeaverCommunity io.gdevelop.ide
    io.github.mightycreak.Diffuse jmeter jupyter-qtconsole lazarus-2.2.6 lazarus-4.0 mcu8051ide
    net.poedit.Poedit omegat org.codeblocks.codeblocks org.freedesktop.Bustle org.ghidra_sre.Ghidra
    org.gnome.Builder org.gnome.Glade org.gnome.Gtranslator org.gnome.Meld org.gnome.Sysprof
    org.gnome.dfeet org.gnome.dspy org.gnome.gitg org.godotengine.Godot3 org.kde.cervisia
    org.kde.heaptrack org.kde.kcachegrind org.kde.kdesvn org.kde.kdevelop org.kde.kdiff3
    org.kde.kompare org.kde.kturtle org.kde.lokalize org.kde.massif-visualizer org.kde.umbrello
    org.laptop.Pippy.activity org.omegat.OmegaT org.pgadmin.pgadmin4 org.qt-project.qtcreator
    org.racket_lang.Racket org.radare.iaito org.soapui.SoapUI org.spyder_ide.spyder
    org.storm_lang.progvis org.thonny.Thonny org.wxformbuilder.wxFormBuilder pyzo qgit renderdoc
    sasm scratch sonic-pi spyder sqlitebrowser squeak thg tkcon-console tkcvs umlet visualvm wxGlade
    )"},
    // Office.
    {IdleBehavior::cautious, R"(
    AddressManager YAGF abiword app.drey.Planner calibre-ebook-edit calibre-gui cb2bib
    com.calibre_ebook.calibre com.github.jeromerobert.pdfarranger com.sigil_ebook.Sigil
    com.wps.Office de.bschu.cashbox diffpdf focuswriter freeplane glabels-3.0 glom gnucash
    gnumed_client gnumeric gramps grisbi gummi homebank io.frappe.books
    io.github.GourmandRecipeManager.Gourmand io.gitlab.pyspread.pyspread jabref jameica jverein
    ktikz libreoffice-base libreoffice-calc libreoffice-draw libreoffice-impress libreoffice-math
    libreoffice-startcenter libreoffice-writer lyx manuskript net.ankiweb.Anki
    net.auto_multiple_choice.amc net.xmind.XMind8 net.xmind.ZEN org.cvfosammmm.Setzer
    org.gnome.Contacts org.gnome.GTG org.gnome.Recipes org.gnome.enter_tex org.gnome.latexila
    org.gnumeric.gnumeric org.gramps_project.Gramps org.grisbi.Grisbi org.kde.calligra
    org.kde.calligra.sheets org.kde.calligra.stage org.kde.calligra.words org.kde.calligragemini
    org.kde.calligraplan org.kde.calligrasheets org.kde.calligrastage org.kde.calligrawords
    org.kde.kaddressbook org.kde.kbibtex org.kde.kexi-3.2 org.kde.kile org.kde.kmymoney
    org.kde.parley org.kde.skrooge org.kde.tellico org.laptop.AbiWordActivity.activity
    org.libreoffice.LibreOffice org.lyx.LyX org.onlyoffice.desktopeditors
    org.pdfstitcher.pdfstitcher org.texmacs.TeXmacs org.texstudio.TeXstudio org.tug.texworks
    pageedit pampi pdfchain pdfsam plume-creator ptask pytrainer qbrew qtikz scribus sigil texmacs
    texmaker texstudio texworks tryton-client vprerex vym webissues work.openpaper.Paperwork
    )"},
    // Pictures, scans, drawings and models.
    {IdleBehavior::cautious, R"(
    PrusaSlicer ch.openboard.OpenBoard cloudcompare com.belmoussaoui.Obfuscate
    com.prusa3d.PrusaSlicer com.sweethome3d.Sweethome3d de.bforartists.Bforartists meshlab
    net.epson.epsonscan2 net.sourceforge.qtpfsgui.LuminanceHDR openboard org.gimp.GIMP
    org.kde.perusecreator org.kde.spectacle org.ksnip.ksnip org.openscad.OpenSCAD
    org.tuxpaint.Tuxpaint shutter slic3r wings3d
    )"},
    // Video.
    {IdleBehavior::cautious, R"(
    aegisub arv-viewer-0.8 com.github.rafostar.Clapper deepin-movie devede_ng.py dvbcut freetuxtv
    gmerlin-player gmerlin-transcoder imagination io.github.celluloid_player.Celluloid
    io.github.jliljebl.Flowblade io.mpv.Mpv io.otsaloma.gaupol kodi minitube mplayer mpv mystiq
    org.bino3d.bino org.bunkus.mkvtoolnix-gui org.gnome.GnomeSubtitles org.gnome.Showtime
    org.gnome.Totem org.gnome.gitlab.YaLTeR.VideoTrimmer org.kde.dragonplayer org.kde.haruna
    org.kde.kaffeine org.kde.kdenlive org.kde.kmplayer org.kde.subtitlecomposer
    org.kitone.subtitleeditor org.olivevideoeditor.Olive org.openshot.OpenShot org.pitivi.Pitivi
    org.shotcut.Shotcut org.sigxcpu.Livi org.xfce.Parole photofilmstrip qstopmotion qwinff smplayer
    smtube stopmotion subdownloader syncplay tv.kodi.Kodi tvtime vdr-fbfe vdr-sxfe vdr-wlfe winff
    xawtv xjadeo
    )"},
    // Sound: players, editors and instruments.
    {IdleBehavior::cautious, R"(
    MPDCon app.moosync.moosync ardour betaradio com.doycho.euterpe.gtk com.github.Flacon
    com.github.louis77.tuner com.github.neithern.g4music com.github.taiko2k.tauonmb
    dev.alextren.Spot goattracker lomiri-music-app mhwaveedit mp3diags org.atheme.audacious
    org.audacityteam.Audacity org.fooyin.fooyin org.gmusicbrowser.gmusicbrowser org.kde.kasts
    org.kde.kwave org.musescore.MuseScore org.strawberrymusicplayer.strawberry sooperlooper vagalume
    xcfa
    )"},
    // Science, engineering and computation.
    {IdleBehavior::cautious, R"(
    carmetal electric geogebra gnome-genius gtkwave invesalius kst2 org.gaphor.Gaphor org.kde.kig
    org.kde.kmplot org.kde.step org.kicad.eeschema org.kicad.gerbview org.kicad.kicad
    org.kicad.pcbnew org.openchemistry.Avogadro2 org.openstreetmap.josm org.scilab.Scilab pcb-rnd
    praat-file topcat visidata weka xcas
    )"},
    // Archives and disk usage: what they do they do with the CPU.
    {IdleBehavior::cautious, R"(
    Zipper arqiver com.github.qarmin.czkawka dupeguru engrampa gdmap gfm gprename k4dirstat
    lxqt-archiver mate-disk-usage-analyzer org.gnome.FileRoller org.gnome.baobab org.kde.ark
    org.kde.filelight org.kde.kdf qdirstat tilp xarchiver xfa
    )"},
    // File managers that are browsers first.
    {IdleBehavior::cautious, R"(
    konqbrowser org.kde.konqueror
    )"},
    // Games and their launchers.
    {IdleBehavior::cautious, R"(
    com.heroicgameslauncher.hgl io.itch.itch net.lutris.Lutris org.prismlauncher.PrismLauncher
    )"},
    // Stricter by their Categories than what is lost with them.
    {IdleBehavior::safeToQuit, R"(
    AClock app.drey.Dialect com.github.hugolabe.Wike dclock gelemental gperiodic meteo-qt
    nl.hjdskes.gcolor3 org.gnome.Adwaita1.Demo org.gnome.ColorProfileViewer org.gnome.Devhelp
    org.gnome.FontManager org.gnome.FontViewer org.gtk.Demo4 org.gtk.IconBrowser4
    org.gtk.WidgetFactory4 org.kde.arianna org.kde.itinerary org.kde.kalzium org.kde.kcolorchooser
    org.kde.kruler org.xfce.orage.globaltime org.zealdocs.zeal recoll-searchgui sunclock xdaliclock
    )"},
};

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

std::span<const AnnexSubject> annexSubjects() {
    return subjects;
}

std::optional<IdleBehavior> annexBehavior(std::string_view identifier) {
    for (const AnnexSubject& subject : subjects) {
        if (hasWord(subject.identifiers, identifier)) {
            return subject.behavior;
        }
    }
    return std::nullopt;
}

IdleBehavior behaviorOfCategories(std::span<const std::string> categories) {
    if (hasAny(categories, neverQuitCategories)) {
        return IdleBehavior::neverQuit;
    }
    const bool isWork = hasAny(categories, cautiousCategories);
    const bool mayBeWork =
        hasAny(categories, mainCategories) && !hasAny(categories, showingCategories);
    return isWork || mayBeWork ? IdleBehavior::cautious : IdleBehavior::safeToQuit;
}

bool isTerminal(std::span<const std::string> categories) {
    return hasAny(categories, "TerminalEmulator");
}

bool isMusicPlayer(std::string_view identifier) {
    return KnownApps::musicAppBundleIDs().contains(identifier) || hasWord(linuxPlayers, identifier);
}

} // namespace calmora
