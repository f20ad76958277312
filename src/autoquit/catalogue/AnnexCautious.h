#pragma once

#include <array>
#include <span>
#include <string_view>

// What is quit only while it does not use the CPU: documents, conversations, players, tools that
// compute.
// Desktop ids of Debian 12 and 13, of flatpaks and of vendors' packages. Each array is sorted.

namespace calmora {

// clang-format off

/// Mail.
inline constexpr auto annexMail = std::to_array<std::string_view>({
    "GNUMail", "astroid", "claws-mail", "com.getmailspring.Mailspring",
    "com.github.vladimiry.ElectronMail", "com.tutanota.Tutanota", "eu.betterbird.Betterbird",
    "me.proton.Mail", "org.claws_mail.Claws-Mail", "org.desktop.Balsa", "org.gnome.Evolution",
    "org.gnome.Geary", "org.kde.kmail2", "org.kde.kontact", "org.kde.ktnef",
    "org.kde.merkuro.contact", "org.kde.merkuro.mail", "org.mozilla.Thunderbird", "sylpheed",
    "thunderbird", "viagee",
});

/// Chat.
inline constexpr auto annexChat = std::to_array<std::string_view>({
    "TalkSoup", "chat.delta.desktop", "com.chatterino.chatterino", "com.discordapp.DiscordCanary",
    "com.github.quaternion", "com.github.xeco23.WasIstLos", "com.icanblink.blink", "com.qq.QQ",
    "com.wire.WireDesktop", "de.schmidhuberj.Flare", "dev.geopjr.Tuba", "dev.vencord.Vesktop",
    "im.dino.Dino", "im.kaidan.kaidan", "im.riot.Riot", "im.srain.Srain", "io.github.Hexchat",
    "io.github.iptux_src.iptux", "io.github.spacingbat3.webcord", "jdim", "kildclient", "kvirc",
    "loqui", "mikutter", "net.kvirc.KVIrc5", "nheko", "org.gajim.Gajim", "org.gnome.Fractal",
    "org.gnome.Polari", "org.kde.choqok", "org.kde.kdeconnect.sms", "org.kde.konversation",
    "org.kde.ktpcontactlist", "org.kde.neochat", "org.kde.spacebar", "org.kde.tokodon",
    "org.kop316.meshtastic", "org.laptop.Chat.activity", "org.nanuc.Axolotl", "org.nongnu.dianara",
    "org.perezdecastro.Revolt", "org.quassel_irc.QuasselClient", "org.signal.Signal",
    "org.squidowl.halloy", "pcmanx", "pidgin", "psi", "psi-plus", "psi-plus-webkit", "pumpa",
    "quassel", "quasselclient", "signal-desktop", "sm.puri.Chatty", "tkabber", "toxic", "utox",
});

/// Text editors.
inline constexpr auto annexEditors = std::to_array<std::string_view>({
    "Ink", "SciTE", "TextEdit", "bless", "bluefish", "com.github.marktext.marktext",
    "com.helix_editor.Helix", "dev.lapce.lapce", "dev.zed.Zed", "efte", "emacs", "emacsclient",
    "far2ledit", "feathernotes", "featherpad", "formiko", "geany", "gobby-0.5", "gvim",
    "io.neovim.nvim", "jedit", "jeex", "juffed", "l3afpad", "lxvile", "me.mitya57.ReText",
    "mu.codewith.editor", "nedit", "notepadqq", "nvim-qt", "org.geany.Geany", "org.gnome.GHex",
    "org.gnome.TextEditor", "org.gnome.gedit", "org.gnome.gitlab.somas.Apostrophe", "org.gnu.emacs",
    "org.kde.ghostwriter", "org.kde.kate", "org.kde.kwrite", "org.kde.okteta", "org.vim.Vim",
    "org.xfce.mousepad", "pluma", "tea", "uxvile", "wxHexEditor", "xfw", "xjed", "xmlcopyeditor",
    "xvile", "yudit",
});

/// Notes and diaries.
inline constexpr auto annexNotes = std::to_array<std::string_view>({
    "Affiche", "almanah", "basket", "cherrytree", "com.adilhanney.saber",
    "com.github.phase1geo.minder", "com.github.ransome1.sleek", "com.github.xournalpp.xournalpp",
    "com.logseq.Logseq", "gtimelog", "io.github.mrvladus.List", "mnemosyne",
    "net.cozic.joplin_desktop", "net.sourceforge.Lifeograph", "nixnote2", "noblenote",
    "org.gnome.Almanah", "org.gnome.Gnote", "org.gnome.Hamster.GUI", "org.gnome.Notes",
    "org.gnome.Todo", "org.gnome.World.Iotas", "org.kde.kjots", "org.kde.klevernotes",
    "org.kde.knotes", "org.kde.marknote", "org.kde.zanshin", "org.qownnotes.QOwnNotes",
    "org.standardnotes.standardnotes", "org.zim_wiki.Zim", "rednotebook", "rhinote", "tomboy-ng",
    "treeline", "treesheets", "xournal", "xpad", "zim",
});

/// Development.
inline constexpr auto annexDevelopment = std::to_array<std::string_view>({
    "GammaRay", "Gorm", "ProjectCenter", "Projucer", "SuperColliderIDE", "anjuta",
    "ar.xjuan.Cambalache", "arduino", "basexgui", "bf-animation-editor", "bf-level-editor",
    "bf-model-editor", "cc.arduino.IDE2", "clips", "cmake-gui", "codeblocks", "codium",
    "com.axosoft.GitKraken", "com.github.Murmele.Gittyup", "com.github.alecaddd.sequeler",
    "com.syntevo.SmartGit", "com.unity.UnityHub", "com.visualstudio.code.oss",
    "com.vscodium.codium", "cppcheck-gui", "crystal-facet-uml", "ddd", "edb", "eric7_ide",
    "flamerobin", "fluid", "gambas3", "giggle", "git-cola", "git-dag", "glogg", "gnuradio-grc",
    "godot3", "graide", "groovyConsole", "hotspot", "idle-python3.11", "io.beekeeperstudio.Studio",
    "io.dbeaver.DBeaverCommunity", "io.gdevelop.ide", "io.github.mightycreak.Diffuse", "jmeter",
    "jupyter-qtconsole", "lazarus-2.2.6", "lazarus-4.0", "mcu8051ide", "net.poedit.Poedit",
    "omegat", "org.codeblocks.codeblocks", "org.freedesktop.Bustle", "org.ghidra_sre.Ghidra",
    "org.gnome.Builder", "org.gnome.Glade", "org.gnome.Gtranslator", "org.gnome.Meld",
    "org.gnome.Sysprof", "org.gnome.dfeet", "org.gnome.dspy", "org.gnome.gitg",
    "org.godotengine.Godot3", "org.kde.cervisia", "org.kde.heaptrack", "org.kde.kcachegrind",
    "org.kde.kdesvn", "org.kde.kdevelop", "org.kde.kdiff3", "org.kde.kompare", "org.kde.kturtle",
    "org.kde.lokalize", "org.kde.massif-visualizer", "org.kde.umbrello",
    "org.laptop.Pippy.activity", "org.omegat.OmegaT", "org.pgadmin.pgadmin4",
    "org.qt-project.qtcreator", "org.racket_lang.Racket", "org.radare.iaito", "org.soapui.SoapUI",
    "org.spyder_ide.spyder", "org.storm_lang.progvis", "org.thonny.Thonny",
    "org.wxformbuilder.wxFormBuilder", "pyzo", "qgit", "renderdoc", "sasm", "scratch", "sonic-pi",
    "spyder", "sqlitebrowser", "squeak", "thg", "tkcon-console", "tkcvs", "umlet", "visualvm",
    "wxGlade",
});

/// Office.
inline constexpr auto annexOffice = std::to_array<std::string_view>({
    "AddressManager", "YAGF", "abiword", "app.drey.Planner", "calibre-ebook-edit", "calibre-gui",
    "cb2bib", "com.calibre_ebook.calibre", "com.github.jeromerobert.pdfarranger",
    "com.sigil_ebook.Sigil", "com.wps.Office", "de.bschu.cashbox", "diffpdf", "focuswriter",
    "freeplane", "glabels-3.0", "glom", "gnucash", "gnumed_client", "gnumeric", "gramps", "grisbi",
    "gummi", "homebank", "io.frappe.books", "io.github.GourmandRecipeManager.Gourmand",
    "io.gitlab.pyspread.pyspread", "jabref", "jameica", "jverein", "ktikz", "libreoffice-base",
    "libreoffice-calc", "libreoffice-draw", "libreoffice-impress", "libreoffice-math",
    "libreoffice-startcenter", "libreoffice-writer", "lyx", "manuskript", "net.ankiweb.Anki",
    "net.auto_multiple_choice.amc", "net.xmind.XMind8", "net.xmind.ZEN", "org.cvfosammmm.Setzer",
    "org.gnome.Contacts", "org.gnome.GTG", "org.gnome.Recipes", "org.gnome.enter_tex",
    "org.gnome.latexila", "org.gnumeric.gnumeric", "org.gramps_project.Gramps", "org.grisbi.Grisbi",
    "org.kde.calligra", "org.kde.calligra.sheets", "org.kde.calligra.stage",
    "org.kde.calligra.words", "org.kde.calligragemini", "org.kde.calligraplan",
    "org.kde.calligrasheets", "org.kde.calligrastage", "org.kde.calligrawords",
    "org.kde.kaddressbook", "org.kde.kbibtex", "org.kde.kexi-3.2", "org.kde.kile",
    "org.kde.kmymoney", "org.kde.parley", "org.kde.skrooge", "org.kde.tellico",
    "org.laptop.AbiWordActivity.activity", "org.libreoffice.LibreOffice", "org.lyx.LyX",
    "org.onlyoffice.desktopeditors", "org.pdfstitcher.pdfstitcher", "org.texmacs.TeXmacs",
    "org.texstudio.TeXstudio", "org.tug.texworks", "pageedit", "pampi", "pdfchain", "pdfsam",
    "plume-creator", "ptask", "pytrainer", "qbrew", "qtikz", "scribus", "sigil", "texmacs",
    "texmaker", "texstudio", "texworks", "tryton-client", "vprerex", "vym", "webissues",
    "work.openpaper.Paperwork",
});

/// Pictures, scans, drawings and models.
inline constexpr auto annexPictures = std::to_array<std::string_view>({
    "PrusaSlicer", "ch.openboard.OpenBoard", "cloudcompare", "com.belmoussaoui.Obfuscate",
    "com.prusa3d.PrusaSlicer", "com.sweethome3d.Sweethome3d", "de.bforartists.Bforartists",
    "meshlab", "net.epson.epsonscan2", "net.sourceforge.qtpfsgui.LuminanceHDR", "openboard",
    "org.gimp.GIMP", "org.kde.perusecreator", "org.kde.spectacle", "org.ksnip.ksnip",
    "org.openscad.OpenSCAD", "org.tuxpaint.Tuxpaint", "shutter", "slic3r", "wings3d",
});

/// Video.
inline constexpr auto annexVideo = std::to_array<std::string_view>({
    "aegisub", "arv-viewer-0.8", "com.github.rafostar.Clapper", "deepin-movie", "devede_ng.py",
    "dvbcut", "freetuxtv", "gmerlin-player", "gmerlin-transcoder", "imagination",
    "io.github.celluloid_player.Celluloid", "io.github.jliljebl.Flowblade", "io.mpv.Mpv",
    "io.otsaloma.gaupol", "kodi", "minitube", "mplayer", "mpv", "mystiq", "org.bino3d.bino",
    "org.bunkus.mkvtoolnix-gui", "org.gnome.GnomeSubtitles", "org.gnome.Showtime",
    "org.gnome.Totem", "org.gnome.gitlab.YaLTeR.VideoTrimmer", "org.kde.dragonplayer",
    "org.kde.haruna", "org.kde.kaffeine", "org.kde.kdenlive", "org.kde.kmplayer",
    "org.kde.subtitlecomposer", "org.kitone.subtitleeditor", "org.olivevideoeditor.Olive",
    "org.openshot.OpenShot", "org.pitivi.Pitivi", "org.shotcut.Shotcut", "org.sigxcpu.Livi",
    "org.xfce.Parole", "photofilmstrip", "qstopmotion", "qwinff", "smplayer", "smtube",
    "stopmotion", "subdownloader", "syncplay", "tv.kodi.Kodi", "tvtime", "vdr-fbfe", "vdr-sxfe",
    "vdr-wlfe", "winff", "xawtv", "xjadeo",
});

/// Sound: players, editors and instruments.
inline constexpr auto annexSound = std::to_array<std::string_view>({
    "MPDCon", "app.moosync.moosync", "ardour", "betaradio", "com.doycho.euterpe.gtk",
    "com.github.Flacon", "com.github.louis77.tuner", "com.github.neithern.g4music",
    "com.github.taiko2k.tauonmb", "dev.alextren.Spot", "goattracker", "lomiri-music-app",
    "mhwaveedit", "mp3diags", "org.atheme.audacious", "org.audacityteam.Audacity",
    "org.fooyin.fooyin", "org.gmusicbrowser.gmusicbrowser", "org.kde.kasts", "org.kde.kwave",
    "org.musescore.MuseScore", "org.strawberrymusicplayer.strawberry", "sooperlooper", "vagalume",
    "xcfa",
});

/// Science, engineering and computation.
inline constexpr auto annexScience = std::to_array<std::string_view>({
    "carmetal", "electric", "geogebra", "gnome-genius", "gtkwave", "invesalius", "kst2",
    "org.gaphor.Gaphor", "org.kde.kig", "org.kde.kmplot", "org.kde.step", "org.kicad.eeschema",
    "org.kicad.gerbview", "org.kicad.kicad", "org.kicad.pcbnew", "org.openchemistry.Avogadro2",
    "org.openstreetmap.josm", "org.scilab.Scilab", "pcb-rnd", "praat-file", "topcat", "visidata",
    "weka", "xcas",
});

/// Archives and disk usage: what they do they do with the CPU.
inline constexpr auto annexArchives = std::to_array<std::string_view>({
    "Zipper", "arqiver", "com.github.qarmin.czkawka", "dupeguru", "engrampa", "gdmap", "gfm",
    "gprename", "k4dirstat", "lxqt-archiver", "mate-disk-usage-analyzer", "org.gnome.FileRoller",
    "org.gnome.baobab", "org.kde.ark", "org.kde.filelight", "org.kde.kdf", "qdirstat", "tilp",
    "xarchiver", "xfa",
});

/// File managers that are browsers first.
inline constexpr auto annexFileBrowsers = std::to_array<std::string_view>({
    "konqbrowser", "org.kde.konqueror",
});

/// Games and their launchers.
inline constexpr auto annexGames = std::to_array<std::string_view>({
    "com.heroicgameslauncher.hgl", "io.itch.itch", "net.lutris.Lutris",
    "org.prismlauncher.PrismLauncher",
});

/// All of these, by subject.
inline constexpr std::array<std::span<const std::string_view>, 13> annexCautious{
    annexMail, annexChat, annexEditors, annexNotes, annexDevelopment, annexOffice, annexPictures,
    annexVideo, annexSound, annexScience, annexArchives, annexFileBrowsers, annexGames,
};

// clang-format on

} // namespace calmora
