// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <wayland-client.h>

// A parameter of the generated header has the name of a keyword.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define namespace scope
#include <wlr-layer-shell-unstable-v1-client.h>
#undef namespace
#ifdef __clang__
#pragma clang diagnostic pop
#endif
