#include "platform/toolkit/ListControls.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "platform/toolkit/PropertyList.h"

namespace vellumry::tk {

namespace {
Value listAt(const Control& c, int i) { return static_cast<const ListControl&>(c).List(i); }
}  // namespace

std::string ListControl::List(int i) const {
  if (i < 0 || i >= ListCount()) return {};
  return items_[static_cast<size_t>(i)];
}

void ListControl::setListIndex(int v) {
  if (v < -1 || v >= ListCount()) raise(err::InvalidProperty, qualified(prop::ListIndex));
  if (assign(listIndex_, v, prop::ListIndex)) fire(onClick);
}

void ListControl::replaceItems(std::vector<std::string> items) {
  items_ = std::move(items);
  listIndex_ = -1;
  changed(prop::List);
}

const std::vector<Property>& ListControl::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          accessor<ListControl, &ListControl::ListCount>(prop::ListCount),
          accessor<ListControl, &ListControl::ListIndex, &ListControl::setListIndex>(
              prop::ListIndex),
          accessor<ListControl, &ListControl::Text>(prop::Text),
          Property{prop::List,
                   [](const Control&) -> Value { raise(err::InvalidCall, "List needs an index"); },
                   nullptr, listAt},
      });
  return props;
}

void ListBox::AddItem(const std::string& item, std::optional<int> index) {
  int at = ListCount();
  if (index) {
    if (*index < 0 || *index > ListCount()) raise(err::InvalidCall, Name() + ".AddItem");
    at = *index;
  } else if (sorted_) {
    auto pos =
        std::upper_bound(items_.begin(), items_.end(), item,
                         [](const auto& a, const auto& b) { return toUpper(a) < toUpper(b); });
    at = static_cast<int>(pos - items_.begin());
  }
  items_.insert(items_.begin() + at, item);
  if (listIndex_ >= at) ++listIndex_;
  changed(prop::List);
}

void ListBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) raise(err::InvalidCall, Name() + ".RemoveItem");
  items_.erase(items_.begin() + index);
  if (listIndex_ == index)
    listIndex_ = -1;
  else if (listIndex_ > index)
    --listIndex_;
  changed(prop::List);
}

void ListBox::Clear() { replaceItems({}); }

void ListBox::setList(int i, const std::string& text) {
  if (i < 0 || i >= ListCount()) raise(err::InvalidCall, qualified(prop::List));
  items_[static_cast<size_t>(i)] = text;
  changed(prop::List);
}

void ListBox::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }
void ListBox::setForeColor(uint32_t v) { assign(foreColor_, v, prop::ForeColor); }
void ComboBox::setText(const std::string& v) {
  const auto item = std::find(items_.begin(), items_.end(), v);
  if (item != items_.end()) return setListIndex(static_cast<int>(item - items_.begin()));
  text_ = v;
  listIndex_ = -1;
  changed(prop::Text);
  fire(onClick);
}

const std::vector<Property>& ListBox::properties() const {
  static const auto props =
      extend(ListControl::properties(),
             {accessor<ListBox, &ListBox::Sorted, &ListBox::setSorted>(prop::Sorted),
              accessor<ListBox, &ListBox::BackColor, &ListBox::setBackColor>(prop::BackColor),
              accessor<ListBox, &ListBox::ForeColor, &ListBox::setForeColor>(prop::ForeColor)});
  return props;
}

