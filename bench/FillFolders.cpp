#include "FillFolders.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <thread>

#include "codecs/TestImages.h"
#include "platform/codecs/Encoders.h"

namespace vellumry::bench {

namespace fs = std::filesystem;
namespace images = codecs::testing;

namespace {

// Some picture content: soft gradients, rings and a little noise, so the coder has work to do.
// With `alpha` the rings fade from opaque to clear.
gdi::Surface scene(int width, int height, int seed, bool alpha = false) {
  gdi::Surface image(width, height, alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque);
  uint32_t noise = 2463534242u + static_cast<uint32_t>(seed);
  for (int y = 0; y < height; ++y) {
    uint32_t* row = image.Row(y);
    for (int x = 0; x < width; ++x) {
      noise ^= noise << 13, noise ^= noise >> 17, noise ^= noise << 5;
      const double d = std::hypot(x - width * 0.4, y - height * 0.6) / (20 + seed % 7);
      const int ring = static_cast<int>(127 + 100 * std::sin(d));
      const int n = static_cast<int>(noise & 15);
      const uint32_t a = alpha ? static_cast<uint32_t>(ring + 28) : 255;
      row[x] = gdi::argb(a, (x * 255 / width + n) & 255, (ring + n) & 255,
                         (y * 255 / height + seed) & 255);
    }
  }
  return image;
}

void write(const std::string& path, const std::vector<uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

void jpeg(int i, const std::string& path) {
  write(path, images::makeJpeg(scene(4000, 3000, i), 85));
}
void pngRgb(int i, const std::string& path) { write(path, images::makePng(scene(1632, 1224, i))); }
void pngRgba(int i, const std::string& path) {
  write(path, images::makePng(scene(1632, 1224, i, true)));
}
void bmp24(int i, const std::string& path) { write(path, codecs::encodeBmp(scene(1632, 1224, i))); }
void bmp32(int i, const std::string& path) {
  write(path, codecs::encodeBmp(scene(1632, 1224, i, true)));
}

void tiff6(int i, const std::string& path) {
  write(path, images::makeTiff(scene(3000, 2000, i), {.rowsPerStrip = 16, .predictor = true}));
}

// A scan of 10,000 x 10,000: flat tiles of 125 pixels, which LZW keeps small.
void tiff100(int i, const std::string& path) {
  constexpr int kSide = 10000, kTile = 125;
  const images::TiffLayout layout{.rowsPerStrip = 64, .predictor = true};
  write(path, images::makeTiff(kSide, kSide, layout, [&](int y, uint32_t* row) {
          for (int x = 0; x < kSide; ++x) {
            const int tile = (x / kTile) * 7 + (y / kTile) * 13 + i;
            row[x] =
                gdi::argb(255, static_cast<uint8_t>(tile * 29), static_cast<uint8_t>(tile * 53),
                          static_cast<uint8_t>(y * 255 / kSide));
          }
        }));
}

// 1024 x 768 in the four colours of the test GIFs: rings.
void gif(int i, const std::string& path) {
  const gdi::Surface rings = scene(1024, 768, i);
  std::vector<uint8_t> indices;
  indices.reserve(1024 * 768);
  for (const uint32_t p : rings.Pixels()) indices.push_back(gdi::greenOf(p) >> 6);
  write(path, images::makeGif(1024, 768, indices, -1));
}

// An icon of 16, 32, 48 and 256 pixels, half transparent.
void ico(int i, const std::string& path) {
  const uint32_t color = 0x80000000u | static_cast<uint32_t>(i * 2654435761u & 0xFFFFFF);
  std::vector<images::IconFileImage> sizes;
  for (const int side : {16, 32, 48, 256}) sizes.push_back({images::iconImageBytes(side, color)});
  write(path, images::iconFile(1, sizes));
}

}  // namespace

const std::vector<FillFolder>& fillFolders() {
  static const std::vector<FillFolder> folders = {
      {"JPEG 12 MP", "jpeg", 200, jpeg, "jpg"},
      {"PNG 2 MP RGB", "png", 100, pngRgb, "png"},
      {"PNG 2 MP RGBA", "png-rgba", 100, pngRgba, "png"},
      {"TIFF 6 MP LZW", "tiff", 40, tiff6, "tif"},
      {"TIFF 100 MP striped", "tiff-100mp", 20, tiff100, "tif"},
      {"GIF 0.8 MP", "gif", 100, gif, "gif"},
      {"BMP 2 MP 24 bit", "bmp24", 60, bmp24, "bmp"},
      {"BMP 2 MP 32 bit", "bmp32", 60, bmp32, "bmp"},
      {"ICO 16-256 px", "ico", 200, ico, "ico"},
  };
  return folders;
}

void makeFillFolders(const fs::path& root) {
  for (const FillFolder& folder : fillFolders()) {
    const fs::path dir = root / folder.folder;
    const fs::path done = root / (folder.folder + ".done");
    if (fs::exists(done)) continue;
    std::printf("making %d pictures in %s ...\n", folder.count, dir.c_str());
    std::fflush(stdout);
    fs::create_directories(dir);
    onAllCores(folder.count, [&](int i) {
      char name[32];
      std::snprintf(name, sizeof name, "p%04d.%s", i, folder.extension.c_str());
      folder.make(i, (dir / name).string());
    });
    std::ofstream(done) << "ok\n";
  }
}

void onAllCores(int count, const std::function<void(int)>& job) {
  std::atomic<int> next{0};
  std::vector<std::jthread> threads;
  for (unsigned t = 0; t < std::max(1u, std::thread::hardware_concurrency()); ++t) {
    threads.emplace_back([&] {
      for (int i = next++; i < count; i = next++) job(i);
    });
  }
}

std::vector<std::string> pictureFiles(const fs::path& folder) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace vellumry::bench
