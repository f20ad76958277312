// SPDX-License-Identifier: MIT
#include "updates/ReleaseReader.h"

#include "support/XmlTags.h"
#include "updates/FeedAddress.h"

#include <QString>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>

namespace calmora {
namespace {

constexpr int deepest = 32;
constexpr std::size_t mostReleases = 1000;
constexpr std::size_t mostElements = 20000;
constexpr qsizetype longestNotes = 8000;

bool isDirectionControl(QChar c) {
    return (c >= QChar(0x202A) && c <= QChar(0x202E)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
}

/// Text on one line, without controls that would affect the text around it.
QString plainLine(QString text) {
    std::replace_if(
        text.begin(), text.end(),
        [](QChar c) { return c.category() == QChar::Other_Control || isDirectionControl(c); },
        QChar(u' '));
    return text.simplified();
}

/// The notes of a release in each wanted language.
class Notes {
  public:
    /// Adds a paragraph or list item. `language` is its index among the wanted languages; one past
    /// the end is the original.
    void add(const QString& text, bool isItem, std::size_t language) {
        Variant& variant = variants_[language];
        if (!variant.text.isEmpty()) {
            variant.text += isItem && variant.endsWithItem ? "\n" : "\n\n";
        }
        variant.text += (isItem ? "• " : "") + text;
        variant.endsWithItem = isItem;
        ++variant.blocks;
    }

    /// The notes in the first language in which nothing is missing; `written` is the original.
    [[nodiscard]] std::string text(std::size_t written) {
        const std::size_t all = variants_[written].blocks;
        for (auto& [language, variant] : variants_) {
            if (variant.blocks >= all) {
                return shortened(variant.text).toStdString();
            }
        }
        return {};
    }

  private:
    struct Variant {
        QString text;
        std::size_t blocks = 0;
        bool endsWithItem = false;
    };

    static QString shortened(const QString& text) {
        return text.size() <= longestNotes ? text : text.left(longestNotes) + QChar(0x2026);
    }

    std::map<std::size_t, Variant> variants_;
};

class Reader {
  public:
    Reader(const QString& xml, const std::vector<std::string>& languages)
        : xml_(xml), languages_(languages) {}

    ReleaseList read() {
        while (next()) {
            if (xml_.isStartElement() && xml_.name() == u"releases" && isInPlace()) {
                hasList_ = true;
                readList();
            }
        }
        if (error_) {
            return *error_;
        }
        if (xml_.hasError() || !hasList_) {
            return UpdateError::unreadable;
        }
        return std::move(releases_);
    }

  private:
    /// Whether the list is the root element or a child of a root <component>.
    [[nodiscard]] bool isInPlace() const { return depth_ == 1 || (depth_ == 2 && isComponent_); }

    /// Advances to the next token; false at the end and if the text is refused.
    bool next() {
        if (error_ || xml_.atEnd()) {
            return false;
        }
        switch (xml_.readNext()) {
        case QXmlStreamReader::StartElement:
            isComponent_ = depth_ == 0 ? xml_.name() == u"component" : isComponent_;
            if (++depth_ > deepest || ++elements_ > mostElements) {
                error_ = UpdateError::unreadable;
            }
            break;
        case QXmlStreamReader::EndElement:
            --depth_;
            break;
        case QXmlStreamReader::EntityReference:
            error_ = UpdateError::unreadable;
            break;
        default:
            break;
        }
        return !error_ && !xml_.hasError();
    }

    [[nodiscard]] QStringView attribute(const char* name) const {
        return xml_.attributes().value(QLatin1StringView(name));
    }

    /// Advances within the element at `level`; false when it has ended.
    bool nextWithin(int level) { return next() && depth_ >= level; }

    /// The text within the current element without markup.
    QString readText() {
        const int level = depth_;
        QString text;
        while (nextWithin(level)) {
            if (xml_.isCharacters()) {
                text += xml_.text();
            }
        }
        return plainLine(text);
    }

    void readList() {
        const int level = depth_;
        while (nextWithin(level)) {
            if (xml_.isStartElement() && xml_.name() == u"release" && depth_ == level + 1) {
                readRelease();
            }
        }
    }

    void readRelease() {
        const int level = depth_;
        Release release;
        release.version = attribute("version").trimmed().toString().toStdString();
        const QStringView type = attribute("type");
        release.isStable = type.isEmpty() || type == u"stable";
        if (!isVersion(release.version)) {
            error_ = UpdateError::version;
        } else if (releases_.size() == mostReleases) {
            error_ = UpdateError::unreadable;
        }
        Notes notes;
        while (nextWithin(level)) {
            if (!xml_.isStartElement() || depth_ != level + 1) {
                continue;
            }
            if (xml_.name() == u"description") {
                readDescription(notes);
            } else if (xml_.name() == u"url" && release.page.empty()) {
                readPage(release);
            }
        }
        release.notes = notes.text(languages_.size());
        releases_.push_back(std::move(release));
    }

    void readPage(Release& release) {
        const QStringView type = attribute("type");
        const bool isDetails = type.isEmpty() || type == u"details";
        const std::string page = readText().toStdString();
        if (isDetails && isWebPage(page)) {
            release.page = page;
        }
    }

    void readDescription(Notes& notes) {
        const int level = depth_;
        const std::size_t whole = language(languages_.size());
        while (nextWithin(level)) {
            const bool isItem = xml_.name() == u"li";
            if (xml_.isStartElement() && (isItem || xml_.name() == u"p")) {
                const std::size_t spoken = language(whole);
                const QString text = readText();
                if (spoken <= languages_.size() && !text.isEmpty()) {
                    notes.add(text, isItem, spoken);
                }
            }
        }
    }

    /// Index of the current element's language among those wanted; `inherited` if it names none,
    /// past the original if it is not wanted.
    [[nodiscard]] std::size_t language(std::size_t inherited) const {
        const QString name = attribute("xml:lang").toString().replace('-', '_');
        if (name.isEmpty()) {
            return inherited;
        }
        const auto found = std::find(languages_.begin(), languages_.end(), name.toStdString());
        return found == languages_.end() ? languages_.size() + 1
                                         : static_cast<std::size_t>(found - languages_.begin());
    }

    QXmlStreamReader xml_;
    const std::vector<std::string>& languages_;
    int depth_ = 0;
    std::size_t elements_ = 0;
    bool isComponent_ = false;
    bool hasList_ = false;
    std::optional<UpdateError> error_;
    std::vector<Release> releases_;
};

} // namespace

ReleaseList readReleases(std::string_view xml, const std::vector<std::string>& languages) {
    if (xml.size() > static_cast<std::size_t>(largestFeed)) {
        return UpdateError::tooLarge;
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(QByteArrayView(xml.data(), static_cast<qsizetype>(xml.size())));
    if (utf8.hasError() || !hasShortTags(xml)) {
        return UpdateError::unreadable;
    }
    return Reader(text, languages).read();
}

} // namespace calmora
