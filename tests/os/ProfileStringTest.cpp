// Reading and writing keys of a settings file, and the file a new installation starts with.
// tests/program/INIFunctionsTest.cpp reads through these calls too: missing files and keys,
// empty values, a 300-character value cut to 254.
#include <gtest/gtest.h>

#include <array>
#include <span>
#include <tuple>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"
#include "platform/os/SettingsFile.h"
#include "platform/os/Utf.h"

using namespace vellumry;

namespace {

class ProfileString : public testfiles::TempFolderTest {
 protected:
  // The text read with `size` of a buffer's 256 characters offered, NUL-terminated and counted.
  std::string read(const std::string& section, const std::string& key, const std::string& def,
                   std::size_t size = 255) {
    std::u32string buffer(256, U'x');
    const std::size_t count =
        os::GetPrivateProfileString(section, key, def, std::span(buffer).first(size), file_);
    EXPECT_LT(count, size);
    EXPECT_EQ(buffer[count], U'\0');
    return os::utf8FromChars(std::u32string_view(buffer).substr(0, count));
  }
  std::string file_ = Path("s.ini");
};

TEST_F(ProfileString, FindsValuesOrGivesTheDefault) {
  const std::string cased = "[Other]\nrows=9\n[ settings ]\nRows=4\n";
  const std::string values =
      "[S]\n  dest  =  C:/my pics  \t\nq=\"  spaced  \"\ns='single'\nmixed=\"x'\n";
  const std::string lines = "top=1\n[A]\nx=a\n[B]\n;k=1\nk\nk=a=b\nk=second\n";
  // The file, the section, the key, the default, what is read.
  const std::tuple<std::string, std::string, std::string, std::string, std::string> cases[] = {
      // Sections and keys match in any case, blanks around them ignored; keys stay in their own.
      {cased, "SETTINGS", "rows", "?", "4"},
      {lines, "A", "k", "?", "?"},
      // A missing section gives the default less its trailing blanks.
      {cased, "Nowhere", "rows", "ab  ", "ab"},
      // Blanks around the value and one pair of matching quotes go.
      {values, "S", "dest", "?", "C:/my pics"},
      {values, "S", "q", "?", "  spaced  "},
      {values, "S", "s", "?", "single"},
      {values, "S", "mixed", "?", "\"x'"},
      // The first key of a name counts, and its first equals sign; comments are skipped.
      {lines, "B", "k", "?", "a=b"},
      {lines, "B", ";k", "?", "?"},
      // CRLF line ends, no final line end, a byte-order mark.
      {"[S]\r\nrows=4\r\nslsh=10", "S", "rows", "?", "4"},
      {"[S]\r\nrows=4\r\nslsh=10", "S", "slsh", "?", "10"},
      {"\xEF\xBB\xBF[S]\nrows=4\n", "S", "rows", "?", "4"},
  };
  for (const auto& [bytes, section, key, def, expected] : cases) {
    testfiles::writeBytes(file_, bytes);
    EXPECT_EQ(read(section, key, def), expected) << bytes << " [" << section << "] " << key;
  }
}

// A value, or the default, is cut at the buffer's size less one, counted in characters; an
// empty buffer receives nothing.
TEST_F(ProfileString, CutsAtBufferSizeLessOneCountingCharacters) {
  testfiles::writeBytes(file_, "[S]\nv=0123456789abc\nete=\xC3\xA9t\xC3\xA9\xC3\xA9t\xC3\xA9\n");
  EXPECT_EQ(read("S", "v", "?", 10), "012345678");
  EXPECT_EQ(read("S", "nokey", "defaultvalue", 4), "def");
  EXPECT_EQ(read("S", "ete", "?", 5), "\xC3\xA9t\xC3\xA9\xC3\xA9");
  std::u32string buffer(4, U'x');
  EXPECT_EQ(os::GetPrivateProfileString("S", "v", "?", std::span(buffer).first(0), file_), 0u);
  EXPECT_EQ(buffer, U"xxxx");
}

TEST_F(ProfileString, WritingChangesOnlyTheLineItMust) {
  // The file before (none when empty), the keys written as section, key, value, the file after.
  const std::tuple<std::string, std::vector<std::array<std::string, 3>>, std::string> cases[] = {
      // An existing key is replaced in place, spelled as the file has it, in its own section.
      {"; kept\n\n[Other]\nRows = 7\n\n[Settings]\n  ROWS = 4 \n; note\nslsh=5\n",
       {{"settings", "rows", "6"}},
       "; kept\n\n[Other]\nRows = 7\n\n[Settings]\nROWS=6\n; note\nslsh=5\n"},
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
      // An emptied key stays; the file's line ends and byte-order mark stay.
      {"[Settings]\ndest=/pics\n", {{"Settings", "dest", ""}}, "[Settings]\ndest=\n"},
      {"[Settings]\r\nrows=4\r\n",
       {{"Settings", "rows", "5"}, {"Settings", "slsh", "10"}, {"New", "k", "v"}},
       "[Settings]\r\nrows=5\r\nslsh=10\r\n[New]\r\nk=v\r\n"},
      {"\xEF\xBB\xBF[Settings]\nrows=4\n",
       {{"Settings", "rows", "3"}},
       "\xEF\xBB\xBF[Settings]\nrows=3\n"},
  };
  for (const auto& [before, writes, after] : cases) {
    SCOPED_TRACE(before);
    std::filesystem::remove(file_);
    if (!before.empty()) testfiles::writeBytes(file_, before);
    for (const auto& [section, key, value] : writes)
      EXPECT_TRUE(os::WritePrivateProfileString(section, key, value, file_));
    EXPECT_EQ(testfiles::ReadBytes(file_), after);
  }
  // A file that can't be read isn't written either.
  std::filesystem::create_directory(Path("a folder"));
  EXPECT_FALSE(os::WritePrivateProfileString("Settings", "rows", "4", Path("a folder")));
  EXPECT_TRUE(std::filesystem::is_directory(Path("a folder")));
}

// Every key at its default, in the order of the settings table; an existing file is left
// alone, and a missing folder fails.
TEST_F(ProfileString, ANewSettingsFileHoldsEveryKeyAtItsDefault) {
  ASSERT_TRUE(os::createSettingsFileIfMissing(file_));
  EXPECT_EQ(testfiles::ReadBytes(file_),
            "[Settings]\nrows=4\nframeprop=0\ngformc=4210752\ngselfrc=33023\nslsh=5\nanigifp=1\n"
            "showmb=1\ndest=\nInw=<\nshowll=1\nlnvar=1\nbeeps=1\nsautor=0\nthumbcache=1\n");
  EXPECT_EQ(os::defaultSetting("GFORMC"), "4210752");
  EXPECT_EQ(os::defaultSetting("colour"), std::nullopt);
  testfiles::writeBytes(file_, "[Settings]\nrows=7\n");
  EXPECT_TRUE(os::createSettingsFileIfMissing(file_));
  EXPECT_EQ(testfiles::ReadBytes(file_), "[Settings]\nrows=7\n");
  EXPECT_FALSE(os::createSettingsFileIfMissing(Path("none/OstrelWorks.INI")));
}

}  // namespace
