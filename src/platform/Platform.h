// SPDX-License-Identifier: MIT
#pragma once

namespace calmora {

class Alerts;
class Bundle;
class Clock;
class LocalizedStrings;
class ProcessTable;
class RunLoop;
class SoundOutput;
class Text;
class Workspace;

/// The platform for the models: references to what the composition root owns. Copied freely;
/// everything in it outlives every model.
struct Platform {
    Workspace& workspace;
    ProcessTable& processes;
    Clock& clock;
    RunLoop& runLoop;
    Bundle& bundle;
    Text& text;
    LocalizedStrings& strings;
    SoundOutput& sounds;
    Alerts& alerts;
};

} // namespace calmora
