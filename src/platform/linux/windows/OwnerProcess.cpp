// SPDX-License-Identifier: MIT
#include "platform/linux/windows/OwnerProcess.h"

#include "platform/linux/proc/ProcessReader.h"
#include "support/TextHelpers.h"

#include <memory>
#include <unistd.h>

namespace calmora {

namespace {

std::optional<OwnerProcess> ownerProcess(const ProcessReader& reader, ProcessId process) {
    const auto stat = reader.stat(process);
    const auto status = reader.status(process);
    if (!stat || stat->isGone() || !status) {
        return {};
    }
    OwnerProcess owner{
        status->namespaceIds, stat->startTime, status->realUser == ::getuid(), {stat->comm}};
    if (owner.ids.empty()) {
        owner.ids = {process};
    }
    if (const auto program = reader.executable(process)) {
        owner.names.emplace_back(baseName(*program));
    }
    return owner;
}

} // namespace

OwnerLookup ownersFromKernel() {
    const auto reader = std::make_shared<const ProcessReader>();
    return {[reader](ProcessId process) { return reader->startTime(process); },
            [reader](ProcessId process) { return ownerProcess(*reader, process); }};
}

} // namespace calmora
