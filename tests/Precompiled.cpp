// SPDX-License-Identifier: MIT
// A precompiled header needs a source.
