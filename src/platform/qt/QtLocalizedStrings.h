#pragma once

#include "platform/LocalizedStrings.h"

#include <QLocale>
#include <QTranslator>

namespace calmora {

/// The program's texts from its Qt Linguist tables. The English table always answers (it holds
/// the symbolic keys and the plural forms); the table of the user's language lies on top of it
/// where there is one.
/// Views get the same texts by QCoreApplication::translate("Calmora", key), in the main thread,
/// for as long as this object lives.
class QtLocalizedStrings final : public LocalizedStrings {
  public:
    /// Needs the QCoreApplication.
    explicit QtLocalizedStrings(const QLocale& locale = QLocale());

    ~QtLocalizedStrings() override;

    [[nodiscard]] std::string text(std::string_view key,
                                   std::optional<std::int64_t> count = {}) const override;

  private:
    QTranslator english_;
    QTranslator local_;
};

} // namespace calmora
