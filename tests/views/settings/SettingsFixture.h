// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeLoginItem.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUpdater.h"
#include "settings/AppSettings.h"
#include "settings/GeneralSettingsView.h"
#include "widgets/Theme.h"

#include <QtWidgets>

namespace calmora {

/// A General pane on fake services, in a window of the size of the settings window.
struct SettingsFixture {
    SettingsFixture() { window.resize(Points{450}, Points{560}); }

    /// Creates the pane. Prepare the login item and the settings before.
    void open() {
        view = new GeneralSettingsView(settings, updater, loginItem, machine.platform(), &window);
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(view);
        window.show();
    }

    FakePlatform machine;
    FakeUpdater updater;
    FakeLoginItem loginItem;
    AppSettings settings{machine.defaults};
    QWidget window;
    GeneralSettingsView* view = nullptr;
};

} // namespace calmora
