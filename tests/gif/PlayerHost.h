#pragma once
// What a player needs around it in a test: a program on the virtual clock, and a window that
// only hands out a surface to draw on.

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "gif/cGIFViewer.h"
#include "platform/toolkit/HeadlessHost.h"
#include "program/Program.h"

namespace vellumry::testing {

struct Window : IGifRender {
  gdi::Surface surface{8, 8, gdi::AlphaMode::kOpaque};
  bool postNotify = false;
  std::vector<std::array<intptr_t, 3>> frameDrawn;  // frame, message, value of each message 0
  void GetRenderDC(int32_t, int32_t, gdi::Surface*& destDC, RefreshWindow&,
                   bool& PostNotify) override {
    destDC = &surface;
    PostNotify = postNotify;
  }
  void Rendered(int32_t, int32_t FrameIndex, int32_t Message, intptr_t MsgValue) override {
    if (Message == 0) frameDrawn.push_back({FrameIndex, Message, MsgValue});
  }
};

class PlayerHost : public ::testing::Test {
 protected:
  tk::HeadlessHost host;
  Program program{host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(640, 480), Places{}};
};

}  // namespace vellumry::testing
