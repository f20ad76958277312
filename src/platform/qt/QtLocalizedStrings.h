// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LocalizedStrings.h"

#include <QLocale>
#include <QTranslator>

namespace calmora {

/// The program's texts from its Qt Linguist tables, and with them Qt's own in the same language
/// where the system has them. The English table is the fallback: it has the symbolic keys and the
/// plural forms. Before it comes the table of the first language that the user wants and that
/// exists (LANGUAGE, LC_MESSAGES and LANG; see locale(7) and QLocale::uiLanguages()). For as long
/// as this object lives, uiText() and uiCount() give views the same texts. Main thread.
class QtLocalizedStrings final : public LocalizedStrings {
  public:
    /// Needs the QCoreApplication. The default is the locale of the user.
    explicit QtLocalizedStrings(const QLocale& locale = QLocale());

    ~QtLocalizedStrings() override;

    [[nodiscard]] std::string text(std::string_view key,
                                   std::optional<std::int64_t> count = {}) const override;

  private:
    QTranslator toolkit_;
    QTranslator english_;
    QTranslator local_;
};

} // namespace calmora
