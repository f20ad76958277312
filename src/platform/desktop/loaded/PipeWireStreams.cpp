// SPDX-License-Identifier: MIT
#include "platform/desktop/use/StreamServer.h"
#include "support/Owned.h"

#include <cstdint>
#include <list>
#include <memory>
#include <pipewire/pipewire.h>
#include <set>
#include <string_view>
#include <utility>

// The library's calls are macros of C, with statements in expressions.
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wpedantic"

namespace calmora {
namespace {

void destroyProxy(void* proxy) {
    pw_proxy_destroy(static_cast<pw_proxy*>(proxy));
}

/// The library counts how often it was set up.
struct Library {
    Library() { pw_init(nullptr, nullptr); }
};

/// A client that receives pictures.
struct Receiver {
    Owned<pw_client, destroyProxy> client;
    spa_hook hook{};
    MediaStream stream{.kind = MediaStream::Kind::receivesPictures};
};

class PipeWireStreams final : public StreamServer {
  public:
    PipeWireStreams() {
        if (!core_) {
            return;
        }
        pw_core_add_listener(core_.get(), &coreHook_, &coreEvents, this);
        registry_.reset(pw_core_get_registry(core_.get(), PW_VERSION_REGISTRY, 0));
        pw_registry_add_listener(registry_.get(), &registryHook_, &registryEvents, this);
        awaited_ = pw_core_sync(core_.get(), PW_ID_CORE, 0);
    }

    PipeWireStreams(const PipeWireStreams&) = delete;
    PipeWireStreams& operator=(const PipeWireStreams&) = delete;
    ~PipeWireStreams() override = default;

    State proceed() override {
        if (!core_ || hasFailed_) {
            return State::absent;
        }
        pw_loop* loop = pw_main_loop_get_loop(loop_.get());
        pw_loop_enter(loop);
        for (int turn = 0; turn < mostTurns && pw_loop_iterate(loop, 0) > 0; ++turn) {
        }
        pw_loop_leave(loop);
        return isDone_ && !isCut_ ? State::done : State::pending;
    }

    [[nodiscard]] std::vector<MediaStream> streams() const override {
        std::vector<MediaStream> result;
        for (const Receiver& receiver : receivers_) {
            result.push_back(receiver.stream);
        }
        return result;
    }

  private:
    /// More than anybody has.
    static constexpr std::size_t mostReceivers = 256;
    static constexpr int mostTurns = 256;

    static PipeWireStreams& of(void* self) { return *static_cast<PipeWireStreams*>(self); }

    static std::string_view textOf(const spa_dict* properties, const char* key) {
        const char* text = properties != nullptr ? spa_dict_lookup(properties, key) : nullptr;
        return text != nullptr ? text : "";
    }

    static void add(void* self, std::uint32_t id, std::uint32_t, const char* type, std::uint32_t,
                    const spa_dict* properties) {
        const std::string_view kind(type);
        if (kind == PW_TYPE_INTERFACE_Client) {
            of(self).clients_[std::to_string(id)] = id;
        } else if (kind == PW_TYPE_INTERFACE_Node &&
                   textOf(properties, PW_KEY_MEDIA_CLASS) == "Stream/Input/Video") {
            of(self).receiving_.emplace(textOf(properties, PW_KEY_CLIENT_ID));
        }
    }

    static void done(void* self, std::uint32_t, int number) { of(self).answered(number); }

    static void fail(void* self, std::uint32_t id, int, int, const char*) {
        of(self).hasFailed_ = of(self).hasFailed_ || id == PW_ID_CORE;
    }

    static void describe(void* receiver, const pw_client_info* info) {
        if (info->props == nullptr) {
            return;
        }
        const spa_dict_item* item = nullptr;
        auto& properties = static_cast<Receiver*>(receiver)->stream.properties;
        spa_dict_for_each(item, info->props) {
            properties.insert_or_assign(item->key, item->value);
        }
    }

    /// First all objects are known, then the clients of those that count.
    void answered(int number) {
        if (number != awaited_ || isDone_) {
            return;
        }
        const auto receiving = std::exchange(receiving_, {});
        isDone_ = receiving.empty();
        for (const std::string& id : receiving) {
            const auto client = clients_.find(id);
            if (client == clients_.end()) {
                continue;
            }
            if (receivers_.size() >= mostReceivers) {
                isCut_ = true;
                break;
            }
            Receiver& receiver = receivers_.emplace_back();
            receiver.client.reset(static_cast<pw_client*>(pw_registry_bind(
                registry_.get(), client->second, PW_TYPE_INTERFACE_Client, PW_VERSION_CLIENT, 0)));
            pw_client_add_listener(receiver.client.get(), &receiver.hook, &clientEvents, &receiver);
        }
        awaited_ = pw_core_sync(core_.get(), PW_ID_CORE, 0);
    }

    static constexpr auto coreEvents = [] {
        pw_core_events events{};
        events.version = PW_VERSION_CORE_EVENTS;
        events.done = done;
        events.error = fail;
        return events;
    }();
    static constexpr auto registryEvents = [] {
        pw_registry_events events{};
        events.version = PW_VERSION_REGISTRY_EVENTS;
        events.global = add;
        return events;
    }();
    static constexpr auto clientEvents = [] {
        pw_client_events events{};
        events.version = PW_VERSION_CLIENT_EVENTS;
        events.info = describe;
        return events;
    }();

    Library library_;
    Owned<pw_main_loop, pw_main_loop_destroy> loop_{pw_main_loop_new(nullptr)};
    Owned<pw_context, pw_context_destroy> context_{
        loop_ ? pw_context_new(pw_main_loop_get_loop(loop_.get()), nullptr, 0) : nullptr};
    /// Null without a server.
    Owned<pw_core, pw_core_disconnect> core_{
        context_ ? pw_context_connect(context_.get(), nullptr, 0) : nullptr};
    spa_hook coreHook_{};
    spa_hook registryHook_{};
    Owned<pw_registry, destroyProxy> registry_;
    int awaited_ = 0;
    bool isDone_ = false;
    bool isCut_ = false;
    bool hasFailed_ = false;
    std::map<std::string, std::uint32_t> clients_;
    /// The numbers of clients, as texts.
    std::set<std::string> receiving_;
    std::list<Receiver> receivers_;
};

} // namespace
} // namespace calmora

extern "C" [[gnu::visibility("default")]] calmora::StreamServer*
calmoraOpenStreamServer(const char* /*applicationName*/) {
    return std::make_unique<calmora::PipeWireStreams>().release();
}
