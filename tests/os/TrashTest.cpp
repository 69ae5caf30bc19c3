// Discarded files go into a freedesktop trash by their exact bytes: the home trash on its own
// device, the volume's trash on another, the home trash by a copy where the volume has none, and
// deleted only where no trash can be had.
#include <sys/stat.h>
#include <unistd.h>

#include "os/TestFiles.h"
#include "platform/os/Trash.h"

using namespace vellumry;

namespace {

using namespace testfiles;
namespace fs = std::filesystem;

int modeOf(const std::string& path) {
  struct stat st {};
  return ::lstat(path.c_str(), &st) == 0 ? int(st.st_mode & 07777) : -1;
}

// The Path line of a .trashinfo.
std::string pathLine(const std::string& info) {
  const std::string text = ReadBytes(info);
  const size_t at = text.find("\nPath=");
  return at == std::string::npos ? "" : text.substr(at + 6, text.find('\n', at + 1) - at - 6);
}

class Trash : public TempFolderTest {
 protected:
  void SetUp() override { setEnv("XDG_DATA_HOME", Path("data")); }
  // By bytes: the temporary folder alone can't remove a name that isn't UTF-8.
  ~Trash() override {
    std::error_code error;
    fs::remove_all(folder(), error);
  }
};

TEST_F(Trash, OnTheHomeDeviceFilesGoToTheHomeTrashByTheirBytesEachUnderANameOfItsOwn) {
  const auto at = [&](const std::string& name) { return folder() + "/" + name; };  // raw bytes
  const std::string odd = "\xff\xfe pic.jpg";  // not UTF-8
  for (const std::string& name : std::vector<std::string>{"a.jpg", "target.jpg", odd})
    writeBytes(at(name), name);
  fs::create_symlink("target.jpg", at("link.jpg"));
  fs::create_directory(at("sub"));
  for (const std::string& name : std::vector<std::string>{"a.jpg", odd, "link.jpg"})
    EXPECT_TRUE(os::discardFile(at(name)));
  writeBytes(at("a.jpg"), "second");
  EXPECT_TRUE(os::discardFile(at("a.jpg")));
  EXPECT_FALSE(os::discardFile(at("a.jpg")));
  EXPECT_FALSE(os::discardFile(at("sub")));

  const std::string trash = at("data/Trash");
  EXPECT_EQ(folderEntries(trash + "/files"),
            (std::vector<std::string>{"a.2.jpg", "a.jpg", "link.jpg", odd}));
  EXPECT_EQ(ReadBytes(trash + "/files/a.2.jpg"), "second");
  EXPECT_EQ(ReadBytes(trash + "/files/" + odd), odd);
  EXPECT_TRUE(fs::is_symlink(trash + "/files/link.jpg"));  // the link, not its target
  EXPECT_EQ(ReadBytes(at("target.jpg")), "target.jpg");
  EXPECT_EQ(pathLine(trash + "/info/" + odd + ".trashinfo"),
            folder() + "/%FF%FE%20pic.jpg");  // absolute, every other byte escaped
  EXPECT_EQ(pathLine(trash + "/info/a.2.jpg.trashinfo"), folder() + "/a.jpg");
  for (const std::string& made : {trash, trash + "/files", trash + "/info"})
    EXPECT_EQ(modeOf(made), 0700) << made;
}

TEST_F(Trash, WhereNoTrashCanBeMadeTheFileIsDeleted) {
  writeBytes(Path("blocked"), "a file where the data folder would be");
  setEnv("XDG_DATA_HOME", Path("blocked/data"));
  writeBytes(Path("a.jpg"), "x");
  EXPECT_TRUE(os::discardFile(Path("a.jpg")));
  EXPECT_FALSE(fs::exists(Path("a.jpg")));
}

// Files on another volume: /dev/shm, a memory file system of its own.
class TrashOnAnotherVolume : public Trash {
 protected:
  void SetUp() override {
    Trash::SetUp();
    struct stat here {}, there {};
    if (::stat(folder().c_str(), &here) != 0 || ::stat(kVolume, &there) != 0 ||
        here.st_dev == there.st_dev)
      GTEST_SKIP() << kVolume << " is no volume of its own here";
    if (fs::exists(volumeTrash()) || fs::exists(sharedTrash()))
      GTEST_SKIP() << kVolume << " has a trash already, which this test won't touch";
    fs::create_directory(pictures);
  }
  void TearDown() override {
    std::error_code error;
    for (const std::string& made : {pictures, volumeTrash(), sharedTrash()})
      fs::remove_all(made, error);
  }
  static constexpr const char* kVolume = "/dev/shm";
  const std::string uid = std::to_string(::getuid());
  const std::string pictures = std::string(kVolume) + "/vellumry-trash-" + std::to_string(::getpid());
  std::string volumeTrash() const { return std::string(kVolume) + "/.Trash-" + uid; }
  std::string sharedTrash() const { return std::string(kVolume) + "/.Trash"; }
  std::string discarded(const std::string& name) {
    writeBytes(pictures + "/" + name, name);
    EXPECT_TRUE(os::discardFile(pictures + "/" + name));
    EXPECT_FALSE(fs::exists(pictures + "/" + name));
    return name;
  }
};

TEST_F(TrashOnAnotherVolume, FilesGoToThatVolumesTrashOrByACopyToTheHomeTrash) {
  const std::string relative = pictures.substr(std::string(kVolume).size() + 1);
  // The user's own trash at the volume's top, made 0700; paths in it from that top.
  const std::string own = volumeTrash();
  EXPECT_EQ(ReadBytes(own + "/files/" + discarded("b.jpg")), "b.jpg");
  EXPECT_EQ(pathLine(own + "/info/b.jpg.trashinfo"), relative + "/b.jpg");
  EXPECT_EQ(modeOf(own), 0700);
  // An administrator's sticky .Trash comes first.
  fs::create_directory(sharedTrash());
  ::chmod(sharedTrash().c_str(), 01777);
  const std::string shared = sharedTrash() + "/" + uid;
  EXPECT_EQ(ReadBytes(shared + "/files/" + discarded("c.jpg")), "c.jpg");
  EXPECT_EQ(modeOf(shared), 0700);
  // A volume whose trash can't be made: copied into the home trash, absolute path.
  fs::remove_all(sharedTrash());
  fs::remove_all(own);
  writeBytes(own, "a file where the trash would be");
  const std::string home = Path("data/Trash");
  EXPECT_EQ(ReadBytes(home + "/files/" + discarded("d.jpg")), "d.jpg");
  EXPECT_EQ(pathLine(home + "/info/d.jpg.trashinfo"), pictures + "/d.jpg");
}

}  // namespace
