// SPDX-License-Identifier: MIT
#pragma once

#include "updates/Release.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace calmora {

class RunLoop;

/// The user's languages before English, which notes are written in: such as "de_DE", "de".
[[nodiscard]] std::vector<std::string> releaseLanguages();

/// Releases from an AppStream file at an address. A program of its own transfers them.
class FeedSource final : public ReleaseSource {
  public:
    /// `program` is calmora_fetch; `languages` are those of readReleases(). The loop must outlive
    /// this object and its tokens.
    FeedSource(std::string address, std::filesystem::path program,
               std::vector<std::string> languages, RunLoop& runLoop);

    [[nodiscard]] Subscription fetch(std::function<void(const ReleaseList&)> done) override;

  private:
    std::string address_;
    std::filesystem::path program_;
    std::vector<std::string> languages_;
    RunLoop& runLoop_;
};

} // namespace calmora
