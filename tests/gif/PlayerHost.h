#pragma once
// What a player needs around it in a test: a program on the virtual clock, and a window that
// only hands out a surface to draw on.

#include <gtest/gtest.h>

#include "gif/cGIFViewer.h"
#include "platform/toolkit/HeadlessHost.h"
#include "program/Program.h"

namespace vellumry::testing {

struct Window : IGifRender {
  gdi::Surface surface{8, 8, gdi::AlphaMode::kOpaque};
  void GetRenderDC(int32_t, int32_t, gdi::Surface*& destDC, RefreshWindow&, bool&) override {
    destDC = &surface;
  }
  void Rendered(int32_t, int32_t, int32_t, int32_t) override {}
};

class PlayerHost : public ::testing::Test {
 protected:
  tk::HeadlessHost host;
  Program program{host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(640, 480), Places{}};
};

}  // namespace vellumry::testing
