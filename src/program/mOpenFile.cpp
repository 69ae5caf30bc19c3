#include "program/mOpenFile.h"

#include "platform/os/FileSystem.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry {

bool pFileexists(const std::string& path) { return os::FileExists(path); }

void pOpenfile(tk::Runtime& runtime, const std::string& path) {
  tk::Host& host = runtime.host();
  if (host.open(path) || host.openWith(path)) return;
  runtime.MsgBox("Unkwown filetype.", tk::mb::Information, "Info");
}

}  // namespace vellumry
