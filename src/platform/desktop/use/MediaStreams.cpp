// SPDX-License-Identifier: MIT
#include "platform/desktop/use/MediaStreams.h"

#include "platform/desktop/use/UseOwners.h"
#include "platform/desktop/use/UseReading.h"
#include "support/LoadedLibrary.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <dlfcn.h>
#include <fstream>
#include <memory>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace calmora {
namespace {

std::string_view textOf(const MediaStream& stream, const std::string& key) {
    const auto found = stream.properties.find(key);
    return found == stream.properties.end() ? std::string_view() : found->second;
}

ProcessId processIn(const MediaStream& stream, const std::string& key) {
    const std::string_view text = textOf(stream, key);
    ProcessId process = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), process);
    return error == std::errc() && end == text.data() + text.size() && process > 0 ? process : 0;
}

UseKind kindOf(MediaStream::Kind kind) {
    switch (kind) {
    case MediaStream::Kind::playsSound:
        return UseKind::playsSound;
    case MediaStream::Kind::recordsSound:
        return UseKind::recordsSound;
    case MediaStream::Kind::receivesPictures:
        break;
    }
    return UseKind::sharesScreen;
}

/// Clients without a machine id say the name in its place, or only the name.
bool isFrom(const MediaStream& stream, const HostNames& host) {
    if (const auto id = textOf(stream, "application.process.machine_id"); !id.empty()) {
        return id == host.machineId || id == host.name;
    }
    const auto name = textOf(stream, "application.process.host");
    return name.empty() || name == host.name;
}

struct Library {
    const char* name;
    /// What it uses and does not name, so that the package need not depend on it.
    const char* needed;
};

constexpr std::array libraries{Library{"pulse", "libpulse.so.0"},
                               Library{"pipewire", "libpipewire-0.3.so.0"}};

void readFrom(const Library& library, UseReading& reading, const UseOwners& owners,
              const char* applicationName) {
    if (::dlopen(library.needed, RTLD_NOW | RTLD_GLOBAL) == nullptr) {
        return;
    }
    auto* open = functionIn<OpenStreamServer>(loadedLibrary(library.name), openStreamServerName);
    if (open == nullptr) {
        return;
    }
    const std::shared_ptr<StreamServer> server(open(applicationName));
    reading.repeat([&reading, &owners, server] {
        const auto state = server->proceed();
        if (state != StreamServer::State::done) {
            return state == StreamServer::State::absent;
        }
        const HostNames host = HostNames::ours();
        // Many streams of one program need one search.
        std::vector<StreamUse> uses;
        for (const MediaStream& stream : server->streams()) {
            const auto use = useOf(stream, host);
            if (use && std::ranges::find(uses, *use) == uses.end()) {
                uses.push_back(*use);
            }
        }
        for (const StreamUse& use : uses) {
            if (use.ownId != 0) {
                reading.add(owners.calling(use.ownId, use.program), use.kind);
            }
            reading.add(std::array{use.peer}, use.kind);
        }
        return true;
    });
}

} // namespace

HostNames HostNames::ours() {
    HostNames host;
    std::array<char, 256> name{};
    if (::gethostname(name.data(), name.size() - 1) == 0) {
        host.name = name.data();
    }
    for (const char* file : {"/etc/machine-id", "/var/lib/dbus/machine-id"}) {
        if (host.machineId.empty()) {
            std::getline(std::ifstream(file) >> std::ws, host.machineId);
        }
    }
    return host;
}

std::optional<StreamUse> useOf(const MediaStream& stream, const HostNames& host) {
    if (stream.isPaused || stream.isPeakMeter || textOf(stream, "stream.monitor") == "true" ||
        !isFrom(stream, host)) {
        return std::nullopt;
    }
    StreamUse use{.kind = kindOf(stream.kind),
                  .ownId = processIn(stream, "application.process.id"),
                  .program = std::string(textOf(stream, "application.process.binary"))};
    // PipeWire's server for PulseAudio's clients is itself the peer of theirs.
    if (textOf(stream, "client.api") != "pipewire-pulse") {
        use.peer = processIn(stream, "pipewire.sec.pid");
    }
    return use.ownId != 0 || use.peer != 0 ? std::optional(use) : std::nullopt;
}

void readStreams(UseReading& reading, const UseOwners& owners, const char* applicationName) {
    for (const Library& library : libraries) {
        readFrom(library, reading, owners, applicationName);
    }
}

} // namespace calmora
