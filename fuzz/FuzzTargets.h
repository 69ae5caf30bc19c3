#pragma once

// The bodies of the fuzz targets, one per decoder entry point, one each for the link list and the
// settings file, and one for a file taken through the program's loaders as a whole. libFuzzer reaches each through FuzzEntry.cpp; the tests run them over the kept
// findings and the corpus. They take any bytes, borrowed for the call, and return 0 (libFuzzer's
// "keep this input"); a fault shows as a crash or a sanitizer report.

#include <cstddef>
#include <cstdint>

namespace vellumry::fuzz {

int fuzzProbe(const uint8_t* data, size_t size);
int fuzzJpeg(const uint8_t* data, size_t size);
int fuzzPng(const uint8_t* data, size_t size);
int fuzzTiff(const uint8_t* data, size_t size);
int fuzzGif(const uint8_t* data, size_t size);
int fuzzBmp(const uint8_t* data, size_t size);
int fuzzIco(const uint8_t* data, size_t size);
int fuzzDib(const uint8_t* data, size_t size);
int fuzzIconData(const uint8_t* data, size_t size);
int fuzzWmf(const uint8_t* data, size_t size);
int fuzzEmf(const uint8_t* data, size_t size);
int fuzzLinkList(const uint8_t* data, size_t size);
int fuzzSettings(const uint8_t* data, size_t size);
int fuzzGifFile(const uint8_t* data, size_t size);
int fuzzGifStrip(const uint8_t* data, size_t size);
int fuzzExif(const uint8_t* data, size_t size);
int fuzzPngText(const uint8_t* data, size_t size);
int fuzzPicture(const uint8_t* data, size_t size);

}  // namespace vellumry::fuzz
