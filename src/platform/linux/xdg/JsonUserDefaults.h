// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/linux/xdg/JsonMembers.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The preferences in a JSON file, one typed member per key.
///
/// Merges each change into the current file, so that other programs' changes stay, and writes
/// atomically (temporary file, sync, rename). A file that is no JSON object is renamed with a time
/// stamp and reported on standard error; one that is empty, or was deleted, is written whole. What
/// cannot be written stays in memory and is tried again: with the next change, every half minute
/// and at the end. That, and a file that cannot be read, is reported once. Main thread.
class JsonUserDefaults final : public UserDefaults {
  public:
    /// How long after a failure writing is tried again.
    static constexpr std::chrono::seconds retryInterval{30};

    /// Reads `file`, which may not exist, and removes what killed processes left beside it. Changes
    /// are written on the next turn of `runLoop`.
    JsonUserDefaults(std::filesystem::path file, RunLoop& runLoop);

    /// Writes what is pending.
    ~JsonUserDefaults() override { flush(); }

    JsonUserDefaults(const JsonUserDefaults&) = delete;
    JsonUserDefaults& operator=(const JsonUserDefaults&) = delete;

    void registerDefaults(std::map<std::string, DefaultsValue> defaults) override;
    [[nodiscard]] std::optional<DefaultsValue> value(const std::string& key) const override;
    [[nodiscard]] bool boolean(const std::string& key) const override;
    [[nodiscard]] std::int64_t integer(const std::string& key) const override;
    [[nodiscard]] std::optional<std::string> string(const std::string& key) const override;
    [[nodiscard]] std::vector<std::string> keys(const std::string& prefix) const override;
    [[nodiscard]] std::optional<std::string> unusableFile() const override;
    [[nodiscard]] Subscription onUsabilityChanged(std::function<void()> handler) override;
    void set(const std::string& key, DefaultsValue value) override;
    void remove(const std::string& key) override;

    /// Writes pending changes; false if they could not be written and are still pending.
    bool flush();

  private:
    template <typename Value>
    [[nodiscard]] std::optional<Value> typed(const std::string& key) const;
    void change(const std::string& key, std::optional<std::string> written);
    [[nodiscard]] std::optional<std::string> write();
    void report(const std::optional<std::string>& problem);

    std::filesystem::path file_;
    RunLoop& runLoop_;
    std::map<std::string, DefaultsValue> registered_;
    std::map<std::string, DefaultsValue> values_;
    /// Every member, also of unsupported types.
    JsonMembers members_;
    /// Unwritten changes; absent means removed.
    std::map<std::string, std::optional<std::string>> pending_;
    Subscription write_;
    bool isWriteDue_ = false;
    bool isUnusable_ = false;
    Signal<> usabilityChanged_;
};

} // namespace calmora
