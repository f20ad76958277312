// SPDX-License-Identifier: MIT
#include "platform/wayland/SocketClients.h"

#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/xdg/ExecKey.h"
#include "support/FileDescriptor.h"
#include "support/Owned.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <dirent.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <linux/sock_diag.h>
#include <linux/unix_diag.h>
#include <map>
#include <netinet/tcp.h>
#include <optional>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {
namespace {

constexpr std::size_t mostProcesses = 4096;
/// The kernel answers at once.
constexpr timeval answerTime{0, 500'000};

/// The inode of a client's end of each connection, with the processes that hold it.
using Holders = std::map<std::uint32_t, std::vector<ProcessId>>;

using Folder = Owned<DIR, ::closedir>;

/// Adds the connection that a message is about if its server has the address `path`.
void addConnection(const nlmsghdr& header, const std::string& path, Holders& holders) {
    const auto* bytes = reinterpret_cast<const char*>(&header);
    const auto* end = bytes + header.nlmsg_len;
    bytes += std::min<std::size_t>(NLMSG_LENGTH(sizeof(unix_diag_msg)), header.nlmsg_len);
    std::string_view name;
    std::uint32_t peer = 0;
    rtattr attribute{};
    while (end - bytes >= std::ptrdiff_t(sizeof attribute)) {
        std::memcpy(&attribute, bytes, sizeof attribute);
        if (attribute.rta_len < sizeof attribute || attribute.rta_len > end - bytes) {
            return;
        }
        const std::string_view value(bytes + sizeof attribute,
                                     attribute.rta_len - sizeof attribute);
        if (attribute.rta_type == UNIX_DIAG_NAME) {
            name = value.substr(0, value.find('\0', 1));
        } else if (attribute.rta_type == UNIX_DIAG_PEER && value.size() >= sizeof peer) {
            std::memcpy(&peer, value.data(), sizeof peer);
        }
        bytes += std::min<std::ptrdiff_t>(RTA_ALIGN(attribute.rta_len), end - bytes);
    }
    if (name == path && peer != 0) {
        holders.try_emplace(peer);
    }
}

/// The connections that were accepted at `path`, without holders.
Holders connectionsTo(const std::string& path) {
    struct {
        nlmsghdr header;
        unix_diag_req request;
    } message{};

    message.header.nlmsg_len = sizeof message;
    message.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    message.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    message.request.sdiag_family = AF_UNIX;
    message.request.udiag_states = 1U << TCP_ESTABLISHED;
    message.request.udiag_show = UDIAG_SHOW_NAME | UDIAG_SHOW_PEER;
    const FileDescriptor kernel(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG));
    Holders holders;
    if (!kernel ||
        ::setsockopt(kernel.get(), SOL_SOCKET, SO_RCVTIMEO, &answerTime, sizeof answerTime) != 0 ||
        ::send(kernel.get(), &message, sizeof message, 0) != ssize_t(sizeof message)) {
        return holders;
    }
    alignas(nlmsghdr) std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t size = ::recv(kernel.get(), buffer.data(), buffer.size(), 0);
        if (size <= 0) {
            return holders;
        }
        auto left = static_cast<std::uint32_t>(size);
        for (auto* header = reinterpret_cast<const nlmsghdr*>(buffer.data());
             NLMSG_OK(header, left);) {
            if (header->nlmsg_type == NLMSG_DONE || header->nlmsg_type == NLMSG_ERROR) {
                return holders;
            }
            addConnection(*header, path, holders);
            const std::uint32_t step = std::min(NLMSG_ALIGN(header->nlmsg_len), left);
            left -= step;
            header =
                reinterpret_cast<const nlmsghdr*>(reinterpret_cast<const char*>(header) + step);
        }
    }
}

/// The number of a link to "socket:[123]"; absent for other files.
std::optional<std::uint32_t> socketInode(int folder, const char* name) {
    constexpr std::string_view start = "socket:[";
    std::array<char, 64> target{};
    const ssize_t size = ::readlinkat(folder, name, target.data(), target.size());
    std::string_view text(target.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    std::uint32_t inode = 0;
    if (!text.starts_with(start)) {
        return std::nullopt;
    }
    text.remove_prefix(start.size());
    const auto error = std::from_chars(text.data(), text.data() + text.size(), inode).ec;
    return error == std::errc() ? std::optional(inode) : std::nullopt;
}

/// Notes which of the connections the process holds; false where that may not be seen.
bool addHolder(ProcessId process, Holders& holders) {
    const Folder files(::opendir(("/proc/" + std::to_string(process) + "/fd").c_str()));
    while (const dirent* file = files ? ::readdir(files.get()) : nullptr) {
        const auto inode = socketInode(::dirfd(files.get()), file->d_name);
        const auto found = inode ? holders.find(*inode) : holders.end();
        if (found != holders.end()) {
            found->second.push_back(process);
        }
    }
    return files != nullptr;
}

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

} // namespace

std::vector<SocketClient> socketClients(const std::string& path, const ProcessReader& reader) {
    Holders holders = connectionsTo(path);
    std::vector<ProcessId> hidden;
    if (!holders.empty()) {
        for (const ProcessId process : reader.processesOf(::getuid(), mostProcesses)) {
            if (!addHolder(process, holders)) {
                hidden.push_back(process);
            }
        }
    }
    std::vector<ProcessId> processes;
    const auto startTime = [&](ProcessId process) {
        const auto stat = reader.stat(process);
        return stat ? stat->startTime : std::uint64_t(-1);
    };
    bool isComplete = true;
    for (const auto& [inode, sharers] : holders) {
        if (sharers.empty()) {
            isComplete = false;
        } else {
            processes.push_back(*std::ranges::min_element(sharers, {}, startTime));
        }
    }
    if (!isComplete) {
        processes.insert(processes.end(), hidden.begin(), hidden.end());
    }
    std::ranges::sort(processes);
    processes.erase(std::unique(processes.begin(), processes.end()), processes.end());
    std::vector<SocketClient> clients;
    clients.reserve(processes.size());
    for (const ProcessId process : processes) {
        clients.push_back({process,
                           programNames(reader.comm(process), reader.executable(process),
                                        reader.commandLine(process)),
                           desktopIdsOfCgroup(reader.controlGroup(process))});
    }
    return clients;
}

std::vector<std::string> programNames(const std::string& name,
                                      const std::optional<std::string>& executable,
                                      const std::vector<std::string>& commandLine) {
    std::vector<std::string> names{lowerCase(isInterpreter(name) ? "" : name),
                                   lowerCase(programKey(executable.value_or(""))),
                                   lowerCase(keyOf(commandOfProcess(commandLine, executable)))};
    std::erase(names, "");
    return names;
}

std::vector<ProcessId> clientsCalled(std::span<const std::string> programs,
                                     std::span<const SocketClient> clients) {
    std::vector<ProcessId> result;
    for (const SocketClient& client : clients) {
        if (std::ranges::find_first_of(client.names, programs) != client.names.end()) {
            result.push_back(client.process);
        }
    }
    return result;
}

} // namespace calmora
