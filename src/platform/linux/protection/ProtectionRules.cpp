#include "platform/linux/protection/ProtectionRules.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

using namespace std::string_view_literals;

/// Length of the kernel's process names (TASK_COMM_LEN without the final zero).
constexpr std::size_t kernelNameLength = 15;

/// Sorted for binary search.
constexpr std::array sessionPrograms = {
    "(sd-pam)"sv,
    "Hyprland"sv,
    "X"sv,
    "Xephyr"sv,
    "Xnest"sv,
    "Xorg"sv,
    "Xorg.bin"sv,
    "Xorg.wrap"sv,
    "Xtigervnc"sv,
    "Xvfb"sv,
    "Xvnc"sv,
    "Xwayland"sv,
    "agetty"sv,
    // The icon of the print queue, started by a script in its autostart entry.
    "applet.py"sv,
    "at-spi-bus-launcher"sv,
    "at-spi2-registryd"sv,
    "awesome"sv,
    "blueman-tray"sv,
    "bspwm"sv,
    "budgie-daemon"sv,
    "budgie-panel"sv,
    "budgie-wm"sv,
    "bwrap"sv,
    "cage"sv,
    "caja-desktop"sv,
    "cinnamon"sv,
    "cinnamon-launcher"sv,
    "cinnamon-screensaver"sv,
    "cinnamon-session"sv,
    "cinnamon-session-binary"sv,
    "compiz"sv,
    "compton"sv,
    "csd-keyboard"sv,
    "csd-power"sv,
    "csd-printer"sv,
    "csd-xsettings"sv,
    "dbus-broker"sv,
    "dbus-broker-launch"sv,
    "dbus-daemon"sv,
    "dbus-launch"sv,
    "dbus-run-session"sv,
    "dconf-service"sv,
    "dunst"sv,
    "dwm"sv,
    "elogind"sv,
    "enlightenment"sv,
    "fcitx"sv,
    "fcitx5"sv,
    "fluxbox"sv,
    "fvwm"sv,
    "fvwm3"sv,
    "gammastep"sv,
    "gcr-prompter"sv,
    "gdm-session-worker"sv,
    "gdm-wayland-session"sv,
    "gdm-x-session"sv,
    "gdm3"sv,
    "gnome-flashback"sv,
    "gnome-keyring-daemon"sv,
    "gnome-panel"sv,
    "gnome-screensaver"sv,
    "gnome-session"sv,
    "gnome-session-binary"sv,
    "gnome-session-ctl"sv,
    "gnome-shell"sv,
    "gnome-shell-calendar-server"sv,
    "goa-daemon"sv,
    "goa-identity-service"sv,
    "gpg-agent"sv,
    "greetd"sv,
    "gsd-keyboard"sv,
    "gsd-media-keys"sv,
    "gsd-power"sv,
    "gsd-printer"sv,
    "gsd-xsettings"sv,
    "gvfs-afc-volume-monitor"sv,
    "gvfs-goa-volume-monitor"sv,
    "gvfs-gphoto2-volume-monitor"sv,
    "gvfs-mtp-volume-monitor"sv,
    "gvfs-udisks2-volume-monitor"sv,
    "gvfsd"sv,
    "gvfsd-fuse"sv,
    "gvfsd-metadata"sv,
    "gvfsd-trash"sv,
    "herbstluftwm"sv,
    "i3"sv,
    "i3lock"sv,
    "ibus-daemon"sv,
    "ibus-dconf"sv,
    "ibus-engine-simple"sv,
    "ibus-extension-gtk3"sv,
    "ibus-portal"sv,
    "ibus-ui-gtk3"sv,
    "ibus-x11"sv,
    "icewm"sv,
    "icewm-session"sv,
    "init"sv,
    "jackd"sv,
    "jackdbus"sv,
    "jwm"sv,
    "kactivitymanagerd"sv,
    "kanshi"sv,
    "kcminit"sv,
    "kded5"sv,
    "kded6"sv,
    "kdeinit5"sv,
    "kglobalaccel5"sv,
    "kglobalacceld"sv,
    "krunner"sv,
    "kscreenlocker_greet"sv,
    "ksmserver"sv,
    "ksplashqml"sv,
    "kwalletd5"sv,
    "kwalletd6"sv,
    "kwin_wayland"sv,
    "kwin_wayland_wrapper"sv,
    "kwin_x11"sv,
    "labwc"sv,
    "light-locker"sv,
    "lightdm"sv,
    "login"sv,
    "lxdm"sv,
    "lxpanel"sv,
    "lxpolkit"sv,
    "lxqt-globalkeysd"sv,
    "lxqt-notificationd"sv,
    "lxqt-panel"sv,
    "lxqt-policykit-agent"sv,
    "lxqt-powermanagement"sv,
    "lxqt-session"sv,
    "lxsession"sv,
    "mako"sv,
    "marco"sv,
    "matchbox-window-manager"sv,
    "mate-notification-daemon"sv,
    "mate-panel"sv,
    "mate-screensaver"sv,
    "mate-session"sv,
    "mate-settings-daemon"sv,
    "metacity"sv,
    "muffin"sv,
    "mutter"sv,
    "mutter-x11-frames"sv,
    "niri"sv,
    "notify-osd"sv,
    "openbox"sv,
    "openbox-session"sv,
    "picom"sv,
    "pipewire"sv,
    "pipewire-media-session"sv,
    "pipewire-pulse"sv,
    "plasma_session"sv,
    "plasmashell"sv,
    "polkit-gnome-authentication-agent-1"sv,
    "polkit-kde-authentication-agent-1"sv,
    "polkit-mate-authentication-agent-1"sv,
    "polybar"sv,
    "pulseaudio"sv,
    "river"sv,
    "runit"sv,
    "sawfish"sv,
    "scim"sv,
    "sddm"sv,
    "sddm-helper"sv,
    "sfwbar"sv,
    "slim"sv,
    "spectrwm"sv,
    "ssh-agent"sv,
    "sshd"sv,
    "stalonetray"sv,
    "startplasma-wayland"sv,
    "startplasma-x11"sv,
    "startx"sv,
    "sway"sv,
    "swaybar"sv,
    "swaybg"sv,
    "swayidle"sv,
    "swaylock"sv,
    "swaync"sv,
    "systemd"sv,
    "tint2"sv,
    "trayer"sv,
    "waybar"sv,
    "wayfire"sv,
    "weston"sv,
    "wf-background"sv,
    "wf-panel"sv,
    "wireplumber"sv,
    "x-session-manager"sv,
    "x-window-manager"sv,
    "xdg-dbus-proxy"sv,
    "xdg-desktop-portal"sv,
    "xdg-desktop-portal-gnome"sv,
    "xdg-desktop-portal-gtk"sv,
    "xdg-desktop-portal-hyprland"sv,
    "xdg-desktop-portal-kde"sv,
    "xdg-desktop-portal-lxqt"sv,
    "xdg-desktop-portal-wlr"sv,
    "xdg-desktop-portal-xapp"sv,
    "xdg-document-portal"sv,
    "xdg-permission-store"sv,
    "xdm"sv,
    "xembedsniproxy"sv,
    "xfce4-notifyd"sv,
    "xfce4-panel"sv,
    "xfce4-power-manager"sv,
    "xfce4-screensaver"sv,
    "xfce4-session"sv,
    "xfconfd"sv,
    "xfdesktop"sv,
    "xfsettingsd"sv,
    "xfwm4"sv,
    "xinit"sv,
    "xmonad"sv,
    "xrdp"sv,
    "xrdp-chansrv"sv,
    "xrdp-sesman"sv,
    "xscreensaver"sv,
    "xsecurelock"sv,
    "xsettingsd"sv,
    "xss-lock"sv,
};
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
