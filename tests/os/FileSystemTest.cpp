// Files and folders by their bytes: telling them apart, copying, reading, and
// replacing a file whole, so that settings and the link list are never left half-written.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <thread>
#include <tuple>

#include "os/TestFiles.h"
#include "platform/os/FileSystem.h"
#include "platform/os/ProfileString.h"

using namespace vellumry;

namespace {

using namespace testfiles;
using FileSystem = TempFolderTest;

// Makes every write past `bytes` into a file fail, as a full disk would, for the scope's life.
struct FileSizeLimit {
  explicit FileSizeLimit(rlim_t bytes) : old_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_limit);
    rlimit limit = old_limit;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_limit);
    std::signal(SIGXFSZ, old_handler);
  }
  rlimit old_limit{};
  void (*old_handler)(int);
};

TEST_F(FileSystem, TellsFilesFromFolders) {
  writeBytes(Path("a.jpg"), "x");
  std::filesystem::create_directory(Path("sub"));
  for (const auto& [path, file, folder] :  // a file, a folder
       {std::tuple{Path("a.jpg"), true, false},
        {Path("sub"), false, true},
        {Path("sub") + "/", false, true},
        {Path("none"), false, false},
        {"", false, false}}) {
    EXPECT_EQ(os::FileExists(path), file) << path;
    EXPECT_EQ(os::FolderExists(path), folder) << path;
  }
}

TEST_F(FileSystem, CopiesAndHonoursTheOverwriteFlag) {
  const std::string big(3 << 20, '\x7f');  // more than one copy chunk
  writeBytes(Path("src.bin"), big);
  ASSERT_TRUE(os::CopyFile(Path("src.bin"), Path("copy.bin"), false));
  EXPECT_EQ(ReadBytes(Path("copy.bin")), big);
  writeBytes(Path("old.bin"), "old");
  EXPECT_FALSE(os::CopyFile(Path("src.bin"), Path("old.bin"), false));
  EXPECT_EQ(ReadBytes(Path("old.bin")), "old");
  EXPECT_TRUE(os::CopyFile(Path("src.bin"), Path("old.bin"), true));
  EXPECT_EQ(ReadBytes(Path("old.bin")), big);
  EXPECT_FALSE(os::CopyFile(Path("missing.bin"), Path("new.bin"), true));
  EXPECT_FALSE(std::filesystem::exists(Path("new.bin")));
}

TEST_F(FileSystem, ReadsWholeFilesOrTheirStart) {
  writeBytes(Path("t.txt"), std::string("a\0b\r\n", 5));
  EXPECT_EQ(os::readWholeFile(Path("t.txt")), (std::vector<uint8_t>{'a', 0, 'b', '\r', '\n'}));
  EXPECT_EQ(os::readFileStart(Path("t.txt"), 2), (std::vector<uint8_t>{'a', 0}));
  EXPECT_EQ(os::readFileStart(Path("t.txt"), 9), os::readWholeFile(Path("t.txt")));
  EXPECT_EQ(os::readWholeFile(Path("none.txt")), std::nullopt);
  EXPECT_EQ(os::readWholeFile(folder()), std::nullopt);
}

// A write that breaks off half way (here: the disk is "full") fails and leaves the old bytes
// whole and no temporary file behind, for every writer that replaces a file.
TEST_F(FileSystem, AWriteThatBreaksOffKeepsTheOldFile) {
  const std::string settings = "[Settings]\nrows=4\n";
  writeBytes(Path("s.ini"), settings);
  writeBytes(Path("list0.txt"), "A*%*/a*%*");
  writeBytes(Path("big.bin"), std::string(4096, 'b'));
  const std::vector<std::string> before = folderEntries(folder());
  {
    const FileSizeLimit limit(64);
    EXPECT_FALSE(
        os::WritePrivateProfileString("Settings", "dest", std::string(200, 'd'), Path("s.ini")));
    EXPECT_FALSE(os::writeFileAtomically(Path("list0.txt"), std::string(500, 'x')));
    EXPECT_FALSE(os::CopyFile(Path("big.bin"), Path("s.ini"), true));
  }
  EXPECT_EQ(ReadBytes(Path("s.ini")), settings);
  EXPECT_EQ(ReadBytes(Path("list0.txt")), "A*%*/a*%*");
  EXPECT_EQ(folderEntries(folder()), before);
}

