#include "platform/qt/QtLocalizedStrings.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

// A resource in a static library has to be asked for, from outside every namespace.
static void loadTables() {
    Q_INIT_RESOURCE(translations);
}

namespace calmora {

namespace {

constexpr const char* folder = ":/calmora/translations";

} // namespace

QtLocalizedStrings::QtLocalizedStrings(const QLocale& locale, StringCatalogue catalogue)
    : catalogue_(catalogue) {
    loadTables();
    if (english_.load(QString(catalogue.name) + "_en", folder)) {
        QCoreApplication::installTranslator(&english_);
    }
    // The translator that was installed last is asked first.
    if (locale.language() != QLocale::English && local_.load(locale, catalogue.name, "_", folder)) {
        QCoreApplication::installTranslator(&local_);
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
