#pragma once
// The key codes that the program's key routines look at, as the toolkit's key events carry them.

namespace vellumry::tk::key {
inline constexpr int Shift = 16, Ctrl = 17, Alt = 18, Esc = 27, Space = 32;
inline constexpr int Left = 37, Up = 38, Right = 39, Down = 40, F1 = 112;
}  // namespace vellumry::tk::key
