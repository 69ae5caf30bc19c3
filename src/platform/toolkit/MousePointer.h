#pragma once
// The values of MousePointer that the program uses.

namespace vellumry::tk::pointer {
inline constexpr int Default = 0, Arrow = 1, SizeAll = 5, SizeNS = 7, SizeWE = 9, Hourglass = 11;
}  // namespace vellumry::tk::pointer
