// SPDX-License-Identifier: MIT
#include "platform/linux/protection/ProtectionRules.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

/// Length of the kernel's process names (TASK_COMM_LEN without the final zero).
constexpr std::size_t kernelNameLength = 15;

/// Sorted for binary search. applet.py is the icon of the print queue, started by a script in its
/// autostart entry.
// clang-format off
constexpr auto sessionPrograms = std::to_array<std::string_view>({
    "(sd-pam)", "Hyprland", "X", "Xephyr", "Xnest", "Xorg", "Xorg.bin", "Xorg.wrap", "Xtigervnc",
    "Xvfb", "Xvnc", "Xwayland", "agetty", "applet.py", "at-spi-bus-launcher", "at-spi2-registryd",
    "awesome", "blueman-tray", "bspwm", "budgie-daemon", "budgie-panel", "budgie-wm", "bwrap",
    "cage", "caja-desktop", "cinnamon", "cinnamon-launcher", "cinnamon-screensaver",
    "cinnamon-session", "cinnamon-session-binary", "compiz", "compton", "csd-keyboard", "csd-power",
    "csd-printer", "csd-xsettings", "dbus-broker", "dbus-broker-launch", "dbus-daemon",
    "dbus-launch", "dbus-run-session", "dconf-service", "dunst", "dwm", "elogind", "enlightenment",
    "fcitx", "fcitx5", "fluxbox", "fvwm", "fvwm3", "gammastep", "gcr-prompter",
    "gdm-session-worker", "gdm-wayland-session", "gdm-x-session", "gdm3", "gnome-flashback",
    "gnome-keyring-daemon", "gnome-panel", "gnome-screensaver", "gnome-session",
    "gnome-session-binary", "gnome-session-ctl", "gnome-shell", "gnome-shell-calendar-server",
    "goa-daemon", "goa-identity-service", "gpg-agent", "greetd", "gsd-keyboard", "gsd-media-keys",
    "gsd-power", "gsd-printer", "gsd-xsettings", "gvfs-afc-volume-monitor",
    "gvfs-goa-volume-monitor", "gvfs-gphoto2-volume-monitor", "gvfs-mtp-volume-monitor",
    "gvfs-udisks2-volume-monitor", "gvfsd", "gvfsd-fuse", "gvfsd-metadata", "gvfsd-trash",
    "herbstluftwm", "i3", "i3lock", "ibus-daemon", "ibus-dconf", "ibus-engine-simple",
    "ibus-extension-gtk3", "ibus-portal", "ibus-ui-gtk3", "ibus-x11", "icewm", "icewm-session",
    "init", "jackd", "jackdbus", "jwm", "kactivitymanagerd", "kanshi", "kcminit", "kded5", "kded6",
    "kdeinit5", "kglobalaccel5", "kglobalacceld", "krunner", "kscreenlocker_greet", "ksmserver",
    "ksplashqml", "kwalletd5", "kwalletd6", "kwin_wayland", "kwin_wayland_wrapper", "kwin_x11",
    "labwc", "light-locker", "lightdm", "login", "lxdm", "lxpanel", "lxpolkit", "lxqt-globalkeysd",
    "lxqt-notificationd", "lxqt-panel", "lxqt-policykit-agent", "lxqt-powermanagement",
    "lxqt-session", "lxsession", "mako", "marco", "matchbox-window-manager",
    "mate-notification-daemon", "mate-panel", "mate-screensaver", "mate-session",
    "mate-settings-daemon", "metacity", "muffin", "mutter", "mutter-x11-frames", "niri",
    "notify-osd", "openbox", "openbox-session", "picom", "pipewire", "pipewire-media-session",
    "pipewire-pulse", "plasma_session", "plasmashell", "polkit-gnome-authentication-agent-1",
    "polkit-kde-authentication-agent-1", "polkit-mate-authentication-agent-1", "polybar",
    "pulseaudio", "river", "runit", "sawfish", "scim", "sddm", "sddm-helper", "sfwbar", "slim",
    "spectrwm", "ssh-agent", "sshd", "stalonetray", "startplasma-wayland", "startplasma-x11",
    "startx", "sway", "swaybar", "swaybg", "swayidle", "swaylock", "swaync", "systemd", "tint2",
    "trayer", "waybar", "wayfire", "weston", "wf-background", "wf-panel", "wireplumber",
    "x-session-manager", "x-window-manager", "xdg-dbus-proxy", "xdg-desktop-portal",
    "xdg-desktop-portal-gnome", "xdg-desktop-portal-gtk", "xdg-desktop-portal-hyprland",
    "xdg-desktop-portal-kde", "xdg-desktop-portal-lxqt", "xdg-desktop-portal-wlr",
    "xdg-desktop-portal-xapp", "xdg-document-portal", "xdg-permission-store", "xdm",
    "xembedsniproxy", "xfce4-notifyd", "xfce4-panel", "xfce4-power-manager", "xfce4-screensaver",
    "xfce4-session", "xfconfd", "xfdesktop", "xfsettingsd", "xfwm4", "xinit", "xmonad", "xrdp",
    "xrdp-chansrv", "xrdp-sesman", "xscreensaver", "xsecurelock", "xsettingsd", "xss-lock"});
