#pragma once

#include "fakes/LookUp.h"
#include "platform/Bundle.h"

#include <map>

namespace calmora {

/// An installation in memory.
class FakeBundle final : public Bundle {
  public:
    std::optional<std::string> bundleIdentifier() const override { return identifier; }

    std::optional<std::string> shortVersion() const override { return "1.2.3"; }

    std::optional<std::filesystem::path> resource(const std::string& name,
                                                  const std::string& extension) const override {
        return lookUp(resources, name + "." + extension);
    }

    std::optional<std::string> identifier = "app.calmora.Calmora";
    /// By "name.extension".
    std::map<std::string, std::filesystem::path> resources{{"quit-sound.wav", "quit-sound.wav"}};
};

} // namespace calmora
