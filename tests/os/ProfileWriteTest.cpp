#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <string>
#include <vector>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"

using namespace vellumry;

namespace {

class ProfileWrite : public ::testing::Test {
 protected:
  QTemporaryDir dir_;
  std::string file_ = dir_.filePath("s.ini").toStdString();
};

TEST_F(ProfileWrite, ChangesOnlyTheLineItMust) {
  struct Entry {
    std::string section, key, value;
  };
  struct Case {
    std::string before;  // empty: no file
    std::vector<Entry> writes;
    std::string after;
  };
  const Case cases[] = {
      // An existing key is replaced in place, spelled as the file has it.
      {"; kept comment\n\n[Other]\nRows = 7\n\n[Settings]\n  ROWS = 4 \n; note\nslsh=5\n\n"
       "[Tail]\nx=1\n",
       {{"settings", "rows", "6"}},
       "; kept comment\n\n[Other]\nRows = 7\n\n[Settings]\nROWS=6\n; note\nslsh=5\n\n"
       "[Tail]\nx=1\n"},
      // A new key goes behind the last key of its section, or behind the header of an empty one.
      {"[Settings]\nrows=4\n; about slsh\nslsh=5\n\n; next\n[Next]\na=1\n",
       {{"Settings", "beeps", "1"}},
       "[Settings]\nrows=4\n; about slsh\nslsh=5\nbeeps=1\n\n; next\n[Next]\na=1\n"},
      {"[Settings]\n\n[Next]\na=1\n",
       {{"Settings", "rows", "4"}},
       "[Settings]\nrows=4\n\n[Next]\na=1\n"},
      // A missing section goes at the end; a missing file is made.
      {"[Other]\na=1", {{"Settings", "rows", "4"}}, "[Other]\na=1\n[Settings]\nrows=4\n"},
      {"",
       {{"Settings", "dest", "/pics/\xC3\xA9t\xC3\xA9"}},
       "[Settings]\ndest=/pics/\xC3\xA9t\xC3\xA9\n"},
      // An emptied key stays.
      {"[Settings]\ndest=/pics\n", {{"Settings", "dest", ""}}, "[Settings]\ndest=\n"},
      // The file's line ends and byte-order mark stay.
      {"[Settings]\r\nrows=4\r\n",
       {{"Settings", "rows", "5"}, {"Settings", "slsh", "10"}, {"New", "k", "v"}},
       "[Settings]\r\nrows=5\r\nslsh=10\r\n[New]\r\nk=v\r\n"},
      {"\xEF\xBB\xBF[Settings]\nrows=4\n",
       {{"Settings", "rows", "3"}},
       "\xEF\xBB\xBF[Settings]\nrows=3\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.before);
    std::filesystem::remove(file_);
    if (!c.before.empty()) testfiles::WriteBytes(file_, c.before);
    for (const Entry& e : c.writes) {
      EXPECT_TRUE(os::WritePrivateProfileString(e.section, e.key, e.value, file_));
    }
    EXPECT_EQ(testfiles::ReadBytes(file_), c.after);
  }
}

TEST_F(ProfileWrite, FailsWithoutTouchingAFileThatCantBeRead) {
  const std::string folder = dir_.filePath("a folder").toStdString();
  std::filesystem::create_directory(folder);
  EXPECT_FALSE(os::WritePrivateProfileString("Settings", "rows", "4", folder));
  EXPECT_TRUE(std::filesystem::is_directory(folder));
}

}  // namespace
