// Others' expectations: every case of the GIF test suite under ../shared/corpus, each frame
// composited at scale 1 over the stated background and compared pixel for pixel with the
// expected frame. Skipped when the corpus isn't there.
#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

#include "Corpus.h"
#include "gif/PlayerHost.h"

namespace vellumry {
namespace {

using GifConformance = testing::PlayerHost;

const std::filesystem::path kSuite = "../shared/corpus/gif-test-suite/test-suite";

// The cases whose expectation our rules don't share, and why.
const std::map<std::string, std::string> kByDesign = {
    // Every image is a frame of its own here; the suite joins an image without a graphic
    // control, or with a delay of 0, to the frame after it.
    {"animation-multi-image", "every image is a frame of its own"},
    {"animation-multi-image-explicit-zero-delay", "an image of delay 0 is a frame of its own"},
    {"dispose-restore-previous", "the first image, without a graphic control, is a frame"},
    {"images-combine", "every image is a frame of its own"},
    {"images-overlap", "every image is a frame of its own"},
    {"high-color", "the images that build one picture of many colours are frames"},
    // A file without an image has no frames and doesn't load; the suite shows its screen.
    {"no-data", "a file without an image doesn't load"},
    // Each file ends inside its only image, before the image data: the frame never completes,
    // and the file doesn't load; the suite shows a transparent dot.
    {"image-zero-width", "the file ends inside the frame: nothing loads"},
    {"image-zero-height", "the file ends inside the frame: nothing loads"},
    {"image-zero-size", "the file ends inside the frame: nothing loads"},
    // A frame the decoder can't read is a gap of index 0, never a failure of the file; the
    // suite wants nothing shown.
    {"invalid-code", "an undecodable frame is a gap"},
    {"overflow-codes", "an undecodable frame is a gap"},
    {"overflow-codes-max", "an undecodable frame is a gap"},
    {"invalid-colors", "indices past the table show its zero entries"},
    // The platform decoder refuses codes that go on at a full table without a clear code.
    {"max-codes", "the decoder refuses the frame: a gap"},
    // The image after a plain text extension is a frame like any other.
    {"plain-text", "the image after the plain text extension is a frame"},
};

std::string readText(const std::filesystem::path& p) {
  std::ifstream in(p);
  return {std::istreambuf_iterator<char>(in), {}};
}

// The sections of an INI text: section -> key -> value.
std::map<std::string, std::map<std::string, std::string>> readConf(const std::filesystem::path& p) {
  std::map<std::string, std::map<std::string, std::string>> out;
  std::istringstream in(readText(p));
  std::string line, section;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      section = line.substr(1, line.find(']') - 1);
    } else if (auto eq = line.find(" ="); eq != std::string::npos) {
      out[section][line.substr(0, eq)] = eq + 3 <= line.size() ? line.substr(eq + 3) : "";
    }
  }
  return out;
}

// Every frame of a GIF composited at scale 1 over a background, as the player shows it.
struct Composited {
  int32_t count = 0, loops = 0;
  std::vector<gdi::Surface> frames;
  std::vector<int32_t> times;  // ms on screen
};

Composited composite(Program& program, const std::filesystem::path& file, int w, int h,
                     uint32_t bkg) {
  testing::Window window;
  cGIFViewer player(program);
  Composited out;
  out.count = player.LoadGIF(file.string(), 0, &window, &program.runtime.loop());
  out.loops = player.LoopCount();
  if (out.count < 1) return out;
  window.surface = gdi::Surface(w, h, gdi::AlphaMode::kOpaque);
  for (uint32_t& p : window.surface.Pixels()) p = bkg;
  // 0x00RRGGBB to the 0x00BBGGRR a colour is given in.
  const int32_t colour =
      static_cast<int32_t>(((bkg & 0xFF) << 16) | (bkg & 0xFF00) | ((bkg >> 16) & 0xFF));
  player.SetAnimationBkg(0, {.color = colour});
  for (int i = 1; i <= out.count; ++i) {
    // A still GIF has no canvas to build on: it is drawn by itself.
    if (out.count == 1)
      player.RenderFrame(1, &window.surface, {}, 0, 0, player.Width(), player.Height());
    else
      player.setAnimationState(i == 1 ? 4 : 3);
    out.frames.push_back(window.surface);
    out.times.push_back(player.FrameProperty(i, 0));
  }
  return out;
}

