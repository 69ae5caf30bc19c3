#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <charconv>
#include <set>
#include <string>

#include "os/TestFiles.h"
#include "platform/os/ProfileString.h"
#include "platform/os/SettingsFile.h"
#include "platform/os/Utf.h"

using namespace vellumry;

namespace {

class SettingsFile : public ::testing::Test {
 protected:
  std::string Read(const std::string& key) const {
    std::u32string buffer(256, U' ');
    const std::size_t count = os::GetPrivateProfileString(os::kSettingsSection, key, "?",
                                                          std::span(buffer).first(255), file_);
    return os::Utf8FromChars(std::u32string_view(buffer).substr(0, count));
  }

  QTemporaryDir dir_;
  std::string file_ = dir_.filePath("OstrelWorks.INI").toStdString();
};

bool IsWholeNumber(const std::string& text) {
  long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

TEST_F(SettingsFile, ANewFileHoldsEveryKeyWithNumbersWhereNumbersBelong) {
  ASSERT_TRUE(os::CreateSettingsFileIfMissing(file_));
  const std::set<std::string> text_keys = {"dest", "Inw"};
  std::set<std::string> keys;
  for (const auto& [key, value] : os::kSettingDefaults) {
    keys.emplace(key);
    EXPECT_EQ(Read(std::string(key)), value) << key;
    if (!text_keys.contains(std::string(key))) {
      EXPECT_TRUE(IsWholeNumber(Read(std::string(key)))) << key;
    }
  }
  EXPECT_EQ(keys.size(), 13u) << "no key listed twice";
  EXPECT_TRUE(testfiles::ReadBytes(file_).starts_with("[Settings]\nrows=4\n"));
}

TEST_F(SettingsFile, AnExistingFileIsLeftAlone) {
  testfiles::WriteBytes(file_, "[Settings]\nrows=7\n");
  EXPECT_TRUE(os::CreateSettingsFileIfMissing(file_));
  EXPECT_EQ(testfiles::ReadBytes(file_), "[Settings]\nrows=7\n");
}

TEST_F(SettingsFile, CreatingFailsInAMissingFolder) {
  EXPECT_FALSE(
      os::CreateSettingsFileIfMissing(dir_.filePath("none/OstrelWorks.INI").toStdString()));
}

TEST_F(SettingsFile, DefaultsAreFoundWhateverTheKeysCase) {
  EXPECT_EQ(os::DefaultSetting("ROWS"), "4");
  EXPECT_EQ(os::DefaultSetting("inw"), "<");
  EXPECT_EQ(os::DefaultSetting("dest"), "");
  EXPECT_EQ(os::DefaultSetting("colour"), std::nullopt);
}

}  // namespace
