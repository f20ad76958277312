// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/LookUp.h"
#include "platform/UserDefaults.h"
#include "support/Signal.h"

#include <utility>

namespace calmora {

/// Preferences in memory.
class FakeUserDefaults final : public UserDefaults {
  public:
    void registerDefaults(std::map<std::string, DefaultsValue> defaults) override {
        defaults.merge(registered);
        registered = std::move(defaults);
    }

    std::optional<DefaultsValue> value(const std::string& key) const override {
        return lookUp(stored.contains(key) ? stored : registered, key);
    }

    bool boolean(const std::string& key) const override { return typed<bool>(key).value_or(false); }

    std::int64_t integer(const std::string& key) const override {
        return typed<std::int64_t>(key).value_or(0);
    }

    std::optional<std::string> string(const std::string& key) const override {
        return typed<std::string>(key);
    }

    std::vector<std::string> keys(const std::string& prefix) const override {
        std::vector<std::string> found;
        for (const auto& [key, value] : stored) {
            if (key.starts_with(prefix)) {
                found.push_back(key);
            }
        }
        return found;
    }

    std::optional<std::string> unusableFile() const override { return unusable; }

    Subscription onUsabilityChanged(std::function<void()> handler) override {
        return usability.connect(std::move(handler));
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
    /// What was set, without registered values.
    std::map<std::string, DefaultsValue> stored;
    /// The key of every set() and remove(), in order.
    std::vector<std::string> writes;
    std::optional<std::string> unusable;
    Signal<> usability;

  private:
    template <typename Type>
    std::optional<Type> typed(const std::string& key) const {
        for (const auto& candidate : {lookUp(stored, key), lookUp(registered, key)}) {
            if (candidate && std::holds_alternative<Type>(*candidate)) {
                return std::get<Type>(*candidate);
            }
        }
        return std::nullopt;
    }
};

} // namespace calmora
