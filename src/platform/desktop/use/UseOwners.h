// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

class ProcessReader;

/// Whether a name by which an application calls itself, such as "Firefox", "org.mozilla.firefox" or
/// "/usr/lib/firefox/firefox", may mean one that is known as `known`. Letters' case, spaces and
/// hyphens do not count, nor does what stands before the last dot of one of the two.
[[nodiscard]] bool mayMean(std::string_view name, std::string_view known);

/// Finds the processes behind what servers tell of their clients. Where that is not certain it
/// gives rather too many.
class UseOwners {
  public:
    /// The reader must outlive this object.
    UseOwners(const ProcessReader& reader, std::function<ApplicationSnapshot()> running);

    /// The process of a connection, and behind the proxy of a flatpak the application in it.
    [[nodiscard]] std::vector<ProcessId> behind(ProcessId peer) const;

    /// The processes of the running applications that may be meant by a name; none for no name.
    [[nodiscard]] std::vector<ProcessId> called(std::string_view name) const;

    /// The processes that may call themselves so: with this id in their own pid namespace, and
    /// running a program of this file name. Without a name, or with one that none has, all with the
    /// id. Reads every process of ours unless the id is that of such a program here.
    [[nodiscard]] std::vector<ProcessId> calling(ProcessId ownId, std::string_view program) const;

  private:
    [[nodiscard]] bool runs(ProcessId process, std::string_view program) const;

    const ProcessReader& reader_;
    std::function<ApplicationSnapshot()> running_;
};

} // namespace calmora
