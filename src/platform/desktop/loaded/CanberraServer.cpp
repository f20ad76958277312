// SPDX-License-Identifier: MIT
#include "platform/desktop/SoundServer.h"
#include "support/Owned.h"

#include <canberra.h>
#include <memory>

namespace calmora {
namespace {

class CanberraServer final : public SoundServer {
  public:
    CanberraServer(const char* name, const char* id) {
        ca_context* context = nullptr;
        if (ca_context_create(&context) == CA_SUCCESS) {
            context_.reset(context);
            ca_context_change_props(context, CA_PROP_APPLICATION_NAME, name, CA_PROP_APPLICATION_ID,
                                    id, CA_PROP_APPLICATION_ICON_NAME, id, nullptr);
        }
    }

    void play(std::uint32_t sound, const std::filesystem::path& file) override {
        if (context_) {
            ca_context_play(context_.get(), sound, CA_PROP_MEDIA_FILENAME, file.c_str(),
                            CA_PROP_MEDIA_ROLE, "event", CA_PROP_CANBERRA_CACHE_CONTROL, "never",
                            nullptr);
        }
    }

    void cancel(std::uint32_t sound) override {
        if (context_) {
            ca_context_cancel(context_.get(), sound);
        }
    }

  private:
    Owned<ca_context, ca_context_destroy> context_;
};

} // namespace
} // namespace calmora

extern "C" [[gnu::visibility("default")]] calmora::SoundServer*
calmoraOpenSoundServer(const char* applicationName, const char* applicationId) {
    return std::make_unique<calmora::CanberraServer>(applicationName, applicationId).release();
}
