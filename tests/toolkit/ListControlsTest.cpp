// List boxes and the file list box over a real folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "toolkit/TestForms.h"

using namespace vellumry;

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {
Names items(const tk::ListControl& list) {
  Names out;
  for (int i = 0; i < list.ListCount(); ++i) out.push_back(list.List(i));
  return out;
}

struct Folder {
  Folder() : path(fs::temp_directory_path() / ("tk-files-" + std::to_string(::getpid()))) {
    fs::create_directories(path);
  }
  ~Folder() { fs::remove_all(path); }
  void touch(const std::string& name) { std::ofstream(path / name) << "x"; }
  fs::path path;
};

class FileListForm : public tk::Form {
 public:
  explicit FileListForm(tk::Runtime& rt) : Form(rt, "Files") {}
  tk::FileListBox File2{this, "File2"};
};
}  // namespace

TEST(FileListBox, ListsMatchingFilesSortedAsAPersonExpects) {
  Folder dir;
  for (const char* n :
       {"b.JPG", "a10.png", "a9.png", "A2.Png", "notes.txt", ".hidden.png", "c.jpeg"})
    dir.touch(n);
  fs::create_directory(dir.path / "sub.png");
  tk::HeadlessHost host;
  tk::Runtime rt({}, host, tk::EventLoop::Clock::Virtual);
  FileListForm f(rt);
  int pathChanges = 0;
  f.File2.onPathChange = [&] { ++pathChanges; };
  f.File2.setPattern(";*.emf;*.jpg;*.jpeg;*.png");
  f.File2.setPath(dir.path.string());
  EXPECT_EQ(items(f.File2), (Names{"A2.Png", "a9.png", "a10.png", "b.JPG", "c.jpeg"}));
  EXPECT_EQ(f.File2.ListIndex(), -1);
  EXPECT_EQ(f.File2.FileName(), "");
  f.File2.setListIndex(3);
  EXPECT_EQ(f.File2.FileName(), "b.JPG");

  // A missing folder fails and leaves the list as it was; the same folder does nothing.
  EXPECT_THROW(f.File2.setPath((dir.path / "gone").string()), tk::Error);
  EXPECT_THROW(f.File2.setPath(""), tk::Error);
  f.File2.setPath(dir.path.string());
  EXPECT_EQ(pathChanges, 1);
  EXPECT_EQ(f.File2.ListCount(), 5);

  // Refresh sees new files and keeps the selected index.
  dir.touch("0.png");
  f.File2.Refresh();
  EXPECT_EQ(f.File2.ListCount(), 6);
  EXPECT_EQ(f.File2.ListIndex(), 3);
  EXPECT_EQ(f.File2.FileName(), "a10.png");
}

TEST(FileListBox, NaturalOrderAndPatterns) {
  EXPECT_TRUE(tk::naturalLess("img2.jpg", "img10.jpg"));
  EXPECT_TRUE(tk::naturalLess("Apple.jpg", "banana.jpg"));
  EXPECT_FALSE(tk::naturalLess("img10.jpg", "img2.jpg"));
  EXPECT_TRUE(tk::naturalLess("a.jpg", "a1.jpg"));
  EXPECT_TRUE(tk::matchesPattern("X.TIF", ";*.emf;*.tif"));
  EXPECT_FALSE(tk::matchesPattern("x.tiff", ";*.emf;*.tif"));
  EXPECT_FALSE(tk::matchesPattern("jpg", "*.jpg"));
  EXPECT_TRUE(tk::matchesPattern("README", "*.*"));
  EXPECT_TRUE(tk::matchesPattern("a1b.gif", "a?b.*"));
}

TEST(ListBox, AddAndRemoveKeepTheSelectionOnItsItem) {
  TestProgram p;
  tk::ListBox& list = p.form().List1;
  list.AddItem("b");
  list.AddItem("d");
  list.setListIndex(1);
  list.AddItem("a", 0);
  EXPECT_EQ(list.Text(), "d");
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_THROW(list.RemoveItem(5), tk::Error);
  list.setSorted(true);
  list.AddItem("C");
  list.AddItem("a");
  EXPECT_EQ(items(list), (Names{"a", "b", "C"}));
}
