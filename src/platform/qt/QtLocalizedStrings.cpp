// SPDX-License-Identifier: MIT
#include "platform/qt/QtLocalizedStrings.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>

#include <algorithm>
#include <limits>

// A resource in a static library must be initialized, outside every namespace.
static void loadTables() {
    Q_INIT_RESOURCE(translations);
}

namespace calmora {
namespace {

constexpr const char* folder = ":/calmora/translations";

/// The language in the name of a table; empty where there can be none.
QString tableLanguage(const QLocale& locale) {
    if (locale.language() != QLocale::Chinese) {
        return QLocale::languageToCode(locale.language());
    }
    // Readers of one script need not read the other.
    return locale.script() == QLocale::SimplifiedHanScript ? "zh_CN" : QString();
}

/// The first wanted language that there is a table of, else English.
QString chosenLanguage(const QStringList& wanted) {
    for (const QString& tag : wanted) {
        const QString language = tableLanguage(QLocale(tag));
        if (QFile::exists(QString("%1/calmora_%2.qm").arg(folder, language))) {
            return language;
        }
    }
    return "en";
}

/// The translator that was installed last is asked first.
void install(QTranslator& translator, const QString& table, const QString& from = folder) {
    if (translator.load(table, from)) {
        QCoreApplication::installTranslator(&translator);
    }
}

} // namespace

QtLocalizedStrings::QtLocalizedStrings(const QLocale& locale) {
    loadTables();
    const QString language = chosenLanguage(locale.uiLanguages());
    install(toolkit_, "qtbase_" + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(english_, "calmora_en");
    if (language != "en") {
        install(local_, "calmora_" + language);
    }
}

QtLocalizedStrings::~QtLocalizedStrings() {
    for (QTranslator* translator : {&local_, &english_, &toolkit_}) {
        QCoreApplication::removeTranslator(translator);
    }
}

std::string QtLocalizedStrings::text(std::string_view key,
                                     std::optional<std::int64_t> count) const {
    // Beyond an int the plural form no longer changes; a negative number has the form of 0.
    const auto number = std::clamp<std::int64_t>(count.value_or(-1), count ? 0 : -1,
                                                 std::numeric_limits<int>::max());
    return QCoreApplication::translate("Calmora", std::string(key).c_str(), nullptr,
                                       static_cast<int>(number))
        .toStdString();
}

} // namespace calmora
