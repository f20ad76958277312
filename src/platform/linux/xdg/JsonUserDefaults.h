// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "support/Subscription.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

/// The preferences in a JSON file, one typed member per key.
///
/// Merges each change into the current file, so that other programs' changes stay, and writes
/// atomically (temporary file, sync, rename). A file that is no JSON object is renamed with a time
/// stamp and reported on standard error; an empty one is overwritten. Changes that cannot be
/// written stay in memory and are retried with the next change and at the end. Main thread.
class JsonUserDefaults final : public UserDefaults {
  public:
    /// Reads `file`, which may not exist. Changes are written on the next turn of `runLoop`.
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
    void set(const std::string& key, DefaultsValue value) override;
    void remove(const std::string& key) override;

    /// Writes pending changes; false if they could not be written and are still pending.
    bool flush();

  private:
    template <typename Value>
    [[nodiscard]] std::optional<Value> typed(const std::string& key) const;
    void change(const std::string& key, std::optional<DefaultsValue> value);

    std::filesystem::path file_;
    RunLoop& runLoop_;
    std::map<std::string, DefaultsValue> registered_;
    std::map<std::string, DefaultsValue> values_;
    /// All keys, including those of unsupported types.
    std::set<std::string> keys_;
    /// Unwritten changes; absent means removed.
    std::map<std::string, std::optional<DefaultsValue>> pending_;
    Subscription write_;
    bool isWriteDue_ = false;
    /// A damaged file could not be moved; it is left alone.
    bool isDamagedInPlace_ = false;
};

} // namespace calmora
