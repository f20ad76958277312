// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace calmora {

class PreferenceBase;

/// Preferences that share a store and are reset together. A subclass declares each of them as a
/// member: `Preference<bool> playSounds{*this, "playSounds", false};`. Main thread.
class PreferenceTable {
  public:
    PreferenceTable(const PreferenceTable&) = delete;
    PreferenceTable& operator=(const PreferenceTable&) = delete;

    /// Calls `handler` after each change of any preference until the token ends.
    [[nodiscard]] Subscription observeAny(std::function<void()> handler) {
        return changed_.connect([handler = std::move(handler)](std::string_view) { handler(); });
    }

    /// See UserDefaults.
    [[nodiscard]] std::optional<std::string> unusableFile() const {
        return defaults_.unusableFile();
    }

    /// See UserDefaults.
    [[nodiscard]] Subscription onUsabilityChanged(std::function<void()> handler) {
        return defaults_.onUsabilityChanged(std::move(handler));
    }

    /// Sets every preference to its default, in the order of declaration, so that every key is
    /// written. Stops if a handler destroys the table.
    void resetToDefaults();

  protected:
    /// `defaults` must outlive the table.
    explicit PreferenceTable(UserDefaults& defaults) : defaults_(defaults) {}

    ~PreferenceTable() = default;

  private:
    friend class PreferenceBase;
    using Rows = std::vector<PreferenceBase*>;

    UserDefaults& defaults_;
    /// Carries the key of the preference.
    Signal<std::string_view> changed_;
    std::shared_ptr<Rows> rows_ = std::make_shared<Rows>();
};

/// What preferences of every type have in common.
class PreferenceBase {
  public:
    PreferenceBase(const PreferenceBase&) = delete;
    PreferenceBase& operator=(const PreferenceBase&) = delete;

    /// The key under which the value is stored.
    [[nodiscard]] const char* key() const { return key_; }

    /// Calls `handler` after each change until the token ends. A handler may destroy the table.
    [[nodiscard]] Subscription observe(std::function<void()> handler);

    /// Sets the default.
    virtual void reset() = 0;

  protected:
    /// Adds the preference to the table. `key` must be a literal.
    PreferenceBase(PreferenceTable& table, const char* key) : table_(table), key_(key) {
        table_.rows_->push_back(this);
    }

    ~PreferenceBase() = default;

    /// Registers the default and reads the store.
    [[nodiscard]] std::optional<DefaultsValue> load(DefaultsValue initial) const;

    void persist(DefaultsValue value) const { table_.defaults_.set(key_, std::move(value)); }

    /// A handler may destroy the preference: call last.
    void notify() const { table_.changed_.emit(key_); }

  private:
    PreferenceTable& table_;
    const char* key_;
};

/// The form in which a value is stored: an enumeration by the text that `rawValues()` gives for
/// the case, a set as an array, everything else as it is.
template <typename Value>
[[nodiscard]] DefaultsValue toStored(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
        return std::string(rawValues(value)[static_cast<std::size_t>(value)]);
    } else if constexpr (std::is_same_v<Value, std::set<std::string>>) {
        return std::vector<std::string>(value.begin(), value.end());
    } else {
        return value;
    }
}

/// The value of a stored form; absent for one of another type and for an unknown case.
template <typename Value>
[[nodiscard]] std::optional<Value> fromStored(const DefaultsValue& stored) {
    if constexpr (std::is_enum_v<Value>) {
        constexpr auto texts = rawValues(Value{});
        const auto* text = std::get_if<std::string>(&stored);
        const auto found = text ? std::ranges::find(texts, *text) : texts.end();
        return found != texts.end() ? std::optional(static_cast<Value>(found - texts.begin()))
                                    : std::nullopt;
    } else if constexpr (std::is_same_v<Value, std::set<std::string>>) {
        const auto* list = std::get_if<std::vector<std::string>>(&stored);
        return list ? std::optional(Value(list->begin(), list->end())) : std::nullopt;
    } else {
        const auto* same = std::get_if<Value>(&stored);
        return same ? std::optional(*same) : std::nullopt;
    }
}

/// One preference of the user: a bool, a 64-bit integer, a string, a set of strings or an
/// enumeration with `rawValues()`. A missing key, a value of another type and an unknown case read
/// as the default. Every write goes to the store at once, even if the value is unchanged.
template <typename Value>
class Preference final : public PreferenceBase {
  public:
    /// Registers the default and reads the stored value.
    Preference(PreferenceTable& table, const char* key, Value initial)
        : PreferenceBase(table, key), initial_(std::move(initial)), value_(initial_) {
        if (const auto stored = load(toStored(initial_))) {
            value_ = fromStored<Value>(*stored).value_or(initial_);
        }
    }

    /// The value.
    [[nodiscard]] const Value& operator()() const { return value_; }

    /// Persists a value, then notifies the observers if it changed.
    void set(Value value) {
        const bool isChange = value != value_;
        write(std::move(value), isChange);
    }

    /// Persists a value, then notifies the observers in any case.
    void setAndNotify(Value value) { write(std::move(value), true); }

    void reset() override { set(initial_); }

  private:
    void write(Value value, bool notifies) {
        value_ = std::move(value);
        persist(toStored(value_));
        if (notifies) {
            notify();
        }
    }

    const Value initial_;
    Value value_;
};

} // namespace calmora
