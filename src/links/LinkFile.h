#pragma once
// The text of the link list file: every name and every target followed by "*%*", nothing else.
// Two records read Alpha*%*/pictures/alpha*%*Beta*%*/b*%*; an empty list is "*%*" alone.

#include <string>
#include <string_view>
#include <vector>

namespace vellumry {

inline constexpr std::string_view kLinkFileName = "list0.txt";
inline constexpr std::string_view kLinkSeparator = "*%*";

struct LinkRecord {
  std::string name, target;
  bool operator==(const LinkRecord&) const = default;
};

// The records of `text`, in file order, each field as it stands (no trimming, no checks).
// The text is cut at every "*%*"; the pieces pair up as name and target, and the piece behind
// the last separator, whatever it holds, is dropped with the pairing. So a text whose last
// target lost its separator gives one record fewer, and a text without a separator none.
// Any number of records is read, so a list longer than 499 links survives a restart.
std::vector<LinkRecord> parseLinkList(std::string_view text);

// The text of `records`: "name*%*target" joined by "*%*", with a final "*%*" and no line end.
std::string formatLinkList(const std::vector<LinkRecord>& records);

}  // namespace vellumry
