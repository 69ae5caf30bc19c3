// The program's folders, and where the desktop's shared thumbnail cache keeps an entry.
#include <gtest/gtest.h>
#include <unistd.h>

#include "os/TestFiles.h"
#include "platform/os/FileSystem.h"
#include "platform/os/Folders.h"
#include "platform/os/ThumbnailStore.h"

using namespace vellumry;

namespace {

namespace fs = std::filesystem;
using Folders = testfiles::TempFolderTest;

// The settings stay beside a program that holds them and may write there; else they go to the
// fallback, which is made only when used: for the running program, the user's configuration
// folder, as the test binary's folder holds no settings file.
TEST_F(Folders, SettingsStayBesideAWritableProgramThatHoldsThemElseGoToTheFallback) {
  fs::create_directories(Path("holds"));
  fs::create_directories(Path("lacks"));
  testfiles::writeBytes(Path("holds/OstrelWorks.INI"), "[Settings]\n");
  testfiles::writeBytes(Path("lacks/list0.txt"), "*%*");
  EXPECT_EQ(os::settingsFolderFor(Path("holds"), Path("config/vellumry")), Path("holds"));
  EXPECT_FALSE(fs::exists(Path("config")));
  EXPECT_EQ(os::settingsFolderFor(Path("lacks"), Path("config/vellumry")), Path("config/vellumry"));
  EXPECT_TRUE(os::FolderExists(Path("config/vellumry")));
  fs::permissions(Path("holds"), fs::perms::owner_write, fs::perm_options::remove);
  const bool locked = ::access(Path("holds").c_str(), W_OK) != 0;  // root writes anyway
  EXPECT_EQ(os::settingsFolderFor(Path("holds"), Path("config/vellumry")),
            Path(locked ? "config/vellumry" : "holds"));
  fs::permissions(Path("holds"), fs::perms::owner_write, fs::perm_options::add);
  EXPECT_TRUE(os::FileExists(os::executableFolder() + "/os_tests"));
  setEnv("XDG_CONFIG_HOME", Path("xdg"));
  EXPECT_EQ(os::settingsFolder(), Path("xdg/vellumry"));
  EXPECT_TRUE(os::FolderExists(Path("xdg/vellumry")));
}

TEST_F(Folders, DataLiesBesideABuiltProgramElseInTheSharedFolderOfItsPrefix) {
  fs::create_directories(Path("build/ui"));
  fs::create_directories(Path("prefix/bin"));
  fs::create_directories(Path("prefix/share/vellumry/ui"));
  EXPECT_EQ(os::dataFolderFor(Path("build")), Path("build"));
  EXPECT_EQ(os::dataFolderFor(Path("prefix/bin")), Path("prefix/share/vellumry"));
}

TEST_F(Folders, PicturesFolderIsTheUsersOrElseHome) {
  setEnv("HOME", Path("home"));
  setEnv("XDG_CONFIG_HOME", Path("home/.config"));
  fs::create_directories(Path("home/.config"));
  EXPECT_EQ(os::picturesFolder(), Path("home")) << "no pictures folder yet";
  fs::create_directory(Path("home/Bilder"));
  testfiles::writeBytes(Path("home/.config/user-dirs.dirs"), "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n");
  EXPECT_EQ(os::picturesFolder(), Path("home/Bilder"));
}

// A folder's own name keeps its blanks; the root has none.
TEST_F(Folders, AFolderIsNamedByWhatFollowsTheLastSlash) {
  EXPECT_EQ(os::lastComponent("/p/my pics 2"), "my pics 2");
  EXPECT_EQ(os::lastComponent("/"), "");
}

// Worked out by hand from RFC 2396: a blank is %20, '#' %23, '%' %25, and the two bytes of
// 'ü' in UTF-8 (C3 BC) each their own escape; the path's marks and separators stay.
TEST(ThumbnailStore, AnEntryIsNamedByTheMd5OfTheFilesEscapedUri) {
  const std::pair<const char*, const char*> cases[] = {
      {"/home/anna/Bilder/Mai 2024/a b#c%d \xC3\xBC.jpg",
       "file:///home/anna/Bilder/Mai%202024/a%20b%23c%25d%20%C3%BC.jpg"},
      {"/p/(1)&=+$,:@!~*'_-.jpg", "file:///p/(1)&=+$,:@!~*'_-.jpg"},
      {"/p/a;b?c\"d<e>[f]{g}|\\^`.png",
       "file:///p/a%3Bb%3Fc%22d%3Ce%3E%5Bf%5D%7Bg%7D%7C%5C%5E%60.png"},
      {"/p/./q/../r.gif", "file:///p/r.gif"},
  };
  for (const auto& [path, uri] : cases) EXPECT_EQ(os::fileUri(path), uri) << path;
  EXPECT_EQ(os::thumbnailName(cases[0].second), "1fcd053780b2cc64079a52732846800a.png");
  // The well-known digest of the empty text.
  EXPECT_EQ(os::thumbnailName(""), "d41d8cd98f00b204e9800998ecf8427e.png");
}

}  // namespace
