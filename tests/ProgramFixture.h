#pragma once
// A headless program on the virtual clock over folders of its own, for tests of whole behaviours.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "gif/Form3.h"
#include "platform/os/SettingsFile.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/Input.h"
#include "program/INIFunctions.h"
#include "program/Program.h"
#include "shell/Form0.h"
#include "shell/Form1.h"
#include "shell/Main.h"
#include "tools/FormScreenCapture.h"
#include "tools/frmMenu.h"
#include "viewer/Form2.h"

class ProgramFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    // A parameterised test's name holds a slash: one folder all the same, gone at the end.
    std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    std::ranges::replace(name, '/', '-');
    root = std::filesystem::temp_directory_path() /
           ("vellumry-test-" + std::to_string(::getpid()) + "-" + name);
    std::filesystem::remove_all(root);
    home = root / "home";
    pictures = root / "pictures";
    std::filesystem::create_directories(home);
    std::filesystem::create_directories(pictures);
    // Files that the program discards go to a trash of the test's own.
    ::setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
    // And thumbnails to a cache of its own.
    ::setenv("XDG_CACHE_HOME", (root / "cache").c_str(), 1);
    vellumry::os::createSettingsFileIfMissing(iniPath());
  }
  void TearDown() override {
    program.reset();
    std::filesystem::remove_all(root);
  }

  std::string iniPath() const { return (home / "OstrelWorks.INI").string(); }
  void setting(const std::string& key, const std::string& value) {
    vellumry::WriteIni(iniPath(), "Settings", key, value);
  }
  std::string setting(const std::string& key) {
    return vellumry::ReadIni(iniPath(), "Settings", key, "?");
  }
  // `count` files named img1.jpg ... in `folder` (the pictures folder when empty).
  void makeFiles(int count, std::filesystem::path folder = {}) {
    if (folder.empty()) folder = pictures;
    std::filesystem::create_directories(folder);
    for (int i = 1; i <= count; ++i)
      std::ofstream(folder / ("img" + std::to_string(i) + ".jpg")) << "x";
  }
  // Starts the program on a screen of `w` by `h` pixels.
  vellumry::Program& start(int w = 1024, int h = 768) {
    program = std::make_unique<vellumry::Program>(
        host, vellumry::tk::EventLoop::Clock::Virtual, vellumry::tk::Screen::ofPixels(w, h),
        vellumry::Places{home.string(), home.string(), pictures.string(), {}, startFolder});
    program->runtime.onUncaught = [](const vellumry::tk::Error& e) {
      ADD_FAILURE() << "uncaught error " << e.Number << ": " << e.Description;
    };
    vellumry::Main(*program);
    return *program;
  }
  void wait(int ms) { program->runtime.loop().advance(ms); }
  // Advances the clock by `step` until `done`, for at most `limitMs` of it: a wait that runs
  // out fails the test instead of hanging it.
  template <class Done>
  void waitUntil(Done done, int step = 12, int limitMs = 600000) {
    for (int waited = 0; !done(); waited += step) {
      if (waited >= limitMs) {
        ADD_FAILURE() << "still waiting after " << limitMs << " ms of the clock";
        return;
      }
      wait(step);
    }
  }
  vellumry::Form1& form1() { return program->Form1(); }
  // Starts and lets the grid load to its end.
  vellumry::Form1& loaded(int w = 1024, int h = 768) {
    start(w, h);
    wait(500);
    waitUntil([&] { return program->Form1().Timer1.Interval() == 0; });
    return form1();
  }

  std::filesystem::path root, home, pictures;
  std::string startFolder;  // as named on the command line
  vellumry::tk::HeadlessHost host;
  std::unique_ptr<vellumry::Program> program;
};
