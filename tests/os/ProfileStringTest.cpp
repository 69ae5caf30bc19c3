// Reading and writing keys of a settings file.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"
#include "platform/os/Utf.h"

using namespace vellumry;

namespace {

struct ReadResult {
  std::size_t count;
  std::string text;
};

class ProfileString : public testfiles::TempFolderTest {
 protected:
  void Given(const std::string& bytes) { testfiles::WriteBytes(file_, bytes); }

  // Like the settings reader: a buffer of 256 blanks of which `size` are offered.
  ReadResult Read(const std::string& section, const std::string& key, const std::string& def = "?",
                  std::size_t size = 255) {
    std::u32string buffer(256, U'x');
    const std::size_t count =
        os::GetPrivateProfileString(section, key, def, std::span(buffer).first(size), file_);
    EXPECT_LT(count, size);
    EXPECT_EQ(buffer[count], U'\0') << "the copied text is NUL-terminated";
    return {count, os::Utf8FromChars(std::u32string_view(buffer).substr(0, count))};
  }

  std::string file_ = Path("s.ini");
};

TEST_F(ProfileString, FindsValuesOrGivesTheDefault) {
  const std::string settings = "[Settings]\nrows=4\n";
  const std::string cased = "[Other]\nrows=9\n[Settings]\nRows=4\nGFORMC=123\n";
  const std::string trimmed =
      "[ Settings ]\n  dest  =  C:/my pics  \t\nq=\"  spaced  \"\ns='single'\n"
      "half=\"open\nmixed=\"x'\ninner=a \"b\" c\n";
  const std::string lines = "top=1\n[A]\nx=a\n[B]\ny=b\n;k=1\nk\nk=a=b\nk=second\n";
  struct Case {
    std::string file;  // empty: no file
    std::string section, key, def, expected;
  };
  const Case cases[] = {
      // Sections and keys match whatever their case.
      {cased, "settings", "ROWS", "?", "4"},
      {cased, "SETTINGS", "gformc", "?", "123"},
      {cased, "other", "rows", "?", "9"},
      // A missing file, section or key gives the default less its trailing blanks.
      {"", "Settings", "rows", "?", "?"},
      {settings, "Nowhere", "rows", "dflt", "dflt"},
      {settings, "Settings", "slsh", "ab  ", "ab"},
      // An empty value is empty text, not the default.
      {"[Settings]\ndest=\nInw=   \n", "Settings", "dest", "?", ""},
      {"[Settings]\ndest=\nInw=   \n", "Settings", "Inw", "?", ""},
      // Blanks around the value and one pair of matching quotes go.
      {trimmed, "Settings", "dest", "?", "C:/my pics"},
      {trimmed, "Settings", "q", "?", "  spaced  "},
      {trimmed, "Settings", "s", "?", "single"},
      {trimmed, "Settings", "half", "?", "\"open"},
      {trimmed, "Settings", "mixed", "?", "\"x'"},
      {trimmed, "Settings", "inner", "?", "a \"b\" c"},
      // Keys belong to their own section; the first equals sign counts; comments and lines
      // without one are skipped.
      {lines, "A", "y", "?", "?"},
      {lines, "B", "x", "?", "?"},
      {lines, "B", "y", "?", "b"},
      {lines, "B", "k", "?", "a=b"},
      {lines, "B", ";k", "?", "?"},
      // CRLF line ends, no final line end, a byte-order mark.
      {"[Settings]\r\nrows=4\r\nslsh=10", "Settings", "rows", "?", "4"},
      {"[Settings]\r\nrows=4\r\nslsh=10", "Settings", "slsh", "?", "10"},
      {"\xEF\xBB\xBF" + settings, "Settings", "rows", "?", "4"},
  };
  for (const Case& c : cases) {
    std::filesystem::remove(file_);
    if (!c.file.empty()) Given(c.file);
    EXPECT_EQ(Read(c.section, c.key, c.def).text, c.expected)
        << c.file << " [" << c.section << "] " << c.key;
  }
}

TEST_F(ProfileString, CutsAtBufferSizeLessOneCountingCharacters) {
  const std::string v(300, 'v');
  const std::string ete = "\xC3\xA9t\xC3\xA9";  // "été": 3 characters, 5 bytes
  struct Case {
    std::string value, key, def;
    std::size_t size;
    std::string expected;
  };
  const Case cases[] = {
      {v, "dest", "?", 255, v.substr(0, 254)},
      {v, "dest", "?", 10, v.substr(0, 9)},
      {v, "nokey", "defaultvalue", 4, "def"},  // the default is cut too
      {ete + ete, "dest", "?", 5, ete + "\xC3\xA9"},
  };
  for (const Case& c : cases) {
    Given("[Settings]\ndest=" + c.value + "\n");
    const ReadResult read = Read("Settings", c.key, c.def, c.size);
    EXPECT_EQ(read.text, c.expected) << c.size;
    EXPECT_EQ(read.count, c.size - 1);
  }
}

TEST_F(ProfileString, AnEmptyBufferReceivesNothing) {
  Given("[Settings]\nrows=4\n");
  std::u32string buffer(4, U'x');
  EXPECT_EQ(os::GetPrivateProfileString("Settings", "rows", "?", std::span(buffer).first(0), file_),
            0u);
  EXPECT_EQ(buffer, U"xxxx");
}

TEST_F(ProfileString, WritingChangesOnlyTheLineItMust) {
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
    if (!c.before.empty()) Given(c.before);
    for (const Entry& e : c.writes) {
      EXPECT_TRUE(os::WritePrivateProfileString(e.section, e.key, e.value, file_));
    }
    EXPECT_EQ(testfiles::ReadBytes(file_), c.after);
  }
}

TEST_F(ProfileString, WritingFailsWithoutTouchingAFileThatCantBeRead) {
  const std::string folder = Path("a folder");
  std::filesystem::create_directory(folder);
  EXPECT_FALSE(os::WritePrivateProfileString("Settings", "rows", "4", folder));
  EXPECT_TRUE(std::filesystem::is_directory(folder));
}

}  // namespace
