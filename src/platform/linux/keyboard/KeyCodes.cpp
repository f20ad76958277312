// SPDX-License-Identifier: MIT
#include "platform/linux/keyboard/KeyCodes.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

struct Row {
    std::uint8_t virtualKeyCode;
    X11KeyCode x11KeyCode;
};

// Ascending by the virtual key code. Help is where PC keyboards have Insert.
// clang-format off
constexpr std::array<Row, 119> table{{
    {0, 38}, {1, 39}, {2, 40}, {3, 41}, {4, 43}, {5, 42}, {6, 52}, {7, 53}, {8, 54}, {9, 55},
    {10, 94}, {11, 56}, {12, 24}, {13, 25}, {14, 26}, {15, 27}, {16, 29}, {17, 28}, {18, 10},
    {19, 11}, {20, 12}, {21, 13}, {22, 15}, {23, 14}, {24, 21}, {25, 18}, {26, 16}, {27, 20},
    {28, 17}, {29, 19}, {30, 35}, {31, 32}, {32, 30}, {33, 34}, {34, 31}, {35, 33}, {36, 36},
    {37, 46}, {38, 44}, {39, 48}, {40, 45}, {41, 47}, {42, 51}, {43, 59}, {44, 61}, {45, 57},
    {46, 58}, {47, 60}, {48, 23}, {49, 65}, {50, 49}, {51, 22}, {53, 9}, {54, 134}, {55, 133},
    {56, 50}, {57, 66}, {58, 64}, {59, 37}, {60, 62}, {61, 108}, {62, 105}, {64, 195}, {65, 91},
    {67, 63}, {69, 86}, {71, 77}, {72, 123}, {73, 122}, {74, 121}, {75, 106}, {76, 104}, {78, 82},
    {79, 196}, {80, 197}, {81, 125}, {82, 90}, {83, 87}, {84, 88}, {85, 89}, {86, 83}, {87, 84},
    {88, 85}, {89, 79}, {90, 198}, {91, 80}, {92, 81}, {93, 132}, {94, 97}, {95, 129}, {96, 71},
    {97, 72}, {98, 73}, {99, 69}, {100, 74}, {101, 75}, {102, 131}, {103, 95}, {104, 130},
    {105, 191}, {106, 194}, {107, 192}, {109, 76}, {110, 135}, {111, 96}, {113, 193}, {114, 118},
    {115, 110}, {116, 112}, {117, 119}, {118, 70}, {119, 115}, {120, 68}, {121, 117}, {122, 67},
    {123, 113}, {124, 114}, {125, 116}, {126, 111},
}};
// clang-format on

} // namespace

std::optional<X11KeyCode> x11KeyCode(std::int64_t keyCode) {
    const auto found = std::ranges::lower_bound(table, keyCode, {}, &Row::virtualKeyCode);
    return found != table.end() && found->virtualKeyCode == keyCode
               ? std::optional(found->x11KeyCode)
               : std::nullopt;
}

std::optional<std::int64_t> virtualKeyCode(X11KeyCode keyCode) {
    const auto found = std::ranges::find(table, keyCode, &Row::x11KeyCode);
    return found != table.end() ? std::optional<std::int64_t>(found->virtualKeyCode) : std::nullopt;
}

} // namespace calmora
