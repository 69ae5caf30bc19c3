// The names of the shared thumbnail cache: a file's URI and the MD5 that names its entry.
#include <gtest/gtest.h>

#include "platform/os/ThumbnailStore.h"

namespace vellumry::os {
namespace {

TEST(ThumbnailStore, AFileUriEscapesWhatAPathMayNotHold) {
  // Worked out by hand from RFC 2396: a blank is %20, '#' %23, '%' %25, and the two bytes of
  // 'ü' in UTF-8 (C3 BC) each their own escape; the path's marks and separators stay.
  const struct {
    const char* path;
    const char* uri;
  } cases[] = {
      {"/home/anna/Bilder/Mai 2024/a b#c%d \xC3\xBC.jpg",
       "file:///home/anna/Bilder/Mai%202024/a%20b%23c%25d%20%C3%BC.jpg"},
      {"/p/(1)&=+$,:@!~*'_-.jpg", "file:///p/(1)&=+$,:@!~*'_-.jpg"},
      {"/p/a;b?c\"d<e>[f]{g}|\\^`.png",
       "file:///p/a%3Bb%3Fc%22d%3Ce%3E%5Bf%5D%7Bg%7D%7C%5C%5E%60.png"},
      {"/p/./q/../r.gif", "file:///p/r.gif"},
  };
  for (const auto& c : cases) EXPECT_EQ(FileUri(c.path), c.uri) << c.path;
}

TEST(ThumbnailStore, AnEntryIsNamedByTheMd5OfTheUri) {
  EXPECT_EQ(ThumbnailName("file:///home/anna/Bilder/Mai%202024/a%20b%23c%25d%20%C3%BC.jpg"),
            "1fcd053780b2cc64079a52732846800a.png");
  // The well-known digest of the empty text.
  EXPECT_EQ(ThumbnailName(""), "d41d8cd98f00b204e9800998ecf8427e.png");
}

}  // namespace
}  // namespace vellumry::os
