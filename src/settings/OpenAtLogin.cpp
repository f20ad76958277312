#include "settings/OpenAtLogin.h"

#include "platform/LoginItem.h"
#include "settings/AppSettings.h"

namespace calmora {

OpenAtLogin::OpenAtLogin(AppSettings& settings, LoginItem& loginItem)
    : settings_(settings), loginItem_(loginItem) {
    settings_.setOpenAtLogin(loginItem_.isEnabled());
    change_ = settings_.observe(AppSettings::Property::openAtLogin, [this] { carryOver(); });
}

void OpenAtLogin::carryOver() {
    const bool wanted = settings_.openAtLogin();
    if (isPuttingBack_ || loginItem_.setEnabled(wanted)) {
        return;
    }
    isPuttingBack_ = true;
    settings_.setOpenAtLogin(!wanted);
    isPuttingBack_ = false;
}

} // namespace calmora
