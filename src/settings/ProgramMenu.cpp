// SPDX-License-Identifier: MIT
#include "settings/ProgramMenu.h"

#include "platform/LocalizedStrings.h"

namespace calmora {
namespace {

/// An item whose letter works with Command and with Control.
MainMenuItem item(const LocalizedStrings& strings, const char* title, const char* key) {
    return {strings.text(title),
            {{key, {ModifierFlags::command}}, {key, {ModifierFlags::control}}},
            {}};
}

} // namespace

MainMenu programMenu(const LocalizedStrings& strings) {
    return {
        {"Calmora", {}, {item(strings, "Quit Calmora", "q")}},
        {strings.text("File"), {}, {item(strings, "Close", "w")}},
        {strings.text("Edit"),
         {},
         {item(strings, "Undo", "z"), item(strings, "Redo", "Z"), item(strings, "Cut", "x"),
          item(strings, "Copy", "c"), item(strings, "Paste", "v"),
          item(strings, "Select All", "a")}},
        {strings.text("Window"), {}, {item(strings, "Minimize", "m")}},
    };
}

} // namespace calmora
