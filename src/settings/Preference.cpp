// SPDX-License-Identifier: MIT
#include "settings/Preference.h"

namespace calmora {

void PreferenceTable::resetToDefaults() {
    const std::weak_ptr<const Rows> alive = rows_;
    for (std::size_t row = 0; !alive.expired() && row < rows_->size(); ++row) {
        (*rows_)[row]->reset();
    }
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

} // namespace calmora
