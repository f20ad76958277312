#pragma once

#include "platform/ProcessId.h"

#include <filesystem>
#include <optional>
#include <string>

namespace calmora {

/// A running application that can be asked to quit. Held only during one quit operation.
class RunningApplication {
  public:
    virtual ~RunningApplication() = default;

    /// The identifier by which the workspace finds the application's instances; absent if unknown.
    /// It may be narrower than the identifier in the list, which several installed programs can
    /// share.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;

    /// A path that contains this application's executables and no others. Text, because it is
    /// compared as a plain prefix: a closing slash matters.
    [[nodiscard]] virtual std::optional<std::string> bundleURL() const = 0;

    /// The application's executable; absent if it may not be read.
    [[nodiscard]] virtual std::optional<std::filesystem::path> executableURL() const = 0;

    /// The application's process.
    [[nodiscard]] virtual ProcessId processIdentifier() const = 0;

    /// Whether the process is gone.
    [[nodiscard]] virtual bool isTerminated() const = 0;

    /// Asks the application to quit as its own Quit command would. True means that a request was
    /// sent, not that the application is gone.
    virtual bool terminate() = 0;

    /// Ends the application without asking. True means that the request was delivered.
    virtual bool forceTerminate() = 0;
};

} // namespace calmora
