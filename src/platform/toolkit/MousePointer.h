#pragma once
// The values of a form's MousePointer that the program uses.

namespace vellumry::tk::pointer {
inline constexpr int Default = 0, Hourglass = 11;
}  // namespace vellumry::tk::pointer
