#pragma once

#include "platform/UserDefaults.h"

#include <utility>

namespace calmora {

/// Preferences in memory.
class FakeUserDefaults final : public UserDefaults {
  public:
    void registerDefaults(std::map<std::string, DefaultsValue> defaults) override {
        registered = std::move(defaults);
    }

    [[nodiscard]] std::optional<DefaultsValue> value(const std::string& key) const override {
        const auto found = stored.find(key);
        return found != stored.end() ? std::optional(found->second) : fallback(key);
    }

    [[nodiscard]] bool boolean(const std::string& key) const override {
        return typed<bool>(key).value_or(false);
    }

    [[nodiscard]] std::int64_t integer(const std::string& key) const override {
        return typed<std::int64_t>(key).value_or(0);
    }

    [[nodiscard]] std::optional<std::string> string(const std::string& key) const override {
        return typed<std::string>(key);
    }

    [[nodiscard]] std::optional<std::vector<std::string>>
    stringArray(const std::string& key) const override {
        return typed<std::vector<std::string>>(key);
    }

    [[nodiscard]] std::vector<std::string> keys(const std::string& prefix) const override {
        std::vector<std::string> found;
        for (auto at = stored.lower_bound(prefix);
             at != stored.end() && at->first.starts_with(prefix); ++at) {
            found.push_back(at->first);
        }
        return found;
    }

    void set(const std::string& key, DefaultsValue value) override {
        writes.push_back(key);
        stored.insert_or_assign(key, std::move(value));
    }

    void remove(const std::string& key) override {
        writes.push_back(key);
        stored.erase(key);
    }

    std::map<std::string, DefaultsValue> registered;
    /// What was set; registered values are not among it.
    std::map<std::string, DefaultsValue> stored;
    /// The key of every set() and remove(), in order.
    std::vector<std::string> writes;

  private:
    [[nodiscard]] std::optional<DefaultsValue> fallback(const std::string& key) const {
        const auto found = registered.find(key);
        return found != registered.end() ? std::optional(found->second) : std::nullopt;
    }

    template <typename Type>
    [[nodiscard]] std::optional<Type> typed(const std::string& key) const {
        for (const auto& candidate : {value(key), fallback(key)}) {
            if (candidate && std::holds_alternative<Type>(*candidate)) {
                return std::get<Type>(*candidate);
            }
        }
        return std::nullopt;
    }
};

} // namespace calmora
