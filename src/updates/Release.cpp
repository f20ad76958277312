#include "updates/Release.h"

#include "updates/Version.h"

namespace calmora {

const Release* newestRelease(std::span<const Release> releases) {
    const Release* newest = nullptr;
    for (const Release& release : releases) {
        if (release.isStable &&
            (!newest || compareVersions(release.version, newest->version) > 0)) {
            newest = &release;
        }
    }
    return newest;
}

} // namespace calmora
