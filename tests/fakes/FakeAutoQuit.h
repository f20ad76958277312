// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/AutoQuitManager.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUse.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"

namespace calmora {

/// Auto-quit on a fake machine.
struct FakeAutoQuit {
    FakePlatform machine;
    AppSettings settings{machine.defaults};
    ExtraSettings extras{machine.defaults};
    FakeUserNotifications notifications;
    FakeInputGate input;
    FakeUseSources uses;
    FakeAwayTime away;
    AutoQuitSurroundings surroundings{settings, extras, machine.platform(), notifications, input,
                                      uses,     away};
    AutoQuitManager manager{surroundings};
};

} // namespace calmora
