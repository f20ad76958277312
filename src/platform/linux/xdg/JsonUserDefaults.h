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

/// The preferences in a JSON file, one member a key, each value with its type.
///
/// A change is merged key by key into the file as it is on disk at that time, so that what
/// another program wrote beside it stays, and reaches the disk whole or not at all (written to a
/// file beside it, synced, renamed). A file that is no JSON object is kept aside under a name with
/// a time stamp, with one line on standard error; an empty one has nothing to keep. What cannot be
/// written holds for the life of the process and is tried again with the next change and at the
/// end. Main thread.
class JsonUserDefaults final : public UserDefaults {
  public:
    /// Reads `file`, which need not exist. Changes are written on the next turn of `runLoop`.
    JsonUserDefaults(std::filesystem::path file, RunLoop& runLoop);

    /// Writes what is pending.
    ~JsonUserDefaults() override;

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

    /// Writes what is pending now; false when it could not be written and is still pending.
    bool flush();

  private:
    template <typename Value>
    [[nodiscard]] std::optional<Value> typed(const std::string& key) const;
    void change(const std::string& key, std::optional<DefaultsValue> value);

    std::filesystem::path file_;
    RunLoop& runLoop_;
    std::map<std::string, DefaultsValue> registered_;
    std::map<std::string, DefaultsValue> values_;
    /// Of every value, those included that have a type of no preference.
    std::set<std::string> keys_;
    /// Changes that are not on disk yet; absent means removed.
    std::map<std::string, std::optional<DefaultsValue>> pending_;
    Subscription write_;
    bool isWriteDue_ = false;
    /// A damaged file lies there that could not be moved; it is left alone.
    bool isDamagedInPlace_ = false;
};

} // namespace calmora
