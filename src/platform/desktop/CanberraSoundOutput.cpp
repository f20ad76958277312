#include "platform/desktop/CanberraSoundOutput.h"

#include <canberra.h>
#include <dlfcn.h>
#include <unistd.h>
#include <utility>

namespace calmora {

/// The library and its one connection to the sound server, made when first needed.
class CanberraSoundOutput::Player {
  public:
    Player(std::string name, std::string id) : name_(std::move(name)), id_(std::move(id)) {}

    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    ~Player() {
        if (context_) {
            destroy_(context_);
        }
    }

    void play(std::uint32_t sound, const std::filesystem::path& file) {
        if (!std::exchange(isLoaded_, true)) {
            load();
        }
        if (context_) {
            play_(context_, sound, CA_PROP_MEDIA_FILENAME, file.c_str(), CA_PROP_MEDIA_ROLE,
                  "event", CA_PROP_CANBERRA_CACHE_CONTROL, "never", nullptr);
        }
    }

    void cancel(std::uint32_t sound) {
        if (context_) {
            cancel_(context_, sound);
        }
    }

  private:
    void load() {
        // Stays loaded: the library's threads must not lose their code at the end.
        void* library = ::dlopen("libcanberra.so.0", RTLD_NOW | RTLD_LOCAL);
        if (!library) {
            return;
        }
        const bool isComplete = find(library, "ca_context_create", create_) &&
                                find(library, "ca_context_change_props", changeProps_) &&
                                find(library, "ca_context_play", play_) &&
                                find(library, "ca_context_cancel", cancel_) &&
                                find(library, "ca_context_destroy", destroy_);
        if (!isComplete || create_(&context_) != CA_SUCCESS) {
            context_ = nullptr;
            return;
        }
        changeProps_(context_, CA_PROP_APPLICATION_NAME, name_.c_str(), CA_PROP_APPLICATION_ID,
                     id_.c_str(), CA_PROP_APPLICATION_ICON_NAME, id_.c_str(), nullptr);
    }

    template <typename Function>
    static bool find(void* library, const char* name, Function& function) {
        function = reinterpret_cast<Function>(::dlsym(library, name));
        return function != nullptr;
    }

    std::string name_;
    std::string id_;
    bool isLoaded_ = false;
    ca_context* context_ = nullptr;
    decltype(&ca_context_create) create_ = nullptr;
    decltype(&ca_context_change_props) changeProps_ = nullptr;
    decltype(&ca_context_play) play_ = nullptr;
    decltype(&ca_context_cancel) cancel_ = nullptr;
    decltype(&ca_context_destroy) destroy_ = nullptr;
};

class CanberraSoundOutput::CanberraSound final : public Sound {
  public:
    CanberraSound(std::shared_ptr<Player> player, std::uint32_t number, std::filesystem::path file)
        : player_(std::move(player)), number_(number), file_(std::move(file)) {}

    void stop() override { player_->cancel(number_); }

    void play() override { player_->play(number_, file_); }

  private:
    std::shared_ptr<Player> player_;
    std::uint32_t number_;
    std::filesystem::path file_;
};

CanberraSoundOutput::CanberraSoundOutput(std::string applicationName, std::string applicationId)
    : player_(std::make_shared<Player>(std::move(applicationName), std::move(applicationId))) {}

CanberraSoundOutput::~CanberraSoundOutput() = default;

std::unique_ptr<Sound> CanberraSoundOutput::load(const std::filesystem::path& file) {
    if (::access(file.c_str(), R_OK) != 0) {
        return nullptr;
    }
    return std::make_unique<CanberraSound>(player_, ++lastSound_, file);
}

} // namespace calmora
