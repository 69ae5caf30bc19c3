#pragma once
// How the test forms write down an event: its name, then its numbers, blank-separated.

#include <string>

template <class... N>
std::string eventLine(std::string event, N... numbers) {
  ((event += " " + std::to_string(numbers)), ...);
  return event;
}
