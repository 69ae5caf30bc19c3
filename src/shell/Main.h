#pragma once
// The program's entry.

namespace vellumry {

class Program;

// Finds the settings file and the install folder, gives every form slot its maker and shows
// Form0, which shows Form1.
void Main(Program& program);

}  // namespace vellumry
