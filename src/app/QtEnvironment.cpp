// SPDX-License-Identifier: MIT
#include "app/QtEnvironment.h"

#include "platform/wayland/backend/QtPlatformChoice.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/XSettings.h"

#include <cstdlib>

namespace calmora {
namespace {

CompositorFacts readFacts() {
    CompositorFacts facts = readCompositorFacts([] { return X11Connection().isAlive(); });
    const bool hasUserScaled = std::getenv("QT_SCALE_FACTOR") != nullptr ||
                               std::getenv("QT_SCREEN_SCALE_FACTORS") != nullptr;
    if (facts.hasXServer && !facts.hasCompositor && !hasUserScaled) {
        facts.windowScale = readUnseenWindowScale();
    }
    return facts;
}

} // namespace

QtEnvironment::QtEnvironment() : set_(qtEnvironmentFor(readFacts())) {
    for (const auto& [name, value] : set_) {
        const char* before = std::getenv(name.c_str());
        before_[name] = before == nullptr ? std::nullopt : std::optional<std::string>(before);
        ::setenv(name.c_str(), value.c_str(), 1);
    }
}

void QtEnvironment::runWithoutIt(const std::function<void()>& action) const {
    for (const auto& [name, value] : before_) {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }
    action();
    for (const auto& [name, value] : set_) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
}

} // namespace calmora
