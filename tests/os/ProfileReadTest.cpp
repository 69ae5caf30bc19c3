#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"
#include "platform/os/Utf.h"

using namespace vellumry;

namespace {

struct ReadResult {
  std::size_t count;
  std::string text;
};

class ProfileRead : public ::testing::Test {
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

  std::string Value(const std::string& section, const std::string& key) {
    return Read(section, key).text;
  }

  QTemporaryDir dir_;
  std::string file_ = dir_.filePath("s.ini").toStdString();
};

TEST_F(ProfileRead, FindsSectionsAndKeysWhateverTheirCase) {
  Given("[Other]\nrows=9\n[Settings]\nRows=4\nGFORMC=123\n");
  EXPECT_EQ(Value("settings", "ROWS"), "4");
  EXPECT_EQ(Value("SETTINGS", "gformc"), "123");
  EXPECT_EQ(Value("other", "rows"), "9");
}

TEST_F(ProfileRead, MissingFileSectionOrKeyGivesTheDefault) {
  EXPECT_EQ(Read("Settings", "rows").text, "?") << "no file";
  Given("[Settings]\nrows=4\n");
  EXPECT_EQ(Read("Settings", "slsh").text, "?");
  EXPECT_EQ(Read("Nowhere", "rows", "dflt").text, "dflt");
  EXPECT_EQ(Read("Settings", "slsh", "ab  ").text, "ab") << "trailing blanks of the default go";
}

TEST_F(ProfileRead, EmptyValueGivesEmptyTextNotTheDefault) {
  Given("[Settings]\ndest=\nInw=   \n");
  const ReadResult dest = Read("Settings", "dest");
  EXPECT_EQ(dest.count, 0u);
  EXPECT_EQ(dest.text, "");
  EXPECT_EQ(Value("Settings", "Inw"), "");
}

TEST_F(ProfileRead, TrimsBlanksAndOnePairOfQuotes) {
  Given(
      "[ Settings ]\n  dest  =  C:/my pics  \t\nq=\"  spaced  \"\ns='single'\n"
      "half=\"open\nmixed=\"x'\ninner=a \"b\" c\n");
  EXPECT_EQ(Value("Settings", "dest"), "C:/my pics");
  EXPECT_EQ(Value("Settings", "q"), "  spaced  ");
  EXPECT_EQ(Value("Settings", "s"), "single");
  EXPECT_EQ(Value("Settings", "half"), "\"open");
  EXPECT_EQ(Value("Settings", "mixed"), "\"x'");
  EXPECT_EQ(Value("Settings", "inner"), "a \"b\" c");
}

TEST_F(ProfileRead, TakesTheFirstEqualsSignAndSkipsCommentsAndOtherLines) {
  Given("[Settings]\n;rows=1\nrows\nrows=a=b\nrows=second\n");
  EXPECT_EQ(Value("Settings", "rows"), "a=b");
  EXPECT_EQ(Value("Settings", ";rows"), "?");
}

TEST_F(ProfileRead, KeysBelongOnlyToTheirOwnSection) {
  Given("top=1\n[A]\nx=a\n[B]\ny=b\n");
  EXPECT_EQ(Value("A", "y"), "?");
  EXPECT_EQ(Value("B", "x"), "?");
  EXPECT_EQ(Value("B", "y"), "b");
}

TEST_F(ProfileRead, ReadsCrlfFilesAndFilesWithoutAFinalLineEnd) {
  Given("[Settings]\r\nrows=4\r\nslsh=10");
  EXPECT_EQ(Value("Settings", "rows"), "4");
  EXPECT_EQ(Value("Settings", "slsh"), "10");
}

TEST_F(ProfileRead, ToleratesAByteOrderMark) {
  Given("\xEF\xBB\xBF[Settings]\nrows=4\n");
  EXPECT_EQ(Value("Settings", "rows"), "4");
}

TEST_F(ProfileRead, CutsAtBufferSizeLessOneAndReturnsTheCount) {
  const std::string long_value(300, 'v');
  Given("[Settings]\ndest=" + long_value + "\n");
  const ReadResult read = Read("Settings", "dest");
  EXPECT_EQ(read.count, 254u);
  EXPECT_EQ(read.text, long_value.substr(0, 254));

  EXPECT_EQ(Read("Settings", "dest", "?", 10).count, 9u);
  EXPECT_EQ(Read("Settings", "nokey", "defaultvalue", 4).text, "def") << "the default is cut too";
}

TEST_F(ProfileRead, CountsCharactersNotBytes) {
  const std::string word = "\xC3\xA9t\xC3\xA9";  // "été": 3 characters, 5 bytes
  Given("[Settings]\ndest=" + word + word + "\n");
  const ReadResult read = Read("Settings", "dest", "?", 5);
  EXPECT_EQ(read.count, 4u);
  EXPECT_EQ(read.text, word + "\xC3\xA9");
}

TEST_F(ProfileRead, AnEmptyBufferReceivesNothing) {
  Given("[Settings]\nrows=4\n");
  std::u32string buffer(4, U'x');
  EXPECT_EQ(os::GetPrivateProfileString("Settings", "rows", "?", std::span(buffer).first(0), file_),
            0u);
  EXPECT_EQ(buffer, U"xxxx");
}

}  // namespace
