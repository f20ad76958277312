// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/views/AutoQuitSheet.h"
#include "fakes/FakeAutoQuit.h"
#include "fakes/FakeDesktopExtension.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeUpdater.h"
#include "settings/GeneralSettingsView.h"
#include "widgets/Theme.h"

#include <QtWidgets>

namespace calmora {

/// A General pane on fake services, in a window of the size of the settings window.
struct SettingsFixture : FakeAutoQuit {
    SettingsFixture() { window.resize(Points{450}, Points{560}); }

    /// Creates the pane. Prepare the login item and the settings before.
    void open() {
        view = new GeneralSettingsView(settings, updater, loginItem, machine.platform(),
                                       limitations, autoQuit, &extension, &window);
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(view);
        window.show();
    }

    DesktopLimitations limitations{
        "This desktop does not tell which applications run, so only X11 ones are listed.",
        "This desktop ends Wayland applications that take longer than 2 seconds to answer, so only "
        "X11 applications are quit automatically."};
    FakeDesktopExtension extension;
    FakeUpdater updater;
    FakeLoginItem loginItem;
    AutoQuitOptions autoQuit{
        extras, [this](QWidget& over) {
            AutoQuitSheet::openOver(
                over, settings, extras, machine.platform(),
                std::make_unique<Forecast>(settings, machine.platform(), manager.sparing(), uses));
        }};
    QWidget window;
    GeneralSettingsView* view = nullptr;
};

} // namespace calmora
