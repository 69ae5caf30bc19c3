#pragma once
// A started program with folders to link and the link list file to look at.

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ProgramFixture.h"
#include "links/frmEdit.h"

class LinksFixture : public ProgramFixture {
 protected:
  std::string listFile() const { return (home / "list0.txt").string(); }
  // The bytes of list0.txt, or "missing".
  std::string list0() const {
    if (!std::filesystem::exists(listFile())) return "missing";
    std::ifstream in(listFile(), std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }
  void writeList0(const std::string& bytes) {
    std::ofstream(listFile(), std::ios::binary) << bytes;
  }
  // A new folder `name` under the test's root, with its path.
  std::string folder(const std::string& name) {
    std::filesystem::create_directories(root / name);
    return (root / name).string();
  }
  // The program started on a pictures folder with one file, its grid not loaded.
  vellumry::Form1& started() {
    makeFiles(1);
    start();
    return form1();
  }
  vellumry::frmEdit& dialog() { return program->frmEdit(); }
  // The names of List(0), or of another list box, in order.
  static std::vector<std::string> items(const vellumry::tk::ListControl& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.ListCount(); ++i) out.push_back(list.List(i));
    return out;
  }
  // What the host showed since the last call, without the note on unqueued answers.
  std::vector<std::string> shownSince() {
    const std::string note = " (no answer queued)";
    std::vector<std::string> out(host.shown.begin() + static_cast<long>(seen_), host.shown.end());
    for (std::string& line : out)
      if (line.ends_with(note)) line.resize(line.size() - note.size());
    seen_ = host.shown.size();
    return out;
  }
  // Types `text` in the dialog and presses its first button, as a user does.
  void search(const std::string& text) {
    vellumry::tk::user::type(dialog().Text1, text);
    vellumry::tk::user::click(dialog().btn(0));
  }
  // Adds a link to `path` named `name` through the dialog, as a user does.
  void addLink(const std::string& path, const std::string& name) {
    program->runtime.dispatch([&] { form1().File2.setPath(path); });
    program->runtime.dispatch([&] { form1().btnADD_Click(); });
    vellumry::tk::user::type(dialog().Text1, name);
    vellumry::tk::user::click(dialog().btn(0));
  }

 private:
  size_t seen_ = 0;
};
