#include <gtest/gtest.h>

#include <cctype>
#include <string>
#include <utility>

#include "os/TestFiles.h"
#include "platform/os/SettingsFile.h"

using namespace vellumry;

namespace {

class SettingsFile : public testfiles::TempFolderTest {
 protected:
  std::string file_ = Path("OstrelWorks.INI");
};

TEST_F(SettingsFile, ANewFileHoldsEveryKeyAtItsDefaultInOrder) {
  // The settings table of the README.
  const std::pair<std::string, std::string> defaults[] = {
      {"rows", "4"},  {"frameprop", "0"}, {"gformc", "4210752"}, {"gselfrc", "33023"},
      {"slsh", "5"},  {"anigifp", "1"},   {"showmb", "1"},       {"dest", ""},
      {"Inw", "<"},   {"showll", "1"},    {"lnvar", "1"},        {"beeps", "1"},
      {"sautor", "0"}, {"thumbcache", "1"}};
  ASSERT_TRUE(os::CreateSettingsFileIfMissing(file_));
  std::string expected = "[Settings]\n";
  for (const auto& [key, value] : defaults) {
    expected += key + "=" + value + "\n";
    std::string shouted = key;
    for (char& c : shouted) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(os::DefaultSetting(shouted), value) << "the default is found whatever the case";
  }
  EXPECT_EQ(testfiles::ReadBytes(file_), expected);
  EXPECT_EQ(os::DefaultSetting("colour"), std::nullopt);
}

TEST_F(SettingsFile, AnExistingFileIsLeftAloneAndAMissingFolderFails) {
  testfiles::WriteBytes(file_, "[Settings]\nrows=7\n");
  EXPECT_TRUE(os::CreateSettingsFileIfMissing(file_));
  EXPECT_EQ(testfiles::ReadBytes(file_), "[Settings]\nrows=7\n");
  EXPECT_FALSE(os::CreateSettingsFileIfMissing(Path("none/OstrelWorks.INI")));
}

}  // namespace
