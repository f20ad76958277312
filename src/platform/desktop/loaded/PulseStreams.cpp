// SPDX-License-Identifier: MIT
#include "platform/desktop/use/StreamServer.h"
#include "support/Owned.h"

#include <cstdint>
#include <memory>
#include <pulse/context.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <string_view>
#include <utility>

namespace calmora {
namespace {

void close(pa_context* context) {
    pa_context_disconnect(context);
    pa_context_unref(context);
}

using Properties = std::map<std::string, std::string>;

Properties propertiesOf(const pa_proplist* list) {
    Properties properties;
    void* position = nullptr;
    while (const char* key = pa_proplist_iterate(list, &position)) {
        if (const char* text = pa_proplist_gets(list, key)) {
            properties.emplace(key, text);
        }
    }
    return properties;
}

class PulseStreams final : public StreamServer {
  public:
    explicit PulseStreams(const char* name)
        : loop_(pa_mainloop_new()),
          context_(loop_ ? pa_context_new(pa_mainloop_get_api(loop_.get()), name) : nullptr) {
        if (context_) {
            pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
        }
    }

    State proceed() override {
        if (!context_) {
            return State::absent;
        }
        for (int turn = 0; turn < mostTurns && pa_mainloop_iterate(loop_.get(), 0, nullptr) > 0;
             ++turn) {
        }
        const pa_context_state_t state = pa_context_get_state(context_.get());
        if (!PA_CONTEXT_IS_GOOD(state)) {
            return State::absent;
        }
        if (state == PA_CONTEXT_READY && !std::exchange(hasAsked_, true)) {
            ask();
        }
        return hasAsked_ && awaited_ == 0 && !isCut_ ? State::done : State::pending;
    }

    [[nodiscard]] std::vector<MediaStream> streams() const override {
        std::vector<MediaStream> result;
        for (const auto& [stream, client] : streams_) {
            result.push_back(stream);
            if (const auto known = clients_.find(client); known != clients_.end()) {
                result.back().properties.insert(known->second.begin(), known->second.end());
            }
        }
        return result;
    }

  private:
    /// More than anybody has.
    static constexpr std::size_t mostEntries = 4096;
    static constexpr int mostTurns = 256;

    void ask() {
        awaited_ = 3;
        pa_context* context = context_.get();
        const auto drop = [](pa_operation* operation) {
            if (operation != nullptr) {
                pa_operation_unref(operation);
            }
        };
        drop(pa_context_get_client_info_list(context, addClient, this));
        drop(pa_context_get_sink_input_info_list(context, addPlayback, this));
        drop(pa_context_get_source_output_info_list(context, addRecording, this));
    }

    /// Whether there is an entry to keep; else the list is at its end, or there was an error.
    template <typename Info>
    bool has(const Info* info, int end) {
        awaited_ -= end != 0 ? 1 : 0;
        const bool isFull = clients_.size() + streams_.size() >= mostEntries;
        isCut_ = isCut_ || (end == 0 && isFull);
        return end == 0 && info != nullptr && !isFull;
    }

    static PulseStreams& of(void* self) { return *static_cast<PulseStreams*>(self); }

    static void addClient(pa_context*, const pa_client_info* info, int end, void* self) {
        if (of(self).has(info, end)) {
            of(self).clients_[info->index] = propertiesOf(info->proplist);
        }
    }

    static void addPlayback(pa_context*, const pa_sink_input_info* info, int end, void* self) {
        if (of(self).has(info, end)) {
            of(self).streams_.push_back({{.kind = MediaStream::Kind::playsSound,
                                          .isPaused = info->corked != 0,
                                          .isPeakMeter = false,
                                          .properties = propertiesOf(info->proplist)},
                                         info->client});
        }
    }

    static void addRecording(pa_context*, const pa_source_output_info* info, int end, void* self) {
        if (of(self).has(info, end)) {
            const std::string_view method = info->resample_method ? info->resample_method : "";
            of(self).streams_.push_back({{.kind = MediaStream::Kind::recordsSound,
                                          .isPaused = info->corked != 0,
                                          .isPeakMeter = method == "peaks",
                                          .properties = propertiesOf(info->proplist)},
                                         info->client});
        }
    }

    Owned<pa_mainloop, pa_mainloop_free> loop_;
    Owned<pa_context, close> context_;
    bool hasAsked_ = false;
    int awaited_ = 0;
    bool isCut_ = false;
    std::map<std::uint32_t, Properties> clients_;
    /// With the number of the client.
    std::vector<std::pair<MediaStream, std::uint32_t>> streams_;
};

} // namespace
} // namespace calmora

extern "C" [[gnu::visibility("default")]] calmora::StreamServer*
calmoraOpenStreamServer(const char* applicationName) {
    return std::make_unique<calmora::PulseStreams>(applicationName).release();
}
