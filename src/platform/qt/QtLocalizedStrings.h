#pragma once

#include "platform/LocalizedStrings.h"

#include <QLocale>
#include <QTranslator>

namespace calmora {

/// Which Qt Linguist tables to read: files "name_language", in which the texts stand under a
/// context.
struct StringCatalogue {
    const char* name = "calmora";
    const char* context = "Calmora";
};

/// The tables of the shortcut module.
inline constexpr StringCatalogue keyboardShortcutsCatalogue{"keyboardshortcuts",
                                                            "KeyboardShortcuts"};

/// The texts of one catalogue from its Qt Linguist tables. The English table always answers (it
/// holds the symbolic keys and the plural forms); the table of the user's language lies on top of
/// it where there is one. Views get the same texts by QCoreApplication::translate(context, key), in
/// the main thread, for as long as this object lives.
class QtLocalizedStrings final : public LocalizedStrings {
  public:
    /// Needs the QCoreApplication.
    explicit QtLocalizedStrings(const QLocale& locale = QLocale(), StringCatalogue catalogue = {});

    ~QtLocalizedStrings() override;

    [[nodiscard]] std::string text(std::string_view key,
                                   std::optional<std::int64_t> count = {}) const override;

  private:
    StringCatalogue catalogue_;
    QTranslator english_;
    QTranslator local_;
};

} // namespace calmora
