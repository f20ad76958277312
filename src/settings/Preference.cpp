#include "settings/Preference.h"

namespace calmora {

Subscription PreferenceTable::observeAny(std::function<void()> handler) {
    return changed_.connect([handler = std::move(handler)](std::string_view) { handler(); });
}

void PreferenceTable::resetToDefaults() {
    const std::weak_ptr<const Rows> alive = rows_;
    for (std::size_t row = 0; !alive.expired() && row < rows_->size(); ++row) {
        (*rows_)[row]->reset();
    }
}

PreferenceBase::PreferenceBase(PreferenceTable& table, const char* key) : table_(table), key_(key) {
    table_.rows_->push_back(this);
}

Subscription PreferenceBase::observe(std::function<void()> handler) {
    return table_.changed_.connect(
        [key = key_, handler = std::move(handler)](std::string_view changed) {
            if (changed == key) {
                handler();
            }
        });
}

std::optional<DefaultsValue> PreferenceBase::load(DefaultsValue initial) const {
    table_.defaults_.registerDefaults({{key_, std::move(initial)}});
    return table_.defaults_.value(key_);
}

void PreferenceBase::persist(DefaultsValue value) const {
    table_.defaults_.set(key_, std::move(value));
}

void PreferenceBase::notify() const {
    table_.changed_.emit(key_);
}

} // namespace calmora
