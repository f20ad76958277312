// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace calmora {

/// Hands an object to the function of a C library that releases it.
template <auto release>
struct ReleasedBy {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};

/// An object of a C library, which `release` frees.
template <typename T, auto release>
using Owned = std::unique_ptr<T, ReleasedBy<release>>;

} // namespace calmora
