#include "autoquit/LinuxAnnex.h"

#include "autoquit/AnnexCautious.h"
#include "autoquit/AnnexNeverQuit.h"
#include "autoquit/AnnexSafeToQuit.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

constexpr auto byIdentifier = [] {
    std::array<AnnexEntry, annexNeverQuit.size() + annexCautious.size() + annexSafeToQuit.size()>
        all{};
    auto at = all.begin();
    const auto add = [&at](std::span<const std::string_view> identifiers, IdleBehavior behavior) {
        for (const std::string_view identifier : identifiers) {
            *at++ = {identifier, behavior};
        }
    };
    add(annexNeverQuit, IdleBehavior::neverQuit);
    add(annexCautious, IdleBehavior::cautious);
    add(annexSafeToQuit, IdleBehavior::safeToQuit);
    std::ranges::sort(all, {}, &AnnexEntry::identifier);
    return all;
}();

static_assert(std::ranges::adjacent_find(byIdentifier, {}, &AnnexEntry::identifier) ==
                  byIdentifier.end(),
              "an identifier is listed twice");

} // namespace

std::span<const AnnexEntry> linuxAnnex() {
    return byIdentifier;
}

std::optional<IdleBehavior> annexBehavior(std::string_view identifier) {
    const auto found =
        std::ranges::lower_bound(byIdentifier, identifier, {}, &AnnexEntry::identifier);
    if (found == byIdentifier.end() || found->identifier != identifier) {
        return std::nullopt;
    }
    return found->idleBehavior;
}

} // namespace calmora
