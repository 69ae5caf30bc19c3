#pragma once
// The scriptable driver: reads commands, one a line, runs them on a headless program with the
// virtual clock and the scripted host, and writes what the program showed and the values
// asked for. The command set is documented in the README.

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/Screen.h"
#include "program/Places.h"

namespace vellumry {

class Program;

class Driver {
 public:
  explicit Driver(std::ostream& out);
  ~Driver();
  // Runs every line of `in`; returns the number of lines that gave an error.
  int run(std::istream& in);
  // Runs one line (number `lineNo` for error messages).
  void runLine(const std::string& line, int lineNo);
  Program* program() { return program_.get(); }
  tk::HeadlessHost& host() { return host_; }

  // Takes the picture of the screen; set by the presenter's side when it is linked in.
  std::function<bool(Program&, const std::string& png)> shot;
  // Set by a live screen: told of the program once it is made, before its entry runs; and asked
  // after every command what the screen shows that the model doesn't, which fails the line.
  std::function<void(Program&)> onStart;
  std::function<std::optional<std::string>()> afterCommand;

 private:
  using Args = std::vector<std::string>;
  // One verb of a script: its name, how many words it needs with itself, its usage, its work.
  struct Verb {
    const char* name;
    size_t least;
    const char* usage;
    void (*run)(Driver&, const Args&);
  };
  static const std::vector<Verb>& verbs();
  void command(const Args& args);
  void start();
  template <bool (*press)(tk::Control&, int, int, double, double)>
  void mouse(const Args& args);
  Program& running();
  // The control or the loaded form a script names.
  tk::Control& control(const std::string& path);
  tk::Form& form(const std::string& name);
  // Runs a user action; an action the program doesn't take is reported as ignored.
  void act(bool taken);
  void print(const std::string& line);

  std::ostream& out_;
  tk::HeadlessHost host_;
  tk::Screen screen_ = tk::Screen::ofPixels(1024, 768);
  // The folder made for a script that names no home, removed with the driver.
  std::string ownFolder_;
  Places places_;
  std::unique_ptr<Program> program_;
  std::string currentLine_;
  bool endPrinted_ = false;
  int errors_ = 0;
};

}  // namespace vellumry
