#pragma once
// The key codes of the toolkit's key events, by name: the ones the program's key routines look
// at, and the rest of those a keyboard gives the presenter.

namespace vellumry::tk::key {
inline constexpr int Back = 8, Tab = 9, Clear = 12, Return = 13;
inline constexpr int Shift = 16, Ctrl = 17, Alt = 18, Pause = 19, CapsLock = 20, Esc = 27;
inline constexpr int Space = 32, PageUp = 33, PageDown = 34, End = 35, Home = 36;
inline constexpr int Left = 37, Up = 38, Right = 39, Down = 40;
inline constexpr int PrintScreen = 44, Insert = 45, Delete = 46;
inline constexpr int Digit0 = 48, A = 65, Windows = 91, Apps = 93;
inline constexpr int Numpad0 = 96, Multiply = 106, Add = 107, Subtract = 109, Decimal = 110,
                     Divide = 111;
inline constexpr int F1 = 112, NumLock = 144, ScrollLock = 145;
// The punctuation keys of a US keyboard: ; = , - . / ` [ \ ] '
inline constexpr int Semicolon = 186, Equals = 187, Comma = 188, Minus = 189, Period = 190,
                     Slash = 191, Backquote = 192, OpenBracket = 219, Backslash = 220,
                     CloseBracket = 221, Quote = 222;
}  // namespace vellumry::tk::key
