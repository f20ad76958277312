#pragma once

#include <array>
#include <string_view>

namespace calmora {

/// What may be quit whenever it is idle, though its Categories would spare it: nothing is lost.
inline constexpr auto annexSafeToQuit = std::to_array<std::string_view>({
    // clang-format off
    // Stricter by their Categories than what is lost with them.
    "AClock", "app.drey.Dialect", "com.github.hugolabe.Wike", "dclock", "gelemental", "gperiodic",
    "meteo-qt", "nl.hjdskes.gcolor3", "org.gnome.Adwaita1.Demo", "org.gnome.ColorProfileViewer",
    "org.gnome.Devhelp", "org.gnome.FontManager", "org.gnome.FontViewer", "org.gtk.Demo4",
    "org.gtk.IconBrowser4", "org.gtk.WidgetFactory4", "org.kde.arianna", "org.kde.itinerary",
    "org.kde.kalzium", "org.kde.kcolorchooser", "org.kde.kruler", "org.xfce.orage.globaltime",
    "org.zealdocs.zeal", "recoll-searchgui", "sunclock", "xdaliclock",
    // clang-format on
});

} // namespace calmora
