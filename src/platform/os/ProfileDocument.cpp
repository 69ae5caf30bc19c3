#include "platform/os/ProfileDocument.h"

#include <QString>
#include <algorithm>

namespace vellumry::os {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\v\f";

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool sameName(std::string_view a, std::string_view b) {
  return QString::fromUtf8(a.data(), static_cast<qsizetype>(a.size()))
             .compare(QString::fromUtf8(b.data(), static_cast<qsizetype>(b.size())),
                      Qt::CaseInsensitive) == 0;
}

// The name of a "[name]" line; nullopt for every other line.
std::optional<std::string_view> sectionName(std::string_view line) {
  const auto text = Trim(line);
  if (!text.starts_with('[')) return std::nullopt;
  const auto close = text.find(']');
  return Trim(text.substr(1, close == std::string_view::npos ? close : close - 1));
}

struct KeyLine {
  std::string_view key;
  std::string_view value;
};

// A "key=value" line; nullopt for headers, comments and lines without '='.
std::optional<KeyLine> parseKeyLine(std::string_view line) {
  const auto text = Trim(line);
  if (text.empty() || text.front() == ';' || text.front() == '[') return std::nullopt;
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  return KeyLine{Trim(text.substr(0, equals)), Trim(text.substr(equals + 1))};
}

std::string_view unquote(std::string_view value) {
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

ProfileDocument::ProfileDocument(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) {
    bom_ = kByteOrderMark;
    bytes.remove_prefix(kByteOrderMark.size());
  }
  while (!bytes.empty()) {
    const auto newline = bytes.find('\n');
    if (newline == std::string_view::npos) {
      lines_.push_back({std::string(bytes), ""});
      break;
    }
    const bool crlf = newline > 0 && bytes[newline - 1] == '\r';
    lines_.push_back(
        {std::string(bytes.substr(0, crlf ? newline - 1 : newline)), crlf ? "\r\n" : "\n"});
    bytes.remove_prefix(newline + 1);
  }
  const auto ended = std::find_if(lines_.begin(), lines_.end(),
                                  [](const Line& line) { return !line.end.empty(); });
  line_end_ = ended == lines_.end() ? "\n" : ended->end;
}

std::optional<std::string> ProfileDocument::Value(std::string_view section,
                                                  std::string_view key) const {
  const auto found = findSection(section);
  if (!found) return std::nullopt;
  const auto at = findKey(*found, key);
  if (!at) return std::nullopt;
  return std::string(unquote(parseKeyLine(lines_[*at].text)->value));
}

void ProfileDocument::setValue(std::string_view section, std::string_view key,
                               std::string_view value) {
  const auto found = findSection(section);
  if (!found) {
    insertLine(lines_.size(), "[" + std::string(section) + "]");
    insertLine(lines_.size(), std::string(key) + "=" + std::string(value));
    return;
  }
  if (const auto at = findKey(*found, key)) {
    lines_[*at].text = std::string(parseKeyLine(lines_[*at].text)->key) + "=" + std::string(value);
    return;
  }
  // Behind the last key, so that blank lines and comments ahead of the next section stay there.
  std::size_t last = found->header;
  for (std::size_t i = found->header + 1; i < found->end; ++i) {
    if (parseKeyLine(lines_[i].text)) last = i;
  }
  insertLine(last + 1, std::string(key) + "=" + std::string(value));
}

std::string ProfileDocument::bytes() const {
  std::string bytes = bom_;
  for (const Line& line : lines_) bytes += line.text + line.end;
  return bytes;
}

std::optional<ProfileDocument::Section> ProfileDocument::findSection(std::string_view name) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const auto header = sectionName(lines_[i].text);
    if (!header || !sameName(*header, name)) continue;
    std::size_t end = i + 1;
    while (end < lines_.size() && !sectionName(lines_[end].text)) ++end;
    return Section{i, end};
  }
  return std::nullopt;
}

std::optional<std::size_t> ProfileDocument::findKey(const Section& section,
                                                    std::string_view key) const {
  for (std::size_t i = section.header + 1; i < section.end; ++i) {
    const auto line = parseKeyLine(lines_[i].text);
    if (line && sameName(line->key, key)) return i;
  }
  return std::nullopt;
}

void ProfileDocument::insertLine(std::size_t at, std::string text) {
  if (at > 0 && lines_[at - 1].end.empty()) lines_[at - 1].end = line_end_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), Line{std::move(text), line_end_});
}

}  // namespace vellumry::os
