// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

namespace calmora {

/// A stream of sound or pictures as a server tells it.
struct MediaStream {
    enum class Kind {
        playsSound,
        recordsSound,
        /// It receives pictures: the screen, a window or a camera.
        receivesPictures,
    };

    Kind kind = Kind::playsSound;
    /// It is stopped for the moment: corked.
    bool isPaused = false;
    /// The server gives it peaks only, as a volume control shows them.
    bool isPeakMeter = false;
    /// Those of the stream, and those of its client that the stream has not.
    /// Source: PulseAudio's property list, and PipeWire's keys beside it.
    std::map<std::string, std::string> properties = {};
};

/// A connection to a server of streams for one question.
class StreamServer {
  public:
    enum class State {
        /// Also for good where there are more streams than can be told of.
        pending,
        done,
        /// There is no server, or it refuses.
        absent,
    };

    virtual ~StreamServer() = default;

    /// Does what can be done without waiting.
    virtual State proceed() = 0;

    /// All streams, once done.
    [[nodiscard]] virtual std::vector<MediaStream> streams() const = 0;
};

/// The function that the libraries "pulse" and "pipewire" export, which need the library of that
/// name loaded already. Connects under the name that the server shows; the caller owns the result.
using OpenStreamServer = StreamServer*(const char* applicationName);
inline constexpr const char* openStreamServerName = "calmoraOpenStreamServer";

} // namespace calmora
