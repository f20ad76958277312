// SPDX-License-Identifier: MIT
#include "platform/linux/identity/StartedProgram.h"
#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/xdg/ExecKey.h"

#include <cstdint>

using namespace calmora;

/// The files that a process, or the sandbox around it, may fill with anything.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(parseStat(text));
    static_cast<void>(parseStatus(text));
    static_cast<void>(parseStatmAnonymousPages(text));
    static_cast<void>(parseLoadavg(text));
    static_cast<void>(parseLaunchEnvironment(text));
    static_cast<void>(displayOf(text));
    if (const auto sandbox = parseFlatpakInfo(text)) {
        static_cast<void>(flatpakFolder(*sandbox));
    }
    const std::string group = parseCgroup(text);
    static_cast<void>(desktopIdsOfCgroup(group));
    static_cast<void>(snapOfCgroup(group));
    ProcessDetails process;
    process.commandLine = parseCommandLine(text);
    static_cast<void>(startedProgram(process));
    if (!process.commandLine.empty()) {
        process.executable = process.commandLine.front();
        static_cast<void>(startedProgram(process));
    }
    static_cast<void>(javaProgramOf(process.commandLine));
    static_cast<void>(assignmentIn(process.commandLine, "X"));
    return 0;
}
