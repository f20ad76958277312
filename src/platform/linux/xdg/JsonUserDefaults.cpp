// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/JsonUserDefaults.h"

#include "platform/linux/xdg/TextFile.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <system_error>
#include <utility>

namespace calmora {

namespace {

/// The state of the file.
enum class FileState { absent, empty, readable, damaged, unreadable };

struct FileContent {
    FileState state = FileState::absent;
    /// Empty unless the file is readable.
    JsonMembers members;
};

/// Sets errno for a file that is unreadable.
FileContent readFile(const std::filesystem::path& file) {
    const auto text = readTextFile(file);
    if (!text) {
        return {errno == ENOENT ? FileState::absent : FileState::unreadable, {}};
    }
    if (text->find_first_not_of(" \t\r\n") == std::string::npos) {
        return {FileState::empty, {}};
    }
    auto members = readMembers(*text);
    return members ? FileContent{FileState::readable, *std::move(members)}
                   : FileContent{FileState::damaged, {}};
}

std::string reasonOf(int error) {
    return std::generic_category().message(error);
}

/// Renames a damaged file; false on failure.
bool keepAside(const std::filesystem::path& file) {
    const auto damaged = followedLinks(file);
    if (!damaged) {
        return false;
    }
    std::array<char, 32> stamp{};
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::strftime(stamp.data(), stamp.size(), "%Y%m%dT%H%M%SZ", &utc);
    std::error_code error;
    std::filesystem::path aside = damaged->string() + ".damaged-" + stamp.data();
    for (int number = 2; std::filesystem::exists(aside, error); ++number) {
        aside = damaged->string() + ".damaged-" + stamp.data() + "-" + std::to_string(number);
    }
    std::filesystem::rename(*damaged, aside, error);
    if (!error) {
        std::fprintf(stderr, "calmora: %s is damaged; it was kept as %s and defaults apply\n",
                     damaged->c_str(), aside.c_str());
    }
    return !error;
}

/// Makes the folder of a file; not of a link's target, whose disk may only be missing now.
void makeFolder(const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::path folder = file.parent_path();
    if (std::filesystem::create_directories(folder, error)) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    }
}

constexpr const char* damagedInPlace = "damaged, and cannot be renamed";

} // namespace

JsonUserDefaults::JsonUserDefaults(std::filesystem::path file, RunLoop& runLoop)
    : file_(std::move(file)), runLoop_(runLoop) {
    removeLeftTemporaries(file_);
    FileContent content = readFile(file_);
    if (content.state == FileState::unreadable) {
        report(reasonOf(errno));
    } else if (content.state == FileState::damaged && !keepAside(file_)) {
        report(damagedInPlace);
    }
    members_ = std::move(content.members);
    for (const auto& [key, written] : members_) {
        if (auto value = valueOfMember(written)) {
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
    for (auto member = members_.lower_bound(prefix);
         member != members_.end() && member->first.starts_with(prefix); ++member) {
        found.push_back(member->first);
    }
    return found;
}

std::optional<std::string> JsonUserDefaults::unusableFile() const {
    return isUnusable_ ? std::optional(file_.string()) : std::nullopt;
}

Subscription JsonUserDefaults::onUsabilityChanged(std::function<void()> handler) {
    return usabilityChanged_.connect(std::move(handler));
}

void JsonUserDefaults::set(const std::string& key, DefaultsValue value) {
    std::string written = writtenMember(value);
    members_.insert_or_assign(key, written);
    values_.insert_or_assign(key, std::move(value));
    change(key, std::move(written));
}

void JsonUserDefaults::remove(const std::string& key) {
    members_.erase(key);
    values_.erase(key);
    change(key, std::nullopt);
}

void JsonUserDefaults::change(const std::string& key, std::optional<std::string> written) {
    pending_.insert_or_assign(key, std::move(written));
    if (!std::exchange(isWriteDue_, true)) {
        write_ = runLoop_.nextTurn([this] { flush(); });
    }
}

bool JsonUserDefaults::flush() {
    isWriteDue_ = false;
    if (pending_.empty()) {
        return true;
    }
    const auto problem = write();
    if (problem) {
        write_ = runLoop_.after(retryInterval, [this] { flush(); });
    } else {
        pending_.clear();
    }
    report(problem);
    return !problem;
}

/// Writes the pending changes into the file as it is now. Returns why it could not.
std::optional<std::string> JsonUserDefaults::write() {
    FileContent content = readFile(file_);
    if (content.state == FileState::unreadable) {
        return reasonOf(errno); // Whatever it is, it is not ours to replace.
    }
    if (content.state == FileState::damaged && !keepAside(file_)) {
        return damagedInPlace;
    }
    if (content.state != FileState::readable) {
        content.members = members_; // The changes among them.
    }
    for (const auto& [key, written] : pending_) {
        if (written) {
            content.members.insert_or_assign(key, *written);
        } else {
            content.members.erase(key);
        }
    }
    const std::string text = writtenMembers(content.members);
    if (text.size() > largestTextFile) {
        return reasonOf(EFBIG); // The next start could not read it.
    }
    makeFolder(file_);
    return replaceTextFile(file_, text) ? std::nullopt : std::optional(reasonOf(errno));
}

/// Says the first of several problems. An observer may destroy the preferences: call last.
void JsonUserDefaults::report(const std::optional<std::string>& problem) {
    if (problem.has_value() == isUnusable_) {
        return;
    }
    isUnusable_ = problem.has_value();
    if (problem) {
        std::fprintf(stderr,
                     "calmora: %s cannot be used (%s); changed settings last until the end\n",
                     file_.c_str(), problem->c_str());
    }
    usabilityChanged_.emit();
}

} // namespace calmora
