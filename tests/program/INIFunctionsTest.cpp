#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <string>

#include "os/TestFiles.h"
#include "program/INIFunctions.h"

using namespace vellumry;

namespace {

class INIFunctions : public ::testing::Test {
 protected:
  void given(const std::string& bytes) { testfiles::writeBytes(file_, bytes); }
  std::string read(const std::string& key) { return ReadIni(file_, "Settings", key, "?"); }
  long number(const std::string& key) { return readIniNumber(file_, "Settings", key); }

  QTemporaryDir dir_;
  std::string file_ = dir_.filePath("OstrelWorks.INI").toStdString();
};

TEST_F(INIFunctions, ReadsValuesEmptyValuesAndDefaults) {
  given("[Settings]\nROWS=4\ndest=\nshowll=\n");
  EXPECT_EQ(read("rows"), "4");
  EXPECT_EQ(read("dest"), "");
  EXPECT_EQ(read("showll"), "") << "empty, so not the \"?\" of a missing key";
  EXPECT_EQ(read("slsh"), "?");
  EXPECT_EQ(ReadIni(dir_.filePath("none.ini").toStdString(), "Settings", "rows", "?"), "?");
}

TEST_F(INIFunctions, AValueOf300CharactersReadsBackAsItsFirst254) {
  const std::string value = std::string(150, 'a') + std::string(150, 'b');
  WriteIni(file_, "Settings", "dest", value);
  EXPECT_EQ(read("dest"), value.substr(0, 254));
}

TEST_F(INIFunctions, LineBreaksAreWrittenAsBlanksOnOneLine) {
  given("[Settings]\nrows=4\n");
  WriteIni(file_, "Settings", "dest", "a\r\nb\nc\rd");
  EXPECT_EQ(testfiles::ReadBytes(file_), "[Settings]\nrows=4\ndest=a  b c d\n");
  EXPECT_EQ(read("dest"), "a  b c d");
}

TEST_F(INIFunctions, WritesReplaceTheKeyAndKeepTheRest) {
  given("; mine\n[Settings]\nInw=>\nrows=4\n");
  WriteIni(file_, "Settings", "inw", "<");
  EXPECT_EQ(testfiles::ReadBytes(file_), "; mine\n[Settings]\nInw=<\nrows=4\n");
}

TEST_F(INIFunctions, AFailedWriteIsSilent) {
  WriteIni(dir_.filePath("no/folder.ini").toStdString(), "Settings", "rows", "4");
  EXPECT_EQ(ReadIni(dir_.filePath("no/folder.ini").toStdString(), "Settings", "rows", "?"), "?");
}

TEST_F(INIFunctions, NumbersReadLikeDecimalText) {
  given("[Settings]\nrows= 7\nslsh=-15\ngformc=+255\ngselfrc=12abc\nbeeps=0\n");
  EXPECT_EQ(number("rows"), 7);
  EXPECT_EQ(number("slsh"), -15);
  EXPECT_EQ(number("gformc"), 255);
  EXPECT_EQ(number("gselfrc"), 12) << "what follows the digits is ignored";
  EXPECT_EQ(number("beeps"), 0);
}

TEST_F(INIFunctions, ANumericKeyWithoutANumberReadsAsItsDefault) {
  given(
      "[Settings]\nrows=abc\nslsh=\ngformc=-\ngselfrc=+-5\nshowmb=99999999999999999999999\n"
      "dest=x\n");
  EXPECT_EQ(number("rows"), 4);
  EXPECT_EQ(number("slsh"), 5);
  EXPECT_EQ(number("gformc"), 4210752);
  EXPECT_EQ(number("gselfrc"), 33023);
  EXPECT_EQ(number("showmb"), 1) << "too large for a number";
  EXPECT_EQ(number("anigifp"), 1) << "missing";
  EXPECT_EQ(number("dest"), 0) << "a text key has no numeric default";
  EXPECT_EQ(number("unknown"), 0);
}

}  // namespace
