// A full repaint of a form that shows a grid of 100 picture cells, as the presenter draws it:
// with the cells' drawn pixels kept, and with every cell's picture new since the last paint.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <memory>

#include "platform/gdi/Picture.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/PictureControls.h"

using namespace vellumry;

namespace {

constexpr int kColumns = 10, kRows = 10, kCellPixels = 48, kPicturePixels = 64;

class GridForm : public tk::Form {
 public:
  explicit GridForm(tk::Runtime& rt) : Form(rt, "GridForm") {
    setBorderStyle(0);
    Move(0, 0, kColumns * kCellPixels * 15.0, kRows * kCellPixels * 15.0);
    Cell(0).setStretch(true);
    Cell(0).setVisible(false);
  }
  tk::ControlArray<tk::Image> Cell{this, "Cell"};
};

gdi::Picture gradient(int seed) {
  gdi::Surface s(kPicturePixels, kPicturePixels, gdi::AlphaMode::kOpaque);
  for (int y = 0; y < kPicturePixels; ++y)
    for (int x = 0; x < kPicturePixels; ++x)
      s.setPixel(x, y,
                 gdi::argb(255, static_cast<uint8_t>(x * 4 + seed), static_cast<uint8_t>(y * 4),
                           static_cast<uint8_t>(seed * 7)));
  return gdi::Picture::fromSurface(std::move(s));
}

struct GridProgram {
  GridProgram()
      : runtime(tk::Screen::ofPixels(1024, 768), host, tk::EventLoop::Clock::Real),
        form(runtime, [this] { return std::make_unique<GridForm>(runtime); }),
        presenter(runtime) {
    GridForm& f = form();
    for (int i = 1; i <= kColumns * kRows; ++i) {
      tk::Image& cell = f.Cell.Load(i);
      cell.Move(((i - 1) % kColumns) * kCellPixels * 15.0,
                ((i - 1) / kColumns) * kCellPixels * 15.0, kCellPixels * 15.0 - 30,
                kCellPixels * 15.0 - 30);
      cell.setPicture(gradient(i));
      cell.setVisible(true);
    }
    f.Show();
    canvas = QImage(presenter.window(f)->size(), QImage::Format_ARGB32_Premultiplied);
  }
  void repaint() { presenter.window(form())->render(&canvas); }

  tk::HeadlessHost host;
  tk::Runtime runtime;
  tk::FormSlot<GridForm> form;
  presenter::Presenter presenter;
  QImage canvas;
};

void BM_RepaintGridKept(benchmark::State& state) {
  GridProgram p;
  p.repaint();
  for (auto _ : state) {
    p.repaint();
    benchmark::DoNotOptimize(p.canvas.constBits());
  }
}
BENCHMARK(BM_RepaintGridKept)->Unit(benchmark::kMicrosecond);

void BM_RepaintGridNewPictures(benchmark::State& state) {
  GridProgram p;
  std::vector<gdi::Picture> pictures;
  for (int i = 1; i <= kColumns * kRows; ++i) pictures.push_back(gradient(i + 1));
  for (auto _ : state) {
    state.PauseTiming();
    GridForm& f = p.form();
    for (int i = 1; i <= kColumns * kRows; ++i) f.Cell(i).setPicture(pictures[i - 1]);
    state.ResumeTiming();
    p.repaint();
    benchmark::DoNotOptimize(p.canvas.constBits());
  }
}
BENCHMARK(BM_RepaintGridNewPictures)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
