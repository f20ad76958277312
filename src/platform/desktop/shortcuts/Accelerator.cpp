// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/Accelerator.h"

#include "platform/linux/keyboard/KeyCodes.h"
#include "support/TextHelpers.h"
#include "support/XmlTags.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <xkbcommon/xkbcommon.h>

namespace calmora {
namespace {

using namespace carbon;

using Modifier = std::pair<std::string_view, std::uint32_t>;

constexpr std::array gtkModifiers{
    Modifier{"primary", control}, Modifier{"control", control}, Modifier{"ctrl", control},
    Modifier{"ctl", control},     Modifier{"alt", option},      Modifier{"mod1", option},
    Modifier{"shift", shift},     Modifier{"shft", shift},      Modifier{"super", command},
    Modifier{"mod4", command},
};

constexpr std::array openboxModifiers{Modifier{"c", control}, Modifier{"a", option},
                                      Modifier{"s", shift}, Modifier{"w", command}};

template <std::size_t count>
std::optional<std::uint32_t> modifier(const std::array<Modifier, count>& table,
                                      std::string_view name) {
    const std::string lower = loweredAscii(name);
    const auto* found = std::ranges::find(table, std::string_view(lower), &Modifier::first);
    return found != table.end() ? std::optional(found->second) : std::nullopt;
}

using QtKey = std::pair<std::uint32_t, const char*>;

// Keys that write nothing. Both Enter keys have names of their own.
constexpr std::array qtKeys{
    QtKey{Qt::Key_Escape, "Escape"}, QtKey{Qt::Key_Tab, "Tab"},
    QtKey{Qt::Key_Backtab, "Tab"},   QtKey{Qt::Key_Backspace, "BackSpace"},
    QtKey{Qt::Key_Return, "Return"}, QtKey{Qt::Key_Enter, "KP_Enter"},
    QtKey{Qt::Key_Insert, "Insert"}, QtKey{Qt::Key_Delete, "Delete"},
    QtKey{Qt::Key_Home, "Home"},     QtKey{Qt::Key_End, "End"},
    QtKey{Qt::Key_Left, "Left"},     QtKey{Qt::Key_Up, "Up"},
    QtKey{Qt::Key_Right, "Right"},   QtKey{Qt::Key_Down, "Down"},
    QtKey{Qt::Key_PageUp, "Prior"},  QtKey{Qt::Key_PageDown, "Next"},
};

using QtModifier = std::pair<std::uint32_t, std::uint32_t>;

constexpr std::array qtModifiers{
    QtModifier{Qt::ShiftModifier, shift}, QtModifier{Qt::ControlModifier, control},
    QtModifier{Qt::AltModifier, option}, QtModifier{Qt::MetaModifier, command}};

} // namespace

std::optional<Accelerator> gtkAccelerator(std::string_view text) {
    Accelerator result;
    while (text.starts_with('<')) {
        const std::size_t end = text.find('>');
        const auto mask = end == std::string_view::npos
                              ? std::nullopt
                              : modifier(gtkModifiers, text.substr(1, end - 1));
        if (!mask) {
            return std::nullopt;
        }
        result.modifiers |= *mask;
        text.remove_prefix(end + 1);
    }
    result.key = text;
    return text.empty() ? std::nullopt : std::optional(result);
}

std::optional<Accelerator> openboxAccelerator(std::string_view text) {
    Accelerator result;
    for (std::size_t at = text.find('-'); at != std::string_view::npos && at + 1 < text.size();
         at = text.find('-')) {
        const auto mask = modifier(openboxModifiers, text.substr(0, at));
        if (!mask) {
            return std::nullopt;
        }
        result.modifiers |= *mask;
        text.remove_prefix(at + 1);
    }
    result.key = text;
    return text.empty() ? std::nullopt : std::optional(result);
}

std::vector<Accelerator> openboxAccelerators(std::string_view xml) {
    constexpr std::size_t most = std::size_t{1024} * 1024;
    if (xml.size() > most || !hasShortTags(xml)) {
        return {};
    }
    QXmlStreamReader reader(QByteArray(xml.data(), static_cast<qsizetype>(xml.size())));
    reader.setNamespaceProcessing(false);
    std::vector<Accelerator> result;
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (reader.qualifiedName() != u"keybind") {
            continue;
        }
        if (token == QXmlStreamReader::StartElement && depth++ == 0) {
            const QString keys = reader.attributes().value("key").toString().simplified();
            for (const QString& key : keys.split(' ')) {
                if (auto accelerator = openboxAccelerator(key.toStdString())) {
                    result.push_back(std::move(*accelerator));
                }
            }
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
    }
    return result;
}

std::optional<Accelerator> qtAccelerator(std::uint32_t key) {
    Accelerator result;
    for (const auto& [mask, carbon] : qtModifiers) {
        result.modifiers |= (key & mask) != 0 ? carbon : 0;
        key &= ~mask;
    }
    constexpr std::uint32_t lastCharacter = 0x10FFFF;
    if (const auto* named = std::ranges::find(qtKeys, key, &QtKey::first); named != qtKeys.end()) {
        result.key = named->second;
    } else if (key >= Qt::Key_F1 && key <= Qt::Key_F35) {
        result.key = "F" + std::to_string(key - Qt::Key_F1 + 1);
    } else if (key >= ' ' && key <= lastCharacter) {
        std::array<char, 8> name{};
        std::snprintf(name.data(), name.size(), "U%04X", key);
        result.key = name.data();
    } else {
        return std::nullopt;
    }
    return result;
}

std::optional<std::uint32_t> qtKey(const Accelerator& accelerator) {
    const std::string& name = accelerator.key;
    const xkb_keysym_t symbol = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_NO_FLAGS);
    const std::uint32_t character = QChar::toUpper(xkb_keysym_to_utf32(symbol));
    std::uint32_t key = 0;
    if (name.starts_with("KP_")) {
        return std::nullopt;
    }
    if (const auto* named = std::ranges::find(qtKeys, name, &QtKey::second);
        named != qtKeys.end()) {
        key = named->first;
    } else if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F35) {
        key = Qt::Key_F1 + (symbol - XKB_KEY_F1);
    } else if (character >= ' ') {
        key = character;
    } else {
        return std::nullopt;
    }
    for (const auto& [mask, carbon] : qtModifiers) {
        key |= (accelerator.modifiers & carbon) != 0 ? mask : 0;
    }
    return key;
}

std::vector<Accelerator> xfceAccelerators(const std::vector<XfceProperty>& properties) {
    std::vector<Accelerator> result;
    for (const std::string_view owner : {"/commands/", "/xfwm4/"}) {
        const std::string custom = std::string(owner) + "custom/";
        const std::string byDefault = std::string(owner) + "default/";
        const bool isOverridden = std::ranges::any_of(properties, [&](const XfceProperty& p) {
            return p.name == custom + "override" && p.flag.value_or(false);
        });
        const std::string& list = isOverridden ? custom : byDefault;
        for (const XfceProperty& property : properties) {
            if (!property.name.starts_with(list)) {
                continue;
            }
            const std::string_view key = std::string_view(property.name).substr(list.size());
            // A further slash separates details of a combination.
            if (key == "override" || key.find('/') != std::string_view::npos) {
                continue;
            }
            if (auto accelerator = gtkAccelerator(key)) {
                result.push_back(std::move(*accelerator));
            }
        }
    }
    return result;
}

} // namespace calmora
