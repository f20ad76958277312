#include "platform/qt/QtLocalizedStrings.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>

#include <algorithm>
#include <limits>
#include <utility>

// A resource in a static library has to be asked for, from outside every namespace.
static void loadTables() {
    Q_INIT_RESOURCE(translations);
}

namespace calmora {

namespace {

/// The language in the name of a table; empty where there can be none.
QString tableLanguage(const QLocale& locale) {
    if (locale.language() != QLocale::Chinese) {
        return QLocale::languageToCode(locale.language());
    }
    // Who reads the one script need not read the other.
    return locale.script() == QLocale::SimplifiedHanScript ? "zh_CN" : QString();
}

/// The first wanted language that the catalogue has a table of; English if it comes first.
QString chosenLanguage(const StringCatalogue& catalogue, const QStringList& wanted) {
    for (const QString& tag : wanted) {
        const QString language = tableLanguage(QLocale(tag));
        if (language == "en" ||
            QFile::exists(catalogue.folder + u'/' + catalogue.name + u'_' + language + ".qm")) {
            return language;
        }
    }
    return "en";
}

} // namespace

StringCatalogue keyboardShortcutsCatalogue() {
    return {"keyboardshortcuts", "KeyboardShortcuts"};
}

StringCatalogue toolkitCatalogue() {
    return {"qtbase", "", QLibraryInfo::path(QLibraryInfo::TranslationsPath)};
}

QtLocalizedStrings::QtLocalizedStrings(const QLocale& locale, StringCatalogue catalogue)
    : catalogue_(std::move(catalogue)) {
    loadTables();
    const auto install = [this](QTranslator& translator, const QString& language) {
        if (translator.load(catalogue_.name + u'_' + language, catalogue_.folder)) {
            QCoreApplication::installTranslator(&translator);
        }
    };
    install(english_, "en");
    // The translator that was installed last is asked first.
    if (const QString language = chosenLanguage(catalogue_, locale.uiLanguages());
        language != "en") {
        install(local_, language);
    }
}

QtLocalizedStrings::~QtLocalizedStrings() {
    QCoreApplication::removeTranslator(&local_);
    QCoreApplication::removeTranslator(&english_);
}

std::string QtLocalizedStrings::text(std::string_view key,
                                     std::optional<std::int64_t> count) const {
    const std::string source(key);
    const auto translated = [this, &source](int number) {
        return QCoreApplication::translate(catalogue_.context, source.c_str(), nullptr, number)
            .toStdString();
    };
    if (count) {
        // Beyond an int the plural form no longer changes; a negative number has the form of 0.
        const std::string text = translated(
            static_cast<int>(std::clamp<std::int64_t>(*count, 0, std::numeric_limits<int>::max())));
        if (text != source) {
            return text;
        }
    }
    return translated(-1);
}

} // namespace calmora
