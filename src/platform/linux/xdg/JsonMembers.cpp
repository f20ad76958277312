// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonMembers.h"

#include "support/TextHelpers.h"

#include <cstdint>
#include <limits>
#include <utility>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

namespace calmora {

namespace {

using Json = nlohmann::json;

constexpr std::string_view blanks = " \t\r\n";

/// Keeps nothing of what it reads, whose nesting would take memory.
struct Syntax : nlohmann::json_sax<Json> {
    bool null() override { return true; }

    bool boolean(bool) override { return true; }

    bool number_integer(number_integer_t) override { return true; }

    bool number_unsigned(number_unsigned_t) override { return true; }

    bool number_float(number_float_t, const string_t&) override { return true; }

    bool string(string_t&) override { return true; }

    bool binary(binary_t&) override { return true; }

    bool start_object(std::size_t) override { return true; }

    bool key(string_t&) override { return true; }

    bool end_object() override { return true; }

    bool start_array(std::size_t) override { return true; }

    bool end_array() override { return true; }

    bool parse_error(std::size_t, const std::string&, const Json::exception& error) override {
        constexpr int numberOutOfRange = 406;
        isOutOfRange = error.id == numberOutOfRange;
        return false;
    }

    bool isOutOfRange = false;
};

/// Reads a value that preferences can hold, and stops at any other.
class ValueReader final : public Syntax {
  public:
    bool null() override { return false; }

    bool boolean(bool value) override { return keep(value); }

    bool number_integer(number_integer_t value) override { return keep(value); }

    bool number_unsigned(number_unsigned_t value) override {
        constexpr auto most = std::numeric_limits<std::int64_t>::max();
        return value <= static_cast<number_unsigned_t>(most) &&
               keep(static_cast<std::int64_t>(value));
    }

    bool number_float(number_float_t, const string_t&) override { return false; }

    bool string(string_t& value) override {
        if (list_) {
            list_->push_back(std::move(value));
            return true;
        }
        return keep(std::move(value));
    }

    bool start_object(std::size_t) override { return false; }

    bool start_array(std::size_t) override {
        return !std::exchange(list_, std::vector<std::string>());
    }

    /// The value that was read.
    [[nodiscard]] std::optional<DefaultsValue> value() && {
        if (list_) {
            value_.emplace(*std::move(list_));
        }
        return std::move(value_);
    }

  private:
    template <typename Value>
    bool keep(Value value) {
        value_.emplace(std::move(value));
        return !list_;
    }

    std::optional<DefaultsValue> value_;
    std::optional<std::vector<std::string>> list_;
};

/// Whether a text is one value.
bool isValue(std::string_view text) {
    Syntax syntax;
    return Json::sax_parse(text.begin(), text.end(), &syntax) || syntax.isOutOfRange;
}

/// Length of the value at the start of a text, up to the comma or bracket behind it.
std::size_t valueLength(std::string_view text) {
    std::size_t depth = 0;
    bool isInString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (isInString) {
            at += c == '\\' ? 1 : 0;
            isInString = c != '"';
        } else if (c == '"') {
            isInString = true;
        } else if (c == '[' || c == '{') {
            ++depth;
        } else if (depth == 0 && (c == ',' || c == ':' || c == '}' || c == ']')) {
            return at;
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return text.size();
}

/// Takes a value from the start of a text, and the mark behind it; absent if there is none.
std::optional<std::pair<std::string_view, char>> takeValue(std::string_view& text) {
    const std::size_t length = valueLength(text);
    if (length == text.size()) {
        return std::nullopt;
    }
    const std::string_view value = trimmed(text.substr(0, length), blanks);
    const char mark = text[length];
    text.remove_prefix(length + 1);
    return isValue(value) ? std::optional(std::pair(value, mark)) : std::nullopt;
}

} // namespace

std::optional<JsonMembers> readMembers(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    text.remove_prefix(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
    text = trimmed(text, blanks);
    if (!text.starts_with('{') || !text.ends_with('}')) {
        return std::nullopt;
    }
    JsonMembers members;
    text.remove_prefix(1);
    if (trimmed(text, blanks) == "}") {
        return members;
    }
    char mark = ',';
    while (mark == ',') {
        const auto key = takeValue(text);
        if (!key || key->second != ':' || !key->first.starts_with('"')) {
            return std::nullopt;
        }
        const auto value = takeValue(text);
        if (!value) {
            return std::nullopt;
        }
        mark = value->second;
        members.insert_or_assign(Json::parse(key->first).get<std::string>(), value->first);
    }
    return mark == '}' && text.empty() ? std::optional(std::move(members)) : std::nullopt;
}

std::string writtenMembers(const JsonMembers& members) {
    std::string text = "{";
    for (const auto& [key, value] : members) {
        text += (text.size() > 1 ? ",\n    " : "\n    ") + writtenMember(key) + ": ";
        text += value;
    }
    return text + (members.empty() ? "}\n" : "\n}\n");
}

std::optional<DefaultsValue> valueOfMember(const std::string& written) {
    ValueReader reader;
    if (!Json::sax_parse(written, &reader)) {
        return std::nullopt;
    }
    return std::move(reader).value();
}

std::string writtenMember(const DefaultsValue& value) {
    const Json json = std::visit([](const auto& typed) { return Json(typed); }, value);
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace calmora
