#pragma once

#include <array>
#include <span>
#include <string_view>

// What may be quit whenever it is idle, though its Categories would spare it.
// Desktop ids of Debian 12 and 13, of flatpaks and of vendors' packages. Each array is sorted.

namespace calmora {

// clang-format off

/// Stricter by their Categories than what is lost with them.
inline constexpr auto annexHarmless = std::to_array<std::string_view>({
    "AClock", "app.drey.Dialect", "com.github.hugolabe.Wike", "dclock", "gelemental", "gperiodic",
    "meteo-qt", "nl.hjdskes.gcolor3", "org.gnome.Adwaita1.Demo", "org.gnome.ColorProfileViewer",
    "org.gnome.Devhelp", "org.gnome.FontManager", "org.gnome.FontViewer", "org.gtk.Demo4",
    "org.gtk.IconBrowser4", "org.gtk.WidgetFactory4", "org.kde.arianna", "org.kde.itinerary",
    "org.kde.kalzium", "org.kde.kcolorchooser", "org.kde.kruler", "org.xfce.orage.globaltime",
    "org.zealdocs.zeal", "recoll-searchgui", "sunclock", "xdaliclock",
});

/// All of these, by subject.
inline constexpr std::array<std::span<const std::string_view>, 1> annexSafeToQuit{
    annexHarmless,
};

// clang-format on

} // namespace calmora
