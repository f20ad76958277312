// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace calmora {

/// The environment variables that this program sets for Qt alone, which reads some of them late.
class QtEnvironment {
  public:
    /// Chooses the window system of this session and sets the variables. Before the QApplication.
    QtEnvironment();

    /// Runs `action` with the environment that this program was started with: for what starts other
    /// programs.
    void runWithoutIt(const std::function<void()>& action) const;

  private:
    std::map<std::string, std::string> set_;
    /// The values that the user had given to the same variables.
    std::map<std::string, std::optional<std::string>> before_;
};

} // namespace calmora
