#pragma once
// The folders of pictures that bench/grid_fill loads, one a format, made once and kept.
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vellumry::bench {

struct FillFolder {
  std::string title;   // the row's name in the table
  std::string folder;  // under the root
  int count;           // files in it
  // Writes picture `index` to `path` (the extension is the folder's).
  void (*make)(int index, const std::string& path);
  std::string extension;
};

// Every format's folder, in the table's order.
const std::vector<FillFolder>& fillFolders();

// Makes each folder under `root` that isn't complete yet (once it is, "FOLDER.done" stands
// beside it), on every core.
void makeFillFolders(const std::filesystem::path& root);

// Runs job(i) for i in [0, count) on every core.
void onAllCores(int count, const std::function<void(int)>& job);

// The picture files of `folder`, sorted.
std::vector<std::string> pictureFiles(const std::filesystem::path& folder);

}  // namespace vellumry::bench
