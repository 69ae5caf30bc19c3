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
gdi::Surface Scene(int width, int height, int seed, bool alpha = false) {
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
      row[x] = gdi::Argb(a, (x * 255 / width + n) & 255, (ring + n) & 255,
                         (y * 255 / height + seed) & 255);
    }
  }
  return image;
}

void Write(const std::string& path, const std::vector<uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

void Jpeg(int i, const std::string& path) {
  Write(path, images::MakeJpeg(Scene(4000, 3000, i), 85));
}
void PngRgb(int i, const std::string& path) { Write(path, images::MakePng(Scene(1632, 1224, i))); }
void PngRgba(int i, const std::string& path) {
  Write(path, images::MakePng(Scene(1632, 1224, i, true)));
}
void Bmp24(int i, const std::string& path) { Write(path, codecs::EncodeBmp(Scene(1632, 1224, i))); }
void Bmp32(int i, const std::string& path) {
  Write(path, codecs::EncodeBmp(Scene(1632, 1224, i, true)));
}

void Tiff6(int i, const std::string& path) {
  Write(path, images::MakeTiff(Scene(3000, 2000, i), {.rowsPerStrip = 16, .predictor = true}));
}

// A scan of 10,000 x 10,000: flat tiles of 125 pixels, which LZW keeps small.
void Tiff100(int i, const std::string& path) {
  constexpr int kSide = 10000, kTile = 125;
  const images::TiffLayout layout{.rowsPerStrip = 64, .predictor = true};
  Write(path, images::MakeTiff(kSide, kSide, layout, [&](int y, uint32_t* row) {
          for (int x = 0; x < kSide; ++x) {
            const int tile = (x / kTile) * 7 + (y / kTile) * 13 + i;
            row[x] =
                gdi::Argb(255, static_cast<uint8_t>(tile * 29), static_cast<uint8_t>(tile * 53),
                          static_cast<uint8_t>(y * 255 / kSide));
          }
        }));
}

// 1024 x 768 in the four colours of the test GIFs: rings.
void Gif(int i, const std::string& path) {
  const gdi::Surface scene = Scene(1024, 768, i);
  std::vector<uint8_t> indices;
  indices.reserve(1024 * 768);
  for (const uint32_t p : scene.Pixels()) indices.push_back(gdi::GreenOf(p) >> 6);
  Write(path, images::MakeGif(1024, 768, indices, -1));
}

// An icon of 16, 32, 48 and 256 pixels, half transparent.
void Ico(int i, const std::string& path) {
  const uint32_t color = 0x80000000u | static_cast<uint32_t>(i * 2654435761u & 0xFFFFFF);
  std::vector<images::IconFileImage> sizes;
  for (const int side : {16, 32, 48, 256}) sizes.push_back({images::IconImageBytes(side, color)});
  Write(path, images::IconFile(1, sizes));
}

}  // namespace

const std::vector<FillFolder>& FillFolders() {
  static const std::vector<FillFolder> folders = {
      {"JPEG 12 MP", "jpeg", 200, Jpeg, "jpg"},
      {"PNG 2 MP RGB", "png", 100, PngRgb, "png"},
      {"PNG 2 MP RGBA", "png-rgba", 100, PngRgba, "png"},
      {"TIFF 6 MP LZW", "tiff", 40, Tiff6, "tif"},
      {"TIFF 100 MP striped", "tiff-100mp", 20, Tiff100, "tif"},
      {"GIF 0.8 MP", "gif", 100, Gif, "gif"},
      {"BMP 2 MP 24 bit", "bmp24", 60, Bmp24, "bmp"},
      {"BMP 2 MP 32 bit", "bmp32", 60, Bmp32, "bmp"},
      {"ICO 16-256 px", "ico", 200, Ico, "ico"},
  };
  return folders;
}

void MakeFillFolders(const fs::path& root) {
  for (const FillFolder& folder : FillFolders()) {
    const fs::path dir = root / folder.folder;
    const fs::path done = root / (folder.folder + ".done");
    if (fs::exists(done)) continue;
    std::printf("making %d pictures in %s ...\n", folder.count, dir.c_str());
    std::fflush(stdout);
    fs::create_directories(dir);
    OnAllCores(folder.count, [&](int i) {
      char name[32];
      std::snprintf(name, sizeof name, "p%04d.%s", i, folder.extension.c_str());
      folder.make(i, (dir / name).string());
    });
    std::ofstream(done) << "ok\n";
  }
}

void OnAllCores(int count, const std::function<void(int)>& job) {
  std::atomic<int> next{0};
  std::vector<std::jthread> threads;
  for (unsigned t = 0; t < std::max(1u, std::thread::hardware_concurrency()); ++t) {
    threads.emplace_back([&] {
      for (int i = next++; i < count; i = next++) job(i);
    });
  }
}

std::vector<std::string> PictureFiles(const fs::path& folder) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace vellumry::bench
