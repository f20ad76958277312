#include "platform/linux/windows/OwnerProcess.h"

#include "platform/linux/proc/ProcessReader.h"

#include <array>
#include <charconv>
#include <ctime>
#include <memory>
#include <string_view>
#include <unistd.h>

namespace calmora {

namespace {

std::string statusText(const ProcessReader& reader, ProcessId process) {
    const FileDescriptor file = reader.open(process, "status");
    std::array<char, 4096> buffer{};
    const ssize_t size = file ? ::read(file.get(), buffer.data(), buffer.size()) : 0;
    return size > 0 ? std::string(buffer.data(), static_cast<std::size_t>(size)) : std::string();
}

/// The numbers of the line NSpid; the process alone where the kernel writes no such line.
std::vector<ProcessId> namespaceIds(std::string_view status, ProcessId process) {
    const auto at = status.find("\nNSpid:");
    if (at == std::string_view::npos) {
        return {process};
    }
    std::string_view text = status.substr(at + 7, status.find('\n', at + 1) - at - 7);
    std::vector<ProcessId> ids;
    while (!text.empty()) {
        ProcessId id = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
        if (error == std::errc()) {
            ids.push_back(id);
            text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        } else {
            text.remove_prefix(1);
        }
    }
    return ids;
}

std::optional<OwnerProcess> ownerProcess(const ProcessReader& reader, ProcessId process) {
    const auto stat = reader.stat(process);
    const std::string text = statusText(reader, process);
    const auto status = parseStatus(text);
    if (!stat || stat->isGone() || !status) {
        return {};
    }
    OwnerProcess owner{
        namespaceIds(text, process), stat->startTime, status->realUser == ::getuid(), {stat->comm}};
    if (const auto program = reader.executable(process)) {
        owner.names.push_back(program->substr(program->rfind('/') + 1));
    }
    return owner;
}

} // namespace

OwnerLookup ownersFromKernel() {
    return [reader = std::make_shared<const ProcessReader>()](ProcessId process) {
        return ownerProcess(*reader, process);
    };
}

std::uint64_t ticksNow() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    const auto second = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
    return static_cast<std::uint64_t>(now.tv_sec) * second +
           static_cast<std::uint64_t>(now.tv_nsec) * second / 1'000'000'000U;
}

} // namespace calmora
