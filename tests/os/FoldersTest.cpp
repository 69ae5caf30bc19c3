#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "os/TestFiles.h"
#include "platform/os/FileSystem.h"
#include "platform/os/Folders.h"

using namespace vellumry;

namespace {

// Sets an environment variable for the scope's life.
class ScopedEnv {
 public:
  ScopedEnv(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedEnv() {
    if (old_) {
      setenv(name_, old_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

using Folders = testfiles::TempFolderTest;

TEST_F(Folders, SettingsStayBesideAWritableProgramThatHoldsThemElseGoToTheFallback) {
  std::filesystem::create_directories(Path("holds"));
  std::filesystem::create_directories(Path("lacks"));
  testfiles::WriteBytes(Path("holds/OstrelWorks.INI"), "[Settings]\n");
  testfiles::WriteBytes(Path("lacks/list0.txt"), "*%*");
  EXPECT_EQ(os::SettingsFolderFor(Path("holds"), Path("config/vellumry")), Path("holds"));
  EXPECT_FALSE(std::filesystem::exists(Path("config"))) << "the fallback is made only when used";
  EXPECT_EQ(os::SettingsFolderFor(Path("lacks"), Path("config/vellumry")), Path("config/vellumry"));
  EXPECT_TRUE(os::FolderExists(Path("config/vellumry")));
}

TEST_F(Folders, SettingsGoToTheFallbackWhenTheProgramFolderIsReadOnly) {
  std::filesystem::create_directory(Path("program"));
  testfiles::WriteBytes(Path("program/OstrelWorks.INI"), "[Settings]\n");
  const testfiles::ReadOnlyFolder read_only(Path("program"));
  if (!read_only.Binds()) GTEST_SKIP() << "folder permissions don't bind this user";
  EXPECT_EQ(os::SettingsFolderFor(Path("program"), Path("config/vellumry")),
            Path("config/vellumry"));
}

TEST_F(Folders, SettingsFolderFallsBackToTheUsersConfigFolder) {
  // The test binary's folder holds no settings file.
  EXPECT_TRUE(os::FileExists(os::ExecutableFolder() + "/os_tests"));
  const ScopedEnv config("XDG_CONFIG_HOME", Path("xdg"));
  EXPECT_EQ(os::SettingsFolder(), Path("xdg") + "/vellumry");
  EXPECT_TRUE(os::FolderExists(Path("xdg") + "/vellumry"));
}

TEST_F(Folders, DataLiesBesideABuiltProgramElseInTheSharedFolderOfItsPrefix) {
  std::filesystem::create_directories(Path("build/ui"));
  std::filesystem::create_directories(Path("prefix/bin"));
  std::filesystem::create_directories(Path("prefix/share/vellumry/ui"));
  EXPECT_EQ(os::DataFolderFor(Path("build")), Path("build"));
  EXPECT_EQ(os::DataFolderFor(Path("prefix/bin")), Path("prefix/share/vellumry"));
}

TEST_F(Folders, PicturesFolderIsTheUsersOrElseHome) {
  const ScopedEnv home("HOME", Path("home"));
  const ScopedEnv config("XDG_CONFIG_HOME", Path("home/.config"));
  std::filesystem::create_directories(Path("home/.config"));
  EXPECT_EQ(os::PicturesFolder(), Path("home")) << "no pictures folder yet";

  std::filesystem::create_directory(Path("home/Bilder"));
  testfiles::WriteBytes(Path("home/.config/user-dirs.dirs"), "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
  EXPECT_EQ(os::PicturesFolder(), Path("home/Bilder"));
}

}  // namespace
