// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Recorder.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/IcuText.h"
#include "platform/qt/QtLocalizedStrings.h"
#include "settings/ProgramMenu.h"
#include "settings/ShortcutsSettingsView.h"

#include <QtWidgets>

namespace calmora {

/// The Shortcuts pane over a machine in memory, in a window.
struct ShortcutsPane {
    explicit ShortcutsPane(const QLocale& locale = QLocale::c(), const std::string& limitation = {})
        : strings(locale) {
        hotKeys.limit = limitation;
        window.resize(450, 300);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(new ShortcutsSettingsView(environment, &window));
    }

    [[nodiscard]] RecorderCocoa& recorder(const char* name) {
        return static_cast<RecorderCocoa&>(
            *window.findChild<QWidget*>(name)->findChild<QLineEdit*>());
    }

    FakeUserDefaults defaults;
    NotificationCenter notifications;
    FakeHotKeys hotKeys;
    FakeKeyboardLayout layout;
    IcuText text{"C"};
    FakeLocalizedStrings programStrings;
    QtLocalizedStrings strings;
    FakeSystemShortcuts desktop;
    KeyboardShortcuts shortcuts{{defaults, notifications, hotKeys, layout, strings, text}};
    RecorderEnvironment environment{shortcuts, notifications, desktop,
                                    layout,    strings,       programMenu(programStrings),
                                    {},        hotKeys};
    QWidget window;
};

} // namespace calmora
