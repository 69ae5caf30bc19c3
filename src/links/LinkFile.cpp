#include "links/LinkFile.h"

namespace vellumry {

namespace {
// The pieces of `text` between the separators, the last one included (empty or not).
std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> parts;
  for (size_t at = 0;;) {
    const size_t next = text.find(kLinkSeparator, at);
    parts.push_back(text.substr(at, next == std::string_view::npos ? next : next - at));
    if (next == std::string_view::npos) return parts;
    at = next + kLinkSeparator.size();
  }
}
}  // namespace

std::vector<LinkRecord> parseLinkList(std::string_view text) {
  const std::vector<std::string_view> parts = split(text);
  const size_t last = parts.size() - 1;
  std::vector<LinkRecord> records;
  for (size_t i = 0; i < last / 2; ++i)
    records.push_back({std::string(parts[2 * i]), std::string(parts[2 * i + 1])});
  return records;
}

std::string formatLinkList(const std::vector<LinkRecord>& records) {
  if (records.empty()) return std::string(kLinkSeparator);
  std::string text;
  for (const LinkRecord& r : records)
    text.append(r.name).append(kLinkSeparator).append(r.target).append(kLinkSeparator);
  return text;
}

}  // namespace vellumry
