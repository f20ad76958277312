#include "autoquit/catalogue/LinuxAnnex.h"

#include "autoquit/catalogue/AnnexCautious.h"
#include "autoquit/catalogue/AnnexNeverQuit.h"
#include "autoquit/catalogue/AnnexSafeToQuit.h"

#include <algorithm>

namespace calmora {
namespace {

using Identifiers = std::span<const std::string_view>;

constexpr bool isListed(std::span<const Identifiers> subjects, std::string_view identifier) {
    return std::ranges::any_of(subjects, [identifier](Identifiers identifiers) {
        return std::ranges::binary_search(identifiers, identifier);
    });
}

constexpr bool areSorted(std::span<const Identifiers> subjects) {
    return std::ranges::all_of(
        subjects, [](Identifiers identifiers) { return std::ranges::is_sorted(identifiers); });
}

static_assert(areSorted(annexNeverQuit) && areSorted(annexCautious) && areSorted(annexSafeToQuit));

} // namespace

std::optional<IdleBehavior> annexBehavior(std::string_view identifier) {
    if (isListed(annexNeverQuit, identifier)) {
        return IdleBehavior::neverQuit;
    }
    if (isListed(annexCautious, identifier)) {
        return IdleBehavior::cautious;
    }
    if (isListed(annexSafeToQuit, identifier)) {
        return IdleBehavior::safeToQuit;
    }
    return std::nullopt;
}

} // namespace calmora
