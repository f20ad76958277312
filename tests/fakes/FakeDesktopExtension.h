// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopExtension.h"
#include "support/Signal.h"

namespace calmora {

/// An extension in whatever state a test sets, which notes what it is asked.
struct FakeDesktopExtension final : DesktopExtension {
    State state() const override { return now; }

    std::string purpose() const override {
        return "Its extension for GNOME puts Calmora’s icon into the top bar.";
    }

    void refresh() override { asked += 'r'; }

    void enable() override { asked += 'e'; }

    void decline() override { asked += 'd'; }

    Subscription onChanged(std::function<void()> handler) override {
        return changed.connect(std::move(handler));
    }

    void become(State state) {
        now = state;
        changed.emit();
    }

    State now = State::none;
    std::string asked;
    Signal<> changed;
};

} // namespace calmora
