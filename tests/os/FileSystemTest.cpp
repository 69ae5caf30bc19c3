// Files and folders by their bytes: telling them apart, copying, discarding, reading, and
// replacing a file whole, so that settings and the link list are never left half-written.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
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

TEST_F(FileSystem, TellsFilesFromFoldersAndDiscardsFilesOnly) {
  setEnv("XDG_DATA_HOME", Path("data"));
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
  EXPECT_TRUE(os::discardFile(Path("a.jpg")));
  EXPECT_FALSE(std::filesystem::exists(Path("a.jpg")));
  EXPECT_TRUE(std::filesystem::exists(Path("data/Trash/files/a.jpg")));
  EXPECT_FALSE(os::discardFile(Path("a.jpg")));
  EXPECT_FALSE(os::discardFile(Path("sub")));
  EXPECT_TRUE(std::filesystem::is_directory(Path("sub")));
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
  EXPECT_TRUE(os::writeFileAtomically(Path("list0.txt"), after));
  EXPECT_EQ(ReadBytes(Path("list0.txt")), after);
  EXPECT_EQ(folderEntries(folder()), std::vector<std::string>{"list0.txt"});
}

}  // namespace
