// The size line of the file information: the first unit whose threshold the size reaches.
#include <gtest/gtest.h>

#include "tools/Imginfo.h"

TEST(Imginfo, SizeTextTakesTheLargestUnitReached) {
  const struct {
    uint64_t bytes;
    const char* text;
  } cases[] = {
      {0, "0 Bytes"},
      {1023, "1023 Bytes"},
      {1024, "1.00 KB"},
      {1536, "1.50 KB"},
      {1152, "1.13 KB"},  // 1.125: a half rounds up
      {1048575, "1024.00 KB"},
      {1048576, "1.00 MB"},
      {1073741823, "1024.00 MB"},
      {1073741824, "1.00 GB"},
      {5368709120, "5.00 GB"},
  };
  for (const auto& c : cases) EXPECT_EQ(vellumry::sizeText(c.bytes), c.text) << c.bytes;
}
