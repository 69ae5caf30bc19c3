#include "picture/PlainLoader.h"

#include <filesystem>

#include "picture/LazyPicture.h"
#include "picture/SourceDecoder.h"
#include "platform/toolkit/Error.h"

namespace vellumry {

gdi::Picture LoadPicture(PictureServices& services, const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) tk::raise(tk::err::FileNotFound);
  const auto info = probeFile(path);
  gdi::Picture picture;
  if (info) picture = makeLazyPicture(services, {path, nullptr}, *info);
  if (!picture) tk::raise(tk::err::InvalidPicture);
  return picture;
}

}  // namespace vellumry
