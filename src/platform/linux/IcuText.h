// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Text.h"

#include <memory>
#include <string>

namespace calmora {

/// Text rules from ICU, loaded on first use. Invalid UTF-8 counts as U+FFFD. Main thread.
class IcuText final : public Text {
  public:
    /// `locale` is a POSIX or BCP 47 name ("de_DE.UTF-8"); empty means LC_ALL, LC_COLLATE or LANG.
    explicit IcuText(std::string locale = {});
    ~IcuText() override;

    /// Letter case makes no difference, accents do.
    [[nodiscard]] std::weak_ordering compare(std::string_view a, std::string_view b) const override;

    /// Letter case makes no difference, accents do.
    [[nodiscard]] bool contains(std::string_view text, std::string_view part) const override;

    [[nodiscard]] std::string capitalized(std::string_view text) const override;

  private:
    struct Rules;

    std::string locale_;
    mutable std::unique_ptr<Rules> rules_;

    [[nodiscard]] Rules& rules() const;
};

} // namespace calmora