// Where `got` differs from `want`, empty where it doesn't; a pixel that `want` leaves
// transparent is to show the background.
std::string difference(const gdi::Surface& got, const gdi::Surface& want, uint32_t bkg) {
  if (got.dimensions() != want.dimensions()) return "another size";
  for (int y = 0; y < want.Height(); ++y) {
    for (int x = 0; x < want.Width(); ++x) {
      const uint32_t w = want.pixel(x, y), expected = gdi::alphaOf(w) == 0 ? bkg : w | 0xFF000000u;
      if ((got.pixel(x, y) | 0xFF000000u) != expected) {
        std::ostringstream text;
        text << "at " << x << "," << y << ": " << std::hex << got.pixel(x, y) << " for "
             << expected;
        return text.str();
      }
    }
  }
  return {};
}

// Raw pixels of `w` x `h`, four bytes each in the order `r`, `g`, `b`, `a` give.
gdi::Surface rawPixels(const std::string& bytes, int w, int h, int r, int g, int b, int a) {
  gdi::Surface out(w, h, gdi::AlphaMode::kStraight);
  if (bytes.size() < static_cast<size_t>(w) * h * 4) return {};
  const auto* px = reinterpret_cast<const uint8_t*>(bytes.data());
  for (int i = 0; i < w * h; ++i, px += 4)
    out.Pixels()[static_cast<size_t>(i)] = gdi::argb(px[a], px[r], px[g], px[b]);
  return out;
}

// Where case `name` differs from its expectation, first frame count, then loop count, then
// each frame's time and pixels; empty where it doesn't. By design a frame stays at least 50 ms,
// and a file without a loop count plays without end, where the suite shows it once.
std::string mismatch(Program& program, const std::string& name) {
  auto conf = readConf(kSuite / (name + ".conf"));
  const int w = std::stoi(conf["config"]["width"]), h = std::stoi(conf["config"]["height"]);
  // Without a stated background, black.
  const std::string stated = conf["config"]["background"];
  const uint32_t bkg =
      0xFF000000u | (stated.empty() ? 0 : std::stoul(stated.substr(1), nullptr, 16));
  std::vector<std::string> frames;
  std::istringstream list(conf["config"]["frames"]);
  for (std::string frame; std::getline(list, frame, ',');) frames.push_back(frame);
  const Composited gif = composite(program, kSuite / conf["config"]["input"], w, h, bkg);
  if (gif.count != static_cast<int32_t>(frames.size()))
    return "frames " + std::to_string(gif.count) + " for " + std::to_string(frames.size());
  const std::string loops = conf["config"]["loop-count"];
  const int32_t wantLoops = loops == "infinite" || loops.empty() ? 0 : std::stoi(loops);
  if (gif.count > 0 && gif.loops != wantLoops)
    return "loop count " + std::to_string(gif.loops) + " for " + loops;
  for (size_t i = 0; i < frames.size(); ++i) {
    const std::string delay = conf[frames[i]]["delay"];
    const int32_t wantMs = delay.empty() ? 0 : std::stoi(delay) * 10;
    if (gif.times[i] != std::max(wantMs, 50))
      return "frame " + std::to_string(i) + " lasts " + std::to_string(gif.times[i]);
    const std::string pixels = readText(kSuite / conf[frames[i]]["pixels"]);
    const std::string why = difference(gif.frames[i], rawPixels(pixels, w, h, 0, 1, 2, 3), bkg);
    if (!why.empty()) return "frame " + std::to_string(i) + " " + why;
  }
  return {};
}

