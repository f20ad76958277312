#include "platform/linux/windows/WindowOwner.h"

#include "support/FileDescriptor.h"

#include <array>
#include <charconv>
#include <fcntl.h>

namespace calmora {

namespace {

/// The name up to its first dot is enough where one of the two is given short.
bool sameHost(std::string_view a, std::string_view b) {
    if (a.find('.') != std::string_view::npos && b.find('.') != std::string_view::npos) {
        return a == b;
    }
    return a.substr(0, a.find('.')) == b.substr(0, b.find('.'));
}

} // namespace

std::vector<ProcessId> namespaceIds(ProcessId process) {
    const std::string path = "/proc/" + std::to_string(process) + "/status";
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 4096> buffer{};
    const ssize_t size = file ? ::read(file.get(), buffer.data(), buffer.size()) : 0;
    if (size <= 0) {
        return {};
    }
    std::string_view text(buffer.data(), static_cast<std::size_t>(size));
    const auto at = text.find("\nNSpid:");
    if (at == std::string_view::npos) {
        return {process};
    }
    text = text.substr(at + 7, text.find('\n', at + 1) - at - 7);
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

WindowOwner windowOwner(const OwnerClaims& claims, std::string_view hostName,
                        const NamespaceIds& idsOf) {
    const WindowOwner remote{{}, ProcessCertainty::unknown, true};
    const bool isElsewhere = !claims.machine.empty() && !sameHost(claims.machine, hostName);
    if (!claims.client) {
        if (isElsewhere) {
            return remote;
        }
        if (!claims.property || claims.machine.empty() || idsOf(*claims.property).empty()) {
            return {};
        }
        return {claims.property, ProcessCertainty::claimed, false};
    }
    const WindowOwner client{claims.client, ProcessCertainty::certain, false};
    if (claims.property == claims.client) {
        return client;
    }
    if (!claims.property) {
        return isElsewhere ? remote : client;
    }
    const std::vector<ProcessId> ids = idsOf(*claims.client);
    if (ids.size() > 1) {
        // Inside a sandbox a program knows itself by another id, and perhaps another host name.
        return ids.back() == *claims.property || !isElsewhere ? client : remote;
    }
    if (isElsewhere) {
        return remote;
    }
    const bool propertyLives = !idsOf(*claims.property).empty();
    if (!propertyLives) {
        return client;
    }
    if (ids.empty()) {
        // The process that connected has handed its connection to a child and ended.
        return {claims.property, ProcessCertainty::claimed, false};
    }
    return remote;
}

} // namespace calmora
