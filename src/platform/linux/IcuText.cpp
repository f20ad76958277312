// SPDX-License-Identifier: MIT
#include "platform/linux/IcuText.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <unicode/brkiter.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>
#include <unicode/unistr.h>

namespace calmora {

namespace {

/// The locale for sorting, by the rules of setlocale(3).
std::string collationLocale() {
    for (const char* name : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        if (const char* value = std::getenv(name); value && *value != '\0') {
            return value;
        }
    }
    return {};
}

icu::Locale icuLocale(const std::string& name) {
    // The plain locales have no language.
    if (name.empty() || name == "C" || name == "POSIX" || name.starts_with("C.")) {
        return icu::Locale::getRoot();
    }
    icu::Locale locale = icu::Locale::createCanonical(name.c_str());
    return locale.isBogus() ? icu::Locale::getRoot() : locale;
}

icu::StringPiece pieceOf(std::string_view text) {
    return {text.data(), static_cast<int32_t>(text.size())};
}

icu::UnicodeString unicode(std::string_view text) {
    return icu::UnicodeString::fromUTF8(pieceOf(text));
}

std::weak_ordering ordering(int order) {
    return order < 0   ? std::weak_ordering::less
           : order > 0 ? std::weak_ordering::greater
                       : std::weak_ordering::equivalent;
}

} // namespace

struct IcuText::Rules {
    icu::Locale locale;
    /// Turkic languages have an i with a dot and one without, each with its own capital.
    std::uint32_t folding = U_FOLD_CASE_DEFAULT;
    /// Null if ICU has no data; texts are then case-folded and compared by code point.
    std::unique_ptr<icu::Collator> collator;
    /// Created by the first search; keeps its text and pattern.
    std::unique_ptr<icu::StringSearch> search;
    icu::UnicodeString pattern;
};

IcuText::IcuText(std::string locale)
    : locale_(locale.empty() ? collationLocale() : std::move(locale)) {}

IcuText::~IcuText() = default;

IcuText::Rules& IcuText::rules() const {
    if (!rules_) {
        rules_ = std::make_unique<Rules>();
        rules_->locale = icuLocale(locale_);
        const std::string_view language = rules_->locale.getLanguage();
        if (language == "tr" || language == "az") {
            rules_->folding = U_FOLD_CASE_EXCLUDE_SPECIAL_I;
        }
        UErrorCode error = U_ZERO_ERROR;
        rules_->collator.reset(icu::Collator::createInstance(rules_->locale, error));
        if (U_FAILURE(error)) {
            rules_->collator.reset();
        }
        if (rules_->collator) {
            // Base letters and accents count, letter case does not.
            rules_->collator->setStrength(icu::Collator::SECONDARY);
        }
    }
    return *rules_;
}

std::weak_ordering IcuText::compare(std::string_view a, std::string_view b) const {
    const Rules& its = rules();
    if (!its.collator) {
        return ordering(unicode(a).caseCompare(unicode(b), its.folding));
    }
    UErrorCode error = U_ZERO_ERROR;
    const UCollationResult result = its.collator->compareUTF8(pieceOf(a), pieceOf(b), error);
    return U_SUCCESS(error) ? ordering(result) : ordering(a.compare(b));
}

bool IcuText::contains(std::string_view text, std::string_view part) const {
    if (part.empty()) {
        return true;
    }
    Rules& its = rules();
    const icu::UnicodeString within = unicode(text);
    const icu::UnicodeString wanted = unicode(part);
    if (within.isEmpty()) {
        return false;
    }
    // A collator takes some pairs of letters as one, such as "ch" in Czech, and finds no part of
    // them. It finds what differs in more than letter case, such as accents written in another way.
    icu::UnicodeString folded = within;
    icu::UnicodeString foldedPart = wanted;
    if (folded.foldCase(its.folding).indexOf(foldedPart.foldCase(its.folding)) >= 0) {
        return true;
    }
    auto* collator = dynamic_cast<icu::RuleBasedCollator*>(its.collator.get());
    UErrorCode error = U_ZERO_ERROR;
    if (collator) {
        if (!its.search) {
            its.search =
                std::make_unique<icu::StringSearch>(wanted, within, collator, nullptr, error);
            its.pattern = wanted;
        } else {
            if (its.pattern != wanted) {
                its.search->setPattern(wanted, error);
                its.pattern = wanted;
            }
            its.search->setText(within, error);
        }
        const bool isFound = U_SUCCESS(error) && its.search->first(error) != USEARCH_DONE;
        if (U_SUCCESS(error)) {
            return isFound;
        }
        its.search.reset();
    }
    return false;
}

std::string IcuText::capitalized(std::string_view text) const {
    icu::UnicodeString title = unicode(text);
    title.toTitle(nullptr, rules().locale);
    std::string result;
    title.toUTF8String(result);
    return result;
}

} // namespace calmora