bool naturalLess(const std::string& a, const std::string& b) {
  size_t i = 0, j = 0;
  auto digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  while (i < a.size() && j < b.size()) {
    if (digit(a[i]) && digit(b[j])) {
      size_t i0 = i, j0 = j;
      while (i0 < a.size() && a[i0] == '0') ++i0;
      while (j0 < b.size() && b[j0] == '0') ++j0;
      size_t i1 = i0, j1 = j0;
      while (i1 < a.size() && digit(a[i1])) ++i1;
      while (j1 < b.size() && digit(b[j1])) ++j1;
      if (i1 - i0 != j1 - j0) return i1 - i0 < j1 - j0;
      int c = a.compare(i0, i1 - i0, b, j0, j1 - j0);
      if (c != 0) return c < 0;
      i = i1;
      j = j1;
      continue;
    }
    int ca = std::tolower(static_cast<unsigned char>(a[i]));
    int cb = std::tolower(static_cast<unsigned char>(b[j]));
    if (ca != cb) return ca < cb;
    ++i;
    ++j;
  }
  if ((a.size() - i) != (b.size() - j)) return a.size() - i < b.size() - j;
  return a < b;  // names equal but for case or leading zeros: a stable, total order
}

namespace {
bool wildcard(const char* p, const char* s) {
  // Iterative match of '*' and '?', case-blind; remembers the last star to back up to.
  const char* star = nullptr;
  const char* resume = nullptr;
  while (*s) {
    if (*p == '?' || (*p && *p != '*' &&
                      std::tolower(static_cast<unsigned char>(*p)) ==
                          std::tolower(static_cast<unsigned char>(*s)))) {
      ++p;
      ++s;
    } else if (*p == '*') {
      star = p++;
      resume = s;
    } else if (star) {
      p = star + 1;
      s = ++resume;
    } else {
      return false;
    }
  }
  while (*p == '*') ++p;
  return *p == 0;
}
}  // namespace

bool matchesPattern(const std::string& name, const std::string& patterns) {
  size_t start = 0;
  while (start <= patterns.size()) {
    size_t end = patterns.find(';', start);
    if (end == std::string::npos) end = patterns.size();
    std::string one = patterns.substr(start, end - start);
    // "*.*" stands for every file, with or without a dot
    if (!one.empty() && (one == "*.*" || wildcard(one.c_str(), name.c_str()))) return true;
    start = end + 1;
  }
  return false;
}

std::vector<std::string> FileListBox::listFolder(const std::string& path) const {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  std::error_code ec;
  for (fs::directory_iterator it(path, ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code typeError;
    if (!it->is_regular_file(typeError)) continue;
    std::string name = it->path().filename().string();
    if (name.empty() || name[0] == '.') continue;
    if (matchesPattern(name, pattern_)) names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end(), naturalLess);
  return names;
}

void FileListBox::setPath(const std::string& v) {
  std::error_code ec;
  if (v.empty() || !std::filesystem::is_directory(v, ec)) raise(err::PathNotFound, v);
  std::string folder = v;  // a folder's path carries no closing '/', but the root's
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  if (folder == path_) return;
  path_ = folder;
  replaceItems(listFolder(path_));
  changed(prop::Path);
  fire(onPathChange);
}

void FileListBox::setPattern(const std::string& v) {
  if (v == pattern_) return;
  pattern_ = v;
  if (!path_.empty()) replaceItems(listFolder(path_));
  changed(prop::Pattern);
  fire(onPatternChange);
}

void FileListBox::setFileName(const std::string& v) {
  for (int i = 0; i < ListCount(); ++i)
    if (items_[static_cast<size_t>(i)] == v) return setListIndex(i);
}

void FileListBox::Refresh() {
  if (path_.empty()) return;
  int keep = listIndex_;
  items_ = listFolder(path_);
  listIndex_ = keep < ListCount() ? keep : -1;
  changed(prop::List);
}

const std::vector<Property>& FileListBox::properties() const {
  static const auto props = extend(
      ListControl::properties(),
      {
          accessor<FileListBox, &FileListBox::Path, &FileListBox::setPath>(prop::Path),
          accessor<FileListBox, &FileListBox::Pattern, &FileListBox::setPattern>(prop::Pattern),
          accessor<FileListBox, &FileListBox::FileName, &FileListBox::setFileName>(prop::FileName),
      });
  return props;
}

}  // namespace vellumry::tk