// clang-format on
static_assert(std::ranges::is_sorted(sessionPrograms));

/// Whether `path` has `component` between slashes.
bool hasComponent(std::string_view path, std::string_view component) {
    for (std::size_t at = path.find(component); at != std::string_view::npos;
         at = path.find(component, at + 1)) {
        const std::size_t end = at + component.size();
        if (at > 0 && path[at - 1] == '/' && (end == path.size() || path[end] == '/')) {
            return true;
        }
    }
    return false;
}

bool isSessionGroup(std::string_view controlGroup) {
    if (hasComponent(controlGroup, "init.scope") || hasComponent(controlGroup, "system.slice")) {
        return true;
    }
    // Programs started by the bus on demand stay in its service, and most are applications. The bus
    // itself is known by its names.
    return hasComponent(controlGroup, "session.slice") &&
           !controlGroup.ends_with("/dbus.service") &&
           !controlGroup.ends_with("/dbus-broker.service");
}

} // namespace

std::optional<ProtectionReason> protectionById(ProcessId process, const SessionFacts& session) {
    if (process <= 2) {
        return ProtectionReason::firstProcesses;
    }
    if (process == session.self) {
        return ProtectionReason::ourselves;
    }
    if (session.ancestors.contains(process)) {
        return ProtectionReason::ourAncestor;
    }
    if (session.display.contains(process)) {
        return ProtectionReason::display;
    }
    if (session.session.contains(process)) {
        return ProtectionReason::session;
    }
    if (session.busOwners.contains(process)) {
        return ProtectionReason::busOwner;
    }
    if (session.audioServers.contains(process)) {
        return ProtectionReason::audioServer;
    }
    return std::nullopt;
}

std::optional<ProtectionReason> protection(const ProtectionCandidate& process,
                                           const SessionFacts& session) {
    if (const auto reason = protectionById(process.process, session)) {
        return reason;
    }
    if (!process.user) {
        return ProtectionReason::unreadable;
    }
    if (process.isKernelThread) {
        return ProtectionReason::kernelThread;
    }
    if (*process.user != session.user) {
        return ProtectionReason::anotherUser;
    }
    // If the whole desktop runs in one such group (a VNC service, a kiosk, a container), the group
    // says nothing about its members.
    if (process.controlGroup != session.controlGroup && isSessionGroup(process.controlGroup)) {
        return ProtectionReason::controlGroup;
    }
    if (isSessionProgram(process.name) || isSessionProgram(process.executable)) {
        return ProtectionReason::name;
    }
    if (process.isAutostarted && !process.hasRegularWindow) {
        return ProtectionReason::autostart;
    }
    return std::nullopt;
}

bool isSessionProgram(std::string_view name) {
    const auto found = std::ranges::lower_bound(sessionPrograms, name);
    if (found == sessionPrograms.end()) {
        return false;
    }
    // A cut name sorts right before the whole one.
    return *found == name || (name.size() == kernelNameLength && found->starts_with(name));
}

} // namespace calmora
