// The text of the link list file, read and written.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "links/LinkFile.h"

using namespace vellumry;

namespace {

struct ReadCase {
  const char* what;
  std::string text;
  std::vector<LinkRecord> records;
};

TEST(LinkFile, ReadsFieldsBehindEverySeparator) {
  const std::vector<ReadCase> cases = {
      {"two records",
       "Alpha*%*/p/Alpha*%*Beta*%*/d/Beta*%*",
       {{"Alpha", "/p/Alpha"}, {"Beta", "/d/Beta"}}},
      {"a line end behind the last separator", "Alpha*%*/p/Alpha*%*\r\n", {{"Alpha", "/p/Alpha"}}},
      {"anything behind the last separator", "Alpha*%*/p/Alpha*%*junk", {{"Alpha", "/p/Alpha"}}},
      {"the last target lost its separator", "A*%*/a*%*B*%*/b", {{"A", "/a"}}},
      {"cut inside the last target", "A*%*/a*%*B*%*/b*%", {{"A", "/a"}}},
      {"the empty list", "*%*", {}},
      {"an empty file", "", {}},
      {"no separator at all", "Alpha /p/Alpha", {}},
      {"one field", "Alpha*%*", {}},
      {"blanks and empty names stand as they are",
       " a *%* /x *%**%*/y*%*",
       {{" a ", " /x "}, {"", "/y"}}},
      {"names in any script",
       "Été*%*/p/été*%*東京*%*/p/東京*%*",
       {{"Été", "/p/été"}, {"東京", "/p/東京"}}},
  };
  for (const ReadCase& c : cases) EXPECT_EQ(ParseLinkList(c.text), c.records) << c.what;
}

TEST(LinkFile, WritesEveryFieldWithItsSeparator) {
  EXPECT_EQ(FormatLinkList({}), "*%*");
  EXPECT_EQ(FormatLinkList({{"Alpha", "/p/Alpha"}, {"Beta", "/d/Beta"}}),
            "Alpha*%*/p/Alpha*%*Beta*%*/d/Beta*%*");
  EXPECT_EQ(FormatLinkList({{"", " "}}), "*%* *%*");
}

TEST(LinkFile, LongListsReadBackWhole) {
  // 499 records fill the original reader's table; a 500th added link must survive too.
  for (int count : {499, 500, 1200}) {
    std::vector<LinkRecord> records;
    for (int i = 0; i < count; ++i)
      records.push_back({"name " + std::to_string(i), "/pictures/" + std::to_string(i)});
    const std::string text = FormatLinkList(records);
    EXPECT_EQ(ParseLinkList(text), records) << count;
    EXPECT_EQ(FormatLinkList(ParseLinkList(text)), text) << count;
  }
}

}  // namespace
