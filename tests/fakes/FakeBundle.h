#pragma once

#include "platform/Bundle.h"

#include <map>

namespace calmora {

/// An installation in memory.
class FakeBundle final : public Bundle {
  public:
    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return identifier;
    }

    [[nodiscard]] std::optional<std::string> shortVersion() const override { return version; }

    [[nodiscard]] std::optional<std::filesystem::path>
    resource(const std::string& name, const std::string& extension) const override {
        const auto found = resources.find(name + "." + extension);
        return found != resources.end() ? std::optional(found->second) : std::nullopt;
    }

    std::optional<std::string> identifier = "app.calmora.Calmora";
    std::optional<std::string> version = "1.2.3";
    /// By "name.extension".
    std::map<std::string, std::filesystem::path> resources{{"quit-sound.wav", "quit-sound.wav"}};
};

} // namespace calmora
