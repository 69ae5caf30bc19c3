#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"

using namespace vellumry;

namespace {

class ProfileWrite : public ::testing::Test {
 protected:
  void Given(const std::string& bytes) { testfiles::WriteBytes(file_, bytes); }
  void Write(const std::string& section, const std::string& key, const std::string& value) {
    ASSERT_TRUE(os::WritePrivateProfileString(section, key, value, file_));
  }
  std::string Bytes() const { return testfiles::ReadBytes(file_); }

  QTemporaryDir dir_;
  std::string file_ = dir_.filePath("s.ini").toStdString();
};

TEST_F(ProfileWrite, ReplacesAnExistingKeyInPlaceKeepingEveryOtherByte) {
  Given(
      "; kept comment\n\n[Other]\nRows = 7\n\n[Settings]\n  ROWS = 4 \n; note\nslsh=5\n\n"
      "[Tail]\nx=1\n");
  Write("settings", "rows", "6");
  EXPECT_EQ(Bytes(),
            "; kept comment\n\n[Other]\nRows = 7\n\n[Settings]\nROWS=6\n; note\nslsh=5\n\n"
            "[Tail]\nx=1\n");
}

TEST_F(ProfileWrite, AppendsANewKeyBehindTheLastKeyOfItsSection) {
  Given("[Settings]\nrows=4\n; about slsh\nslsh=5\n\n; next\n[Next]\na=1\n");
  Write("Settings", "beeps", "1");
  EXPECT_EQ(Bytes(), "[Settings]\nrows=4\n; about slsh\nslsh=5\nbeeps=1\n\n; next\n[Next]\na=1\n");
}

TEST_F(ProfileWrite, AKeyInAnEmptySectionFollowsItsHeader) {
  Given("[Settings]\n\n[Next]\na=1\n");
  Write("Settings", "rows", "4");
  EXPECT_EQ(Bytes(), "[Settings]\nrows=4\n\n[Next]\na=1\n");
}

TEST_F(ProfileWrite, AppendsAMissingSectionAtTheEnd) {
  Given("[Other]\na=1");
  Write("Settings", "rows", "4");
  EXPECT_EQ(Bytes(), "[Other]\na=1\n[Settings]\nrows=4\n");
}

TEST_F(ProfileWrite, CreatesAMissingFile) {
  Write("Settings", "dest", "/home/me/Pictures");
  EXPECT_EQ(Bytes(), "[Settings]\ndest=/home/me/Pictures\n");
}

TEST_F(ProfileWrite, KeepsTheFilesCrlfLineEnds) {
  Given("[Settings]\r\nrows=4\r\n");
  Write("Settings", "rows", "5");
  Write("Settings", "slsh", "10");
  Write("New", "k", "v");
  EXPECT_EQ(Bytes(), "[Settings]\r\nrows=5\r\nslsh=10\r\n[New]\r\nk=v\r\n");
}

TEST_F(ProfileWrite, KeepsAByteOrderMark) {
  Given("\xEF\xBB\xBF[Settings]\nrows=4\n");
  Write("Settings", "rows", "3");
  EXPECT_EQ(Bytes(), "\xEF\xBB\xBF[Settings]\nrows=3\n");
}

TEST_F(ProfileWrite, WhatIsWrittenReadsBack) {
  Write("Settings", "dest", "/pics/\xC3\xA9t\xC3\xA9");
  Write("Settings", "dest", "");
  std::u32string buffer(8, U'x');
  EXPECT_EQ(os::GetPrivateProfileString("Settings", "dest", "?", buffer, file_), 0u)
      << "an emptied key stays present";
}

TEST_F(ProfileWrite, FailsWithoutTouchingAFileThatCantBeRead) {
  const std::string folder = dir_.filePath("a folder").toStdString();
  std::filesystem::create_directory(folder);
  EXPECT_FALSE(os::WritePrivateProfileString("Settings", "rows", "4", folder));
  EXPECT_TRUE(std::filesystem::is_directory(folder));
}

}  // namespace
