// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

// A member of its structures has a keyword of C++ for a name.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
