// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"

#include "platform/linux/xdg/KeyFile.h"
#include "support/ShownName.h"

#include <algorithm>
#include <cstddef>

namespace calmora {

namespace {

/// A value in several languages; the most preferred one wins.
class LocalizedValue {
  public:
    explicit LocalizedValue(std::span<const std::string> locales)
        : locales_(locales), rank_(locales.size() + 1) {}

    /// Takes the value of `key` when it is `name` or `name[locale]` and wanted more than the last.
    void offer(std::string_view key, std::string_view name, std::string_view value) {
        if (key == name) {
            unlocalized_ = value;
            take(value, locales_.size());
            return;
        }
        if (!key.starts_with(name) || !key.ends_with(']') || key[name.size()] != '[') {
            return;
        }
        const std::string_view locale = key.substr(name.size() + 1, key.size() - name.size() - 2);
        const auto found = std::ranges::find(locales_, locale);
        if (found != locales_.end()) {
            take(value, static_cast<std::size_t>(found - locales_.begin()));
        }
    }

    [[nodiscard]] std::string_view value() const { return value_; }

    [[nodiscard]] std::string_view unlocalized() const { return unlocalized_; }

  private:
    void take(std::string_view value, std::size_t rank) {
        if (rank < rank_ && !value.empty()) {
            rank_ = rank;
            value_ = value;
        }
    }

    std::span<const std::string> locales_;
    std::size_t rank_;
    std::string_view value_;
    std::string_view unlocalized_;
};

/// A word without its field codes; "%%" is a percent sign.
std::string withoutFieldCodes(std::string_view word) {
    std::string plain;
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (word[at] != '%') {
            plain += word[at];
        } else if (++at < word.size() && word[at] == '%') {
            plain += '%';
        }
    }
    return plain;
}

/// A word with the values of its field codes; absent with a code that no entry may have.
std::optional<std::string> withFieldValues(std::string_view word, const DesktopEntry& entry) {
    // The last ones are obsolete, and mean nothing.
    constexpr std::string_view dropped = "fFuUidDnNvm";
    std::string filled;
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (word[at] != '%') {
            filled += word[at];
            continue;
        }
        const char code = ++at < word.size() ? word[at] : '\0';
        if (code == '%') {
            filled += '%';
        } else if (code == 'c') {
            filled += entry.name;
        } else if (code == 'k') {
            filled += entry.path.string();
        } else if (code == '\0' || dropped.find(code) == std::string_view::npos) {
            return std::nullopt;
        }
    }
    return filled;
}

/// An Exec value in words, field codes as written.
struct ExecValue {
    std::vector<std::string> words = {};
    /// No quotation mark is left open.
    bool isClosed = true;
};

ExecValue splitExec(std::string_view exec) {
    const std::string text = unescapedValue(exec);
    ExecValue value;
    std::string word;
    bool isInWord = false;
    bool isQuoted = false;
    const auto finish = [&] {
        if (isInWord) {
            value.words.push_back(std::move(word));
        }
        word.clear();
        isInWord = false;
    };
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char letter = text[at];
        if (letter == '"') {
            isQuoted = !isQuoted;
            isInWord = true;
        } else if (letter == '\\' && isQuoted && at + 1 < text.size()) {
            word += text[++at];
        } else if ((letter == ' ' || letter == '\t' || letter == '\n') && !isQuoted) {
            finish();
        } else {
            word += letter;
            isInWord = true;
        }
    }
    finish();
    value.isClosed = !isQuoted;
    return value;
}

} // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              std::span<const std::string> locales) {
    DesktopEntry entry;
    LocalizedValue name(locales);
    LocalizedValue icon(locales);
    bool isApplication = false;
    bool hasStarted = false;
    walkKeyFile(text, [&](const KeyFileLine& line) {
        const auto& [group, key, value] = line;
        if (group != "Desktop Entry") {
            return !hasStarted;
        }
        hasStarted = true;
        if (key.starts_with("Name")) {
            name.offer(key, "Name", value);
        } else if (key.starts_with("Icon")) {
            icon.offer(key, "Icon", value);
        } else if (key == "Type") {
            isApplication = value == "Application";
        } else if (key == "Exec") {
            entry.exec = value;
        } else if (key == "Path") {
            entry.workingFolder = unescapedValue(value);
        } else if (key == "TryExec") {
            entry.tryExec = unescapedValue(value);
        } else if (key == "StartupWMClass") {
            entry.startupWmClass = unescapedValue(value);
        } else if (key == "Categories") {
            entry.categories = splitList(value);
        } else if (key == "OnlyShowIn") {
            entry.onlyShowIn = splitList(value);
        } else if (key == "NotShowIn") {
            entry.notShowIn = splitList(value);
        } else if (key == "NoDisplay") {
            entry.noDisplay = value == "true";
        } else if (key == "Terminal") {
            entry.needsTerminal = value == "true";
        } else if (key == "DBusActivatable") {
            entry.isDbusActivatable = value == "true";
        } else if (key == "Hidden") {
            entry.hidden = value == "true";
        } else if (key == "X-LXQt-Need-Tray") {
            entry.needsTray = value == "true";
        }
        return true;
    });
    entry.name = shownName(unescapedValue(name.value()));
    entry.unlocalizedName = shownName(unescapedValue(name.unlocalized()));
    entry.icon = unescapedValue(icon.value());
    // An entry that only hides the one of the same id needs nothing else.
    if (!entry.hidden && (!isApplication || entry.name.empty())) {
        return std::nullopt;
    }
    entry.command = commandOf(execWords(entry.exec));
    entry.execKey = keyOf(entry.command);
    entry.isVisible = !entry.noDisplay && !entry.hidden;
    return entry;
}

std::vector<std::string> execWords(std::string_view exec) {
    std::vector<std::string> words;
    for (const std::string& word : splitExec(exec).words) {
        std::string plain = withoutFieldCodes(word);
        if (!plain.empty()) {
            words.push_back(std::move(plain));
        }
    }
    return words;
}

std::optional<std::vector<std::string>> launchWords(const DesktopEntry& entry) {
    const ExecValue exec = splitExec(entry.exec);
    std::vector<std::string> words;
    for (const std::string& word : exec.words) {
        if (word == "%i") {
            if (!entry.icon.empty()) {
                words.insert(words.end(), {"--icon", entry.icon});
            }
            continue;
        }
        auto filled = withFieldValues(word, entry);
        if (!filled) {
            return std::nullopt;
        }
        // Codes for files leave no empty argument; empty quotation marks are one.
        if (!filled->empty() || word.empty()) {
            words.push_back(*std::move(filled));
        }
    }
    const auto isCut = [](const std::string& word) { return word.find('\0') != std::string::npos; };
    if (!exec.isClosed || words.empty() || words.front().empty() ||
        std::ranges::any_of(words, isCut)) {
        return std::nullopt;
    }
    return words;
}

Image iconImage(std::string_view icon) {
    Image image;
    if (icon.starts_with('/')) {
        image.file = icon;
        return image;
    }
    // Names with an ending are wrong, yet common.
    for (const std::string_view ending : {".png", ".svg", ".xpm"}) {
        if (icon.ends_with(ending)) {
            icon.remove_suffix(ending.size());
            break;
        }
    }
    image.themeName = icon;
    return image;
}

} // namespace calmora
