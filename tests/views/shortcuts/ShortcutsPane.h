#pragma once

#include "KeyboardShortcuts/Recorder.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeText.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/NotificationCenter.h"
#include "platform/qt/QtLocalizedStrings.h"
#include "settings/ProgramMenu.h"
#include "settings/ShortcutsSettingsView.h"

#include <QtWidgets>

#include <optional>
#include <string>
#include <utility>

namespace calmora {

/// The Shortcuts pane over a machine in memory, in a window.
struct ShortcutsPane {
    /// `unavailable` is why no key can be taken; `limitation` is where shortcuts do not work.
    explicit ShortcutsPane(std::optional<std::string> unavailable = {},
                           const std::string& limitation = {}, const QLocale& locale = QLocale::c())
        : strings(locale) {
        hotKeys.reason = std::move(unavailable);
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
    FakeText text;
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
