#pragma once

#include "platform/LocalizedStrings.h"

#include <QLocale>
#include <QTranslator>

namespace calmora {

/// Which Qt Linguist tables to read: files "name_language" of a folder, in which the texts stand
/// under a context.
struct StringCatalogue {
    QString name = "calmora";
    const char* context = "Calmora";
    QString folder = ":/calmora/translations";
};

/// The tables of the shortcut module.
[[nodiscard]] StringCatalogue keyboardShortcutsCatalogue();

/// Qt's own tables, for what its widgets say by themselves; not every system has them installed.
[[nodiscard]] StringCatalogue toolkitCatalogue();

/// The texts of one catalogue from its Qt Linguist tables. The English table always answers (it
/// holds the symbolic keys and the plural forms); on top of it lies the table of the first language
/// that the locale asks for and that there is one of. LANGUAGE, LC_MESSAGES and LANG say which
/// languages the user wants: locale(7), QLocale::uiLanguages(). Views get the same texts by
/// QCoreApplication::translate(context, key), in the main thread, for as long as this object lives.
class QtLocalizedStrings final : public LocalizedStrings {
  public:
    /// Needs the QCoreApplication. The default is the locale of the user.
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