TEST_F(GifConformance, EveryCaseMatchesButThoseThatDifferByDesign) {
  NEED_CORPUS(std::filesystem::exists(kSuite / "TESTS"), kSuite);
  std::istringstream names(readText(kSuite / "TESTS"));
  int total = 0, matched = 0;
  for (std::string name; std::getline(names, name);) {
    if (name.empty()) continue;
    ++total;
    const std::string why = mismatch(program, name);
    const bool ok = why.empty();
    matched += ok;
    if (kByDesign.count(name)) {
      EXPECT_FALSE(ok) << name << " matches now: take it off the list";
      std::cout << "differs by design: " << name << " (" << why << "): " << kByDesign.at(name)
                << "\n";
    } else {
      EXPECT_TRUE(ok) << name << ": " << why;
    }
  }
  std::cout << matched << " of " << total << " cases match\n";
}

const std::filesystem::path kCorpus = "../shared/corpus";

// Which composited frames equal a reference picture (its transparent pixels the background).
std::vector<int> framesLike(const Composited& gif, const std::filesystem::path& png, uint32_t bkg) {
  QImage image(QString::fromStdString(png.string()));
  image = image.convertToFormat(QImage::Format_ARGB32);
  gdi::Surface want(image.width(), image.height(), gdi::AlphaMode::kStraight);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) want.setPixel(x, y, image.pixel(x, y));
  std::vector<int> out;
  for (size_t i = 0; i < gif.frames.size(); ++i)
    if (difference(gif.frames[i], want, bkg).empty()) out.push_back(static_cast<int>(i) + 1);
  return out;
}

TEST_F(GifConformance, DisposalAndTransparencyFilesMatchTheirReferences) {
  const std::filesystem::path data = kCorpus / "pillow/Tests/images";
  NEED_CORPUS(std::filesystem::exists(data / "dispose_none_load_end.gif"), data);
  struct Row {
    const char *gif, *png;
    std::vector<int> frames;  // the frames the reference shows
  } rows[] = {
      {"dispose_none_load_end.gif", "dispose_none_load_end_second.png", {2}},
      {"dispose_prev_first_frame.gif", "dispose_prev_first_frame_seeked.png", {2}},
      {"different_transparency.gif", "different_transparency_merged.png", {2}},
      // Differs by design: the reference has soft edges of partial alpha and more colours
      // than the file holds; it is the picture the file was made from, not a rendering of it.
      {"transparent.gif", "transparent.png", {}},
  };
  for (const Row& r : rows) {
    const QImage ref(QString::fromStdString((data / r.png).string()));
    const Composited gif = composite(program, data / r.gif, ref.width(), ref.height(), 0xFF000000u);
    EXPECT_EQ(framesLike(gif, data / r.png, 0xFF000000u), r.frames) << r.gif;
  }
}

TEST_F(GifConformance, FourFramesOfRedAndBlueMatchTheirCompositedReferences) {
  const std::filesystem::path data = kCorpus / "wuffs/test/data";
  NEED_CORPUS(std::filesystem::exists(data / "animated-red-blue.gif"), data);
  const Composited gif = composite(program, data / "animated-red-blue.gif", 64, 48, 0xFF000000u);
  ASSERT_EQ(gif.count, 4);
  EXPECT_EQ(gif.loops, 2);
  for (int i = 0; i < 4; ++i) {
    const std::string nie =
        readText(data / ("animated-red-blue.00000" + std::to_string(i) + ".nie"));
    const gdi::Surface want = rawPixels(nie.substr(16), 64, 48, 2, 1, 0, 3);
    EXPECT_EQ(difference(gif.frames[static_cast<size_t>(i)], want, 0xFF000000u), "")
        << "frame " << i;
  }
}

}  // namespace
}  // namespace vellumry
