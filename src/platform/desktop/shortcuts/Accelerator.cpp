#include "platform/desktop/shortcuts/Accelerator.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace calmora {
namespace {

constexpr std::uint32_t command = 1U << 8;
constexpr std::uint32_t shift = 1U << 9;
constexpr std::uint32_t option = 1U << 11;
constexpr std::uint32_t control = 1U << 12;

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
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    const auto* found = std::ranges::find(table, std::string_view(lower), &Modifier::first);
    return found != table.end() ? std::optional(found->second) : std::nullopt;
}

struct QtKey {
    std::uint32_t key;
    const char* name;
};

// Keys that write nothing. Both Enter keys have names of their own.
constexpr std::array qtKeys{
    QtKey{0x01000000, "Escape"},    QtKey{0x01000001, "Tab"},    QtKey{0x01000002, "Tab"},
    QtKey{0x01000003, "BackSpace"}, QtKey{0x01000004, "Return"}, QtKey{0x01000005, "KP_Enter"},
    QtKey{0x01000006, "Insert"},    QtKey{0x01000007, "Delete"}, QtKey{0x01000010, "Home"},
    QtKey{0x01000011, "End"},       QtKey{0x01000012, "Left"},   QtKey{0x01000013, "Up"},
    QtKey{0x01000014, "Right"},     QtKey{0x01000015, "Down"},   QtKey{0x01000016, "Prior"},
    QtKey{0x01000017, "Next"},
};

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
    const std::pair<std::uint32_t, std::uint32_t> modifiers[] = {
        {0x02000000, shift}, {0x04000000, control}, {0x08000000, option}, {0x10000000, command}};
    for (const auto& [mask, carbon] : modifiers) {
        result.modifiers |= (key & mask) != 0 ? carbon : 0;
        key &= ~mask;
    }
    constexpr std::uint32_t firstFunctionKey = 0x01000030;
    constexpr std::uint32_t lastCharacter = 0x10FFFF;
    if (const auto* named = std::ranges::find(qtKeys, key, &QtKey::key); named != qtKeys.end()) {
        result.key = named->name;
    } else if (key >= firstFunctionKey && key < firstFunctionKey + 35) {
        result.key = "F" + std::to_string(key - firstFunctionKey + 1);
    } else if (key >= ' ' && key <= lastCharacter) {
        std::array<char, 8> name{};
        std::snprintf(name.data(), name.size(), "U%04X", key);
        result.key = name.data();
    } else {
        return std::nullopt;
    }
    return result;
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
