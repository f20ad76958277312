// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonUserDefaults.h"

#include "platform/linux/xdg/TextFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <limits>
#include <system_error>
#include <utility>

#include <nlohmann/json.hpp>

namespace calmora {

namespace {

using Json = nlohmann::json;

/// The state of the file.
enum class FileState { absent, empty, readable, damaged, unreadable };

struct FileContent {
    FileState state = FileState::absent;
    /// An object, empty unless the file is readable.
    Json object = Json::object();
};

FileContent readFile(const std::filesystem::path& file) {
    FileContent content;
    const auto text = readTextFile(file);
    if (!text) {
        content.state = errno == ENOENT ? FileState::absent : FileState::unreadable;
        return content;
    }
    if (text->find_first_not_of(" \t\r\n") == std::string::npos) {
        content.state = FileState::empty;
        return content;
    }
    Json parsed = Json::parse(*text, nullptr, false);
    if (!parsed.is_object()) {
        content.state = FileState::damaged;
        return content;
    }
    content.state = FileState::readable;
    content.object = std::move(parsed);
    return content;
}

/// Absent for an unsupported type.
std::optional<DefaultsValue> valueOf(const Json& json) {
    if (json.is_boolean()) {
        return json.get<bool>();
    }
    if (json.is_number_unsigned()) {
        const auto number = json.get<std::uint64_t>();
        if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
            return std::nullopt;
        }
        return static_cast<std::int64_t>(number);
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    if (json.is_string()) {
        return json.get<std::string>();
    }
    if (json.is_array()) {
        std::vector<std::string> strings;
        for (const Json& member : json) {
            if (!member.is_string()) {
                return std::nullopt;
            }
            strings.push_back(member.get<std::string>());
        }
        return strings;
    }
    return std::nullopt;
}

Json jsonOf(const DefaultsValue& value) {
    return std::visit([](const auto& typed) { return Json(typed); }, value);
}

/// Renames a damaged file; false on failure.
bool keepAside(const std::filesystem::path& file) {
    const std::filesystem::path damaged = followedLinks(file);
    std::array<char, 32> stamp{};
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::strftime(stamp.data(), stamp.size(), "%Y%m%dT%H%M%SZ", &utc);
    std::error_code error;
    std::filesystem::path aside = damaged.string() + ".damaged-" + stamp.data();
    for (int number = 2; std::filesystem::exists(aside, error); ++number) {
        aside = damaged.string() + ".damaged-" + stamp.data() + "-" + std::to_string(number);
    }
    std::filesystem::rename(damaged, aside, error);
    if (error) {
        std::fprintf(stderr, "calmora: %s is damaged and cannot be moved aside; defaults apply\n",
                     damaged.c_str());
        return false;
    }
    std::fprintf(stderr, "calmora: %s is damaged; it was kept as %s and defaults apply\n",
                 damaged.c_str(), aside.c_str());
    return true;
}

} // namespace

JsonUserDefaults::JsonUserDefaults(std::filesystem::path file, RunLoop& runLoop)
    : file_(std::move(file)), runLoop_(runLoop) {
    const FileContent content = readFile(file_);
    if (content.state == FileState::damaged) {
        isDamagedInPlace_ = !keepAside(file_);
    }
    for (const auto& [key, json] : content.object.items()) {
        keys_.insert(key);
        if (auto value = valueOf(json)) {
            values_.emplace(key, *std::move(value));
        }
    }
}

void JsonUserDefaults::registerDefaults(std::map<std::string, DefaultsValue> defaults) {
    for (auto& [key, value] : defaults) {
        registered_.insert_or_assign(key, std::move(value));
    }
}

std::optional<DefaultsValue> JsonUserDefaults::value(const std::string& key) const {
    for (const auto* values : {&values_, &registered_}) {
        if (const auto found = values->find(key); found != values->end()) {
            return found->second;
        }
    }
    return std::nullopt;
}

template <typename Value>
std::optional<Value> JsonUserDefaults::typed(const std::string& key) const {
    for (const auto* values : {&values_, &registered_}) {
        const auto found = values->find(key);
        if (found != values->end() && std::holds_alternative<Value>(found->second)) {
            return std::get<Value>(found->second);
        }
    }
    return std::nullopt;
}

bool JsonUserDefaults::boolean(const std::string& key) const {
    return typed<bool>(key).value_or(false);
}

std::int64_t JsonUserDefaults::integer(const std::string& key) const {
    return typed<std::int64_t>(key).value_or(0);
}

std::optional<std::string> JsonUserDefaults::string(const std::string& key) const {
    return typed<std::string>(key);
}

std::vector<std::string> JsonUserDefaults::keys(const std::string& prefix) const {
    std::vector<std::string> found;
    for (auto key = keys_.lower_bound(prefix); key != keys_.end() && key->starts_with(prefix);
         ++key) {
        found.push_back(*key);
    }
    return found;
}

void JsonUserDefaults::set(const std::string& key, DefaultsValue value) {
    keys_.insert(key);
    values_.insert_or_assign(key, value);
    change(key, std::move(value));
}

void JsonUserDefaults::remove(const std::string& key) {
    keys_.erase(key);
    values_.erase(key);
    change(key, std::nullopt);
}

void JsonUserDefaults::change(const std::string& key, std::optional<DefaultsValue> value) {
    const bool isFirst = pending_.empty() || !isWriteDue_;
    pending_.insert_or_assign(key, std::move(value));
    if (isFirst) {
        isWriteDue_ = true;
        write_ = runLoop_.nextTurn([this] { flush(); });
    }
}

bool JsonUserDefaults::flush() {
    isWriteDue_ = false;
    if (pending_.empty()) {
        return true;
    }
    FileContent content = readFile(file_);
    if (content.state == FileState::unreadable) {
        return false; // Whatever it is, it is not ours to replace.
    }
    if (content.state == FileState::damaged) {
        isDamagedInPlace_ = isDamagedInPlace_ || !keepAside(file_);
        if (isDamagedInPlace_) {
            return false;
        }
    }
    if (content.state == FileState::damaged || content.state == FileState::empty) {
        // Write all known values to the new file.
        for (const auto& [key, value] : values_) {
            content.object[key] = jsonOf(value);
        }
    }
    for (const auto& [key, value] : pending_) {
        if (value) {
            content.object[key] = jsonOf(*value);
        } else {
            content.object.erase(key);
        }
    }
    std::error_code error;
    const std::filesystem::path folder = followedLinks(file_).parent_path();
    if (std::filesystem::create_directories(folder, error)) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    }
    // Broken UTF-8 must not prevent writing the rest.
    const std::string text =
        content.object.dump(4, ' ', false, Json::error_handler_t::replace) + "\n";
    if (!replaceTextFile(file_, text)) {
        return false;
    }
    pending_.clear();
    return true;
}

} // namespace calmora
