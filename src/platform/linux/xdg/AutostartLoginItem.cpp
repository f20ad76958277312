// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/AutostartLoginItem.h"

#include "platform/linux/xdg/KeyFile.h"
#include "platform/linux/xdg/TextFile.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace calmora {
namespace {

/// Whether the session starts what this file describes.
bool isStarted(const std::string& text) {
    bool isHidden = false;
    bool isSwitchedOff = false;
    walkKeyFile(text, [&](const KeyFileLine& line) {
        if (line.group == "Desktop Entry" && line.key == "Hidden") {
            isHidden = line.value == "true";
        } else if (line.group == "Desktop Entry" && line.key == "X-GNOME-Autostart-enabled") {
            isSwitchedOff = line.value == "false";
        }
        return true;
    });
    return !isHidden && !isSwitchedOff;
}

/// A path as the only word of an Exec value: quoted for the command line, then escaped as every
/// value is.
std::string execValue(const std::filesystem::path& program) {
    std::string value = "\"";
    for (const char c : program.string()) {
        switch (c) {
        case '"':
        case '`':
        case '$':
            value += std::string("\\\\") + c;
            break;
        case '\\':
            value += "\\\\\\\\";
            break;
        case '%':
            value += "%%";
            break;
        case '\n':
            value += "\\n";
            break;
        default:
            value += c;
        }
    }
    return value + "\"";
}

/// A text as a value of a key file.
std::string escapedValue(const std::string& text) {
    std::string value;
    for (const char c : text) {
        value += c == '\\' ? "\\\\" : c == '\n' ? "\\n" : std::string(1, c);
    }
    return value;
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const BaseDirectories& directories,
                                       std::string applicationId, std::filesystem::path program)
    : applicationId_(std::move(applicationId)), program_(std::move(program)) {
    const auto file = std::filesystem::path("autostart") / (applicationId_ + ".desktop");
    userFile_ = directories.configHome / file;
    removeLeftTemporaries(userFile_);
    for (const std::filesystem::path& folder : directories.configDirs) {
        systemFiles_.push_back(folder / file);
    }
}

bool AutostartLoginItem::isEnabled() const {
    if (const auto text = readTextFile(userFile_)) {
        return isStarted(*text);
    }
    const auto file = systemFile();
    const auto text = file ? readTextFile(*file) : std::nullopt;
    return text && isStarted(*text);
}

bool AutostartLoginItem::setEnabled(bool isEnabled) {
    std::error_code error;
    if (!isEnabled && !systemFile()) {
        std::filesystem::remove(userFile_, error);
        return !this->isEnabled();
    }
    std::string text = "[Desktop Entry]\n"
                       "Type=Application\n"
                       "Name=Calmora\n"
                       "Exec=" +
                       execValue(program_) +
                       "\n"
                       "TryExec=" + // Without the program the session passes by.
                       escapedValue(program_.string()) +
                       "\n"
                       "Icon=" +
                       applicationId_ + "\n";
    if (!isEnabled) {
        text += "Hidden=true\n";
    }
    std::filesystem::create_directories(userFile_.parent_path(), error);
    return replaceTextFile(userFile_, text);
}

std::optional<std::filesystem::path> AutostartLoginItem::systemFile() const {
    const auto found = std::ranges::find_if(systemFiles_, [](const std::filesystem::path& file) {
        std::error_code error;
        return std::filesystem::exists(file, error);
    });
    return found != systemFiles_.end() ? std::optional(*found) : std::nullopt;
}

} // namespace calmora
