#pragma once

#include <cstddef>
#include <cstdint>
#include <wayland-client.h>

// A parameter of the generated header has the name of a keyword.
#define namespace scope
#include <wlr-layer-shell-unstable-v1-client.h>
#undef namespace
