#include "platform/os/Trash.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "platform/os/FileSystem.h"
#include "platform/os/Utf.h"

namespace vellumry::os {

namespace {

// A trash folder: `files` holds what was discarded, `info` a .trashinfo for each; `volumeTop`
// is where the Path lines are relative to (empty: they are absolute).
struct TrashFolder {
  std::string root, volumeTop;
};

std::optional<struct stat> statOf(const std::string& path, bool followLink = true) {
  struct stat st {};
  if ((followLink ? ::stat(path.c_str(), &st) : ::lstat(path.c_str(), &st)) != 0) return {};
  return st;
}

// A folder of the user's own at `path`, made 0700 when missing; a link is no such folder.
bool ownFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) return false;
  const auto st = statOf(path, false);
  return st && S_ISDIR(st->st_mode) && st->st_uid == ::getuid();
}

bool trashStands(const std::string& root) {
  return ownFolder(root) && ownFolder(root + "/files") && ownFolder(root + "/info");
}

// Every folder of an absolute `path`, made 0700 where missing.
bool foldersStand(const std::string& path) {
  for (size_t slash = path.find('/', 1); slash != std::string::npos;
       slash = path.find('/', slash + 1)) {
    if (::mkdir(path.substr(0, slash).c_str(), 0700) != 0 && errno != EEXIST) return false;
  }
  return ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST;
}

// The home trash, none where it can't be made, and the device it lies or would lie on.
struct HomeTrash {
  std::optional<TrashFolder> folder;
  std::optional<dev_t> device;
};

HomeTrash homeTrash() {
  const char* data = std::getenv("XDG_DATA_HOME");
  std::string base = data && data[0] == '/' ? data : "";
  if (base.empty()) {
    const char* home = std::getenv("HOME");
    if (!home || home[0] != '/') return {};
    base = std::string(home) + "/.local/share";
  }
  HomeTrash trash;
  if (foldersStand(base) && trashStands(base + "/Trash")) trash.folder = {base + "/Trash", ""};
  // The nearest folder of it that stands tells the device.
  for (std::string at = base;; at = at.substr(0, at.rfind('/'))) {
    if (const auto st = statOf(at.empty() ? "/" : at)) trash.device = st->st_dev;
    if (trash.device || at.empty()) return trash;
  }
}

// The folder that holds `path`, with its links resolved; the file's own name stays as it is.
std::optional<std::pair<std::string, std::string>> folderAndName(const std::string& path) {
  const size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
  char resolved[PATH_MAX];
  if (name.empty() || !::realpath(folder.c_str(), resolved)) return std::nullopt;
  return std::pair{std::string(resolved), name};
}

// The top folder of the volume that holds the folder `folder`.
std::string volumeTopOf(std::string folder, dev_t device) {
  while (folder != "/") {
    const size_t slash = folder.rfind('/');
    const std::string parent = slash == 0 ? "/" : folder.substr(0, slash);
    const auto st = statOf(parent);
    if (!st || st->st_dev != device) break;
    folder = parent;
  }
  return folder;
}

std::string infoText(const std::string& stoodAt) {
  char date[32];
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &local);
  return "[Trash Info]\nPath=" + percentEscaped(stoodAt) + "\nDeletionDate=" + date + "\n";
}

// "a.jpg", then "a.2.jpg", "a.3.jpg" ...
std::string entryName(const std::string& name, int n) {
  if (n == 1) return name;
  const size_t dot = name.rfind('.');
  if (dot == std::string::npos || dot == 0) return name + "." + std::to_string(n);
  return name.substr(0, dot) + "." + std::to_string(n) + name.substr(dot);
}

// Puts the file into `trash` under a name of its own, its .trashinfo written first, by
// `move(entry)`; false leaves the file where it was and no info behind.
template <class Move>
bool putInto(const TrashFolder& trash, const std::string& folder, const std::string& name,
             Move move) {
  // Where the file stood: absolute in the home trash, from the volume's top in a volume's.
  const std::string absolute = (folder == "/" ? "" : folder) + "/" + name;
  const size_t top = trash.volumeTop.empty() ? 0
                     : trash.volumeTop == "/" ? 1
                                              : trash.volumeTop.size() + 1;
  const std::string text = infoText(absolute.substr(top));
  for (int n = 1; n < 100000; ++n) {
    const std::string entry = entryName(name, n);
    const std::string target = trash.root + "/files/" + entry;
    if (statOf(target, false)) continue;
    const std::string info = trash.root + "/info/" + entry + ".trashinfo";
    const int fd = ::open(info.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0 && errno == EEXIST) continue;
    if (fd < 0) return false;
    const bool written =
        ::write(fd, text.data(), text.size()) == ssize_t(text.size()) && ::fsync(fd) == 0;
    ::close(fd);
    if (written && move(target)) return true;
    ::unlink(info.c_str());
    return false;
  }
  return false;
}

// The trash at the top of the volume: an administrator's .Trash, else one of the user's own.
std::optional<TrashFolder> volumeTrash(const std::string& top) {
  const std::string uid = std::to_string(::getuid());
  const std::string shared = (top == "/" ? "" : top) + "/.Trash";
  const auto st = statOf(shared, false);
  if (st && S_ISDIR(st->st_mode) && (st->st_mode & S_ISVTX) && trashStands(shared + "/" + uid))
    return TrashFolder{shared + "/" + uid, top};
  const std::string own = (top == "/" ? "" : top) + "/.Trash-" + uid;
  if (trashStands(own)) return TrashFolder{own, top};
  return std::nullopt;
}

// A copy of the file, or of the link, at `target`.
bool copyOf(const std::string& path, const struct stat& st, const std::string& target) {
  if (!S_ISLNK(st.st_mode)) return CopyFile(path, target, false);
  std::string link(PATH_MAX, '\0');
  const ssize_t n = ::readlink(path.c_str(), link.data(), link.size());
  return n > 0 && ::symlink(link.substr(0, size_t(n)).c_str(), target.c_str()) == 0;
}

}  // namespace

bool discardFile(const std::string& path) {
  const auto file = statOf(path, false);
  const auto place = folderAndName(path);
  if (!FileExists(path) || !file || !place) return false;
  const auto& [folder, name] = *place;
  const auto rename = [&](const std::string& target) {
    return ::rename(path.c_str(), target.c_str()) == 0;
  };
  const HomeTrash home = homeTrash();
  const bool homeDevice = home.device == file->st_dev;
  if (homeDevice && home.folder && putInto(*home.folder, folder, name, rename)) return true;
  if (!homeDevice) {
    const auto trash = volumeTrash(volumeTopOf(folder, file->st_dev));
    if (trash && putInto(*trash, folder, name, rename)) return true;
  }
  // Copied where a rename can't reach: a volume without a trash, or a mount of the home device.
  const auto copy = [&](const std::string& target) {
    if (!copyOf(path, *file, target)) return false;
    if (::unlink(path.c_str()) == 0) return true;
    ::unlink(target.c_str());
    return false;
  };
  if (home.folder && putInto(*home.folder, folder, name, copy)) return true;
  // No trash at all.
  return ::unlink(path.c_str()) == 0;
}

}  // namespace vellumry::os