// A whole-file write that fails at any one of its steps leaves the old file or, once renamed,
// the new one; never a mix, and no temporary file. Without a fault it replaces the file.
TEST_F(FileSystem, AWriteFailingAtAnyStepLeavesTheOldFileWhole) {
  const std::string before = "Alpha*%*/p/Alpha*%*", after = "Beta*%*/p/Beta*%*Gamma*%*/g*%*";
  for (os::WriteStep failing :
       {os::WriteStep::Open, os::WriteStep::Write, os::WriteStep::Flush, os::WriteStep::Rename}) {
    writeBytes(Path("list0.txt"), before);
    std::vector<os::WriteStep> reached;
    const bool written = os::writeFileAtomically(Path("list0.txt"), after, [&](os::WriteStep s) {
      reached.push_back(s);
      return s != failing;
    });
    SCOPED_TRACE(static_cast<int>(failing));
    EXPECT_FALSE(written);
    EXPECT_EQ(reached.back(), failing);  // nothing runs after the failing step
    EXPECT_EQ(ReadBytes(Path("list0.txt")), before);
    EXPECT_EQ(folderEntries(folder()), std::vector<std::string>{"list0.txt"});
  }
  // Once renamed, the folder is flushed too, so that the rename survives a crash.
  std::vector<os::WriteStep> reached;
  EXPECT_TRUE(os::writeFileAtomically(Path("list0.txt"), after, [&](os::WriteStep s) {
    reached.push_back(s);
    return true;
  }));
  EXPECT_EQ(reached, (std::vector{os::WriteStep::Open, os::WriteStep::Write, os::WriteStep::Flush,
                                  os::WriteStep::Rename, os::WriteStep::FlushFolder}));
  EXPECT_EQ(ReadBytes(Path("list0.txt")), after);
  EXPECT_EQ(folderEntries(folder()), std::vector<std::string>{"list0.txt"});
}

// A settings file or link list that is a symbolic link (to a synchronised folder, say) is
// written through to its file; the link stays.
TEST_F(FileSystem, ALinkedFileIsWrittenThroughItsLink) {
  std::filesystem::create_directory(Path("real"));
  writeBytes(Path("real/s.ini"), "[Settings]\nrows=4\n");
  std::filesystem::create_symlink("real/s.ini", Path("s.ini"));
  std::filesystem::create_symlink(Path("real/list0.txt"), Path("list0.txt"));  // to no file yet
  EXPECT_TRUE(os::WritePrivateProfileString("Settings", "rows", "6", Path("s.ini")));
  EXPECT_TRUE(os::writeFileAtomically(Path("list0.txt"), "A*%*/a*%*"));
  EXPECT_TRUE(std::filesystem::is_symlink(Path("s.ini")));
  EXPECT_TRUE(std::filesystem::is_symlink(Path("list0.txt")));
  EXPECT_EQ(ReadBytes(Path("real/s.ini")), "[Settings]\nrows=6\n");
  EXPECT_EQ(ReadBytes(Path("real/list0.txt")), "A*%*/a*%*");
}

// Two programs changing the settings at once: each change is made under the folder's lock on
// what the other wrote, so none is lost.
TEST_F(FileSystem, ChangesMadeAtOnceAllLand) {
  constexpr int kEach = 150;
  const auto writer = [&](char program) {
    for (int i = 0; i < kEach; ++i)
      EXPECT_TRUE(
          os::WritePrivateProfileString("Settings", program + std::to_string(i), "1", Path("s.ini")));
  };
  std::thread first(writer, 'a'), second(writer, 'b');
  first.join();
  second.join();
  const std::string text = ReadBytes(Path("s.ini"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 2 * kEach);  // the section's line too
}

}  // namespace
