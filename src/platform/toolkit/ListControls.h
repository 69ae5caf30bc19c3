#pragma once
// Lists of text: the list box, the drop-down list, and the file list box that lists a folder.

#include <string>
#include <vector>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Control.h"

namespace vellumry::tk {

// What list boxes share: items, the one selected index (-1 none) and its Click.
class ListControl : public Control {
 public:
  int ListCount() const { return static_cast<int>(items_.size()); }
  // Item `i`; out of range gives an empty text, as the toolkit's List does.
  std::string List(int i) const;
  int ListIndex() const { return listIndex_; }
  // Raises Click when the index differs; below -1 or past the end is a failure.
  void setListIndex(int v);
  // The selected item's text, empty when none.
  virtual std::string Text() const { return List(listIndex_); }
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 protected:
  ListControl(Form* form, std::string name, Kind kind) : Control(form, std::move(name), kind) {}
  // Replaces every item; the selection goes to -1 without an event.
  void replaceItems(std::vector<std::string> items);
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

// A list box or drop-down list whose items the code adds and removes.
class ListBox : public ListControl {
 public:
  ListBox(Form* form, std::string name, Kind kind = Kind::ListBox)
      : ListControl(form, std::move(name), kind) {}
  // Adds at `index`, at the end when absent (or in order when Sorted).
  void AddItem(const std::string& item, std::optional<int> index = {});
  void RemoveItem(int index);
  void Clear();
  void setList(int i, const std::string& text);
  bool Sorted() const { return sorted_; }
  void setSorted(bool v) { sorted_ = v; }
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  uint32_t ForeColor() const { return foreColor_; }
  void setForeColor(uint32_t v);
  const std::vector<Property>& properties() const override;

 private:
  bool sorted_ = false;
  uint32_t backColor_ = kSystemWindow, foreColor_ = kSystemWindowText;
};

// A drop-down list: a list box that shows only its selected item.
class ComboBox : public ListBox {
 public:
  ComboBox(Form* form, std::string name) : ListBox(form, std::move(name), Kind::ComboBox) {}
  // The selected item, or with none selected the text set that is none of the items.
  std::string Text() const override { return listIndex_ >= 0 ? List(listIndex_) : text_; }
  // Selects the item of exactly this text, which raises Click when the selection moves; any
  // other text stands alone with nothing selected, and raises Click too.
  void setText(const std::string& v);

 private:
  std::string text_;
};

// The files of one folder that match a pattern, sorted as a person expects, case-blind.
// Folders and hidden files are not listed.
class FileListBox : public ListControl {
 public:
  FileListBox(Form* form, std::string name)
      : ListControl(form, std::move(name), Kind::FileListBox) {}
  const std::string& Path() const { return path_; }
  // Lists the folder `v` and raises PathChange; a folder that doesn't exist is a failure
  // (err::PathNotFound) and leaves everything as it was. The same path does nothing.
  void setPath(const std::string& v);
  // "*.jpg;*.png" or ";*.emf;*.jpg": extensions matched case-blind; raises PatternChange.
  const std::string& Pattern() const { return pattern_; }
  void setPattern(const std::string& v);
  // The selected file's name, empty when none.
  std::string FileName() const { return Text(); }
  // Selects the file named `v` when listed.
  void setFileName(const std::string& v);
  // Reads the folder again; the selection stays on its index while that exists.
  void Refresh();
  const std::vector<Property>& properties() const override;

 private:
  std::vector<std::string> listFolder(const std::string& path) const;
  std::string path_, pattern_ = "*.*";
};

// Order of names as a person expects: case-blind, runs of digits by their value.
bool naturalLess(const std::string& a, const std::string& b);
// Whether `name` matches one of the ';'-separated wildcard patterns, case-blind.
bool matchesPattern(const std::string& name, const std::string& patterns);

}  // namespace vellumry::tk
