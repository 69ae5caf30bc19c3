#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellumry::os {

// The lines of a profile (INI) file, kept so that an edit changes only the line it must and
// every other byte of the file stays as it was. Section and key names match without regard to
// case, blanks around them ignored; the first section of a name and its first key of a name
// count. Lines beginning with ';' are comments.
class ProfileDocument {
 public:
  // `bytes`: a whole file, UTF-8, with CRLF or LF line ends and an optional byte-order mark.
  explicit ProfileDocument(std::string_view bytes);

  // The value of `key` in `section` with the blanks around it trimmed and one pair of enclosing
  // double or single quotes removed; nullopt when the section or the key is missing.
  std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // Replaces the line of `key` in `section` by "key=value" (the key spelled as the file has
  // it), or adds that line behind the last key of the section, or adds the section with the
  // key at the end of the file. New lines end as the file's first line does (LF in a new
  // file). `value` is written as given.
  void setValue(std::string_view section, std::string_view key, std::string_view value);

  // The file as it stands after the edits.
  std::string bytes() const;

 private:
  struct Line {
    std::string text;  // without its line end
    std::string end;   // "\r\n", "\n", or empty for a last line without one
  };
  struct Section {
    std::size_t header;  // index of the "[name]" line
    std::size_t end;     // index of the next header, or the number of lines
  };

  std::optional<Section> findSection(std::string_view name) const;
  std::optional<std::size_t> findKey(const Section& section, std::string_view key) const;
  void insertLine(std::size_t at, std::string text);

  std::string bom_;
  std::vector<Line> lines_;
  std::string line_end_;
};

}  // namespace vellumry::os
