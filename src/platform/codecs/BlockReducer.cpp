#include "platform/codecs/BlockReducer.h"

#include <algorithm>

namespace vellumry::codecs {

gdi::Size reduced(int width, int height, int factor) {
  return {(width + factor - 1) / factor, (height + factor - 1) / factor};
}

std::vector<gdi::Size> halvedSizes(int width, int height) {
  std::vector<gdi::Size> sizes;
  for (int factor = 1;; factor *= 2) {
    sizes.insert(sizes.begin(), reduced(width, height, factor));
    if (sizes.front() == gdi::Size{1, 1} || factor == 1 << 30) return sizes;
  }
}

int halvingTo(int width, int height, gdi::Size size) {
  for (int factor = 1;; factor *= 2) {
    if (reduced(width, height, factor) == size) return factor;
    if (factor == 1 << 30) return 1;
  }
}

gdi::Surface reduce(const gdi::Surface& full, int factor) {
  const gdi::Size size = reduced(full.Width(), full.Height(), factor);
  gdi::Surface out(size.width, size.height, full.alpha());
  BlockReducer reducer(out, full.Width(), factor);
  for (int y = 0; y < full.Height(); ++y) reducer.addRow(full.Row(y));
  reducer.finish();
  return out;
}

BlockReducer::BlockReducer(gdi::Surface& out, int sourceWidth, int factor)
    : out_(out),
      sourceWidth_(sourceWidth),
      factor_(factor),
      weighted_(out.alpha() == gdi::AlphaMode::kStraight),
      sums_(static_cast<size_t>(out.Width()) * 4, 0) {}

void BlockReducer::addRow(const uint32_t* row) {
  uint64_t* sum = sums_.data();
  for (int x = 0; x < sourceWidth_; sum += 4) {
    const int blockEnd = std::min(sourceWidth_, x + factor_);
    if (!weighted_) {
      uint64_t blue = 0, green = 0, red = 0, alpha = 0;
      for (; x < blockEnd; ++x) {
        const uint32_t p = row[x];
        blue += p & 0xFF;
        green += (p >> 8) & 0xFF;
        red += (p >> 16) & 0xFF;
        alpha += p >> 24;
      }
      sum[0] += blue, sum[1] += green, sum[2] += red, sum[3] += alpha;
      continue;
    }
    for (; x < blockEnd; ++x) {
      const uint32_t p = row[x];
      const uint64_t weight = gdi::alphaOf(p);
      sum[0] += gdi::blueOf(p) * weight;
      sum[1] += gdi::greenOf(p) * weight;
      sum[2] += gdi::redOf(p) * weight;
      sum[3] += gdi::alphaOf(p);
    }
  }
  if (++rowsInBand_ == factor_) emitBand();
}

void BlockReducer::finish() {
  if (rowsInBand_ > 0) emitBand();
}

void BlockReducer::emitBand() {
  uint32_t* out = out_.Row(outRow_++);
  for (int x = 0; x < out_.Width(); ++x) {
    const uint64_t* sum = &sums_[static_cast<size_t>(x) * 4];
    const uint64_t count =
        static_cast<uint64_t>(std::min(factor_, sourceWidth_ - x * factor_)) * rowsInBand_;
    const uint64_t weight = weighted_ ? sum[3] : count;
    const auto colour = [&](int i) {
      return static_cast<uint8_t>(weight == 0 ? 0 : (sum[i] + weight / 2) / weight);
    };
    out[x] = gdi::argb(static_cast<uint8_t>((sum[3] + count / 2) / count), colour(2), colour(1),
                       colour(0));
  }
  std::fill(sums_.begin(), sums_.end(), 0);
  rowsInBand_ = 0;
}

}  // namespace vellumry::codecs
