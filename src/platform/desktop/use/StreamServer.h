// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

namespace calmora {

/// A stream of sound as the sound server tells it.
struct SoundStream {
    bool isRecording = false;
    /// It is stopped for the moment: corked.
    bool isPaused = false;
    /// The server gives it peaks only, as a volume control shows them.
    bool isPeakMeter = false;
    /// Those of the stream, and those of its client that the stream has not.
    /// Source: PulseAudio's property list, and PipeWire's keys beside it.
    std::map<std::string, std::string> properties = {};
};

/// A connection to the sound server for one question.
class StreamServer {
  public:
    enum class State {
        pending,
        done,
        /// There is no server, or it refuses.
        absent,
    };

    virtual ~StreamServer() = default;

    /// Does what can be done without waiting.
    virtual State proceed() = 0;

    /// All streams, once done.
    [[nodiscard]] virtual std::vector<SoundStream> streams() const = 0;
};

/// The function that the library "streams" exports. Connects under the name that the server shows;
/// the caller owns the result.
using OpenStreamServer = StreamServer*(const char* applicationName);
inline constexpr const char* openStreamServerName = "calmoraOpenStreamServer";

} // namespace calmora
