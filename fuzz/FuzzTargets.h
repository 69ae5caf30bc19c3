#pragma once

// The bodies of the fuzz targets, one per decoder entry point and one each for the link list and
// the settings file. libFuzzer reaches each through FuzzEntry.cpp; the tests run them over the kept
// findings and the corpus. They take any bytes, borrowed for the call, and return 0 (libFuzzer's
// "keep this input"); a fault shows as a crash or a sanitizer report.

#include <cstddef>
#include <cstdint>

namespace vellumry::fuzz {

int FuzzProbe(const uint8_t* data, size_t size);
int FuzzJpeg(const uint8_t* data, size_t size);
int FuzzPng(const uint8_t* data, size_t size);
int FuzzTiff(const uint8_t* data, size_t size);
int FuzzGif(const uint8_t* data, size_t size);
int FuzzBmp(const uint8_t* data, size_t size);
int FuzzIco(const uint8_t* data, size_t size);
int FuzzDib(const uint8_t* data, size_t size);
int FuzzIconData(const uint8_t* data, size_t size);
int FuzzWmf(const uint8_t* data, size_t size);
int FuzzEmf(const uint8_t* data, size_t size);
int FuzzLinkList(const uint8_t* data, size_t size);
int FuzzSettings(const uint8_t* data, size_t size);
int FuzzGifFile(const uint8_t* data, size_t size);
int FuzzGifStrip(const uint8_t* data, size_t size);
int FuzzExif(const uint8_t* data, size_t size);
int FuzzPngText(const uint8_t* data, size_t size);

}  // namespace vellumry::fuzz
