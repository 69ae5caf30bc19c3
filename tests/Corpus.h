#pragma once
// The shared corpus of conformance files lies beside the project, in ../shared/corpus. A
// developer's checkout may lack it and skips what needs it; under CI (CI=true) a missing corpus
// fails the test instead, so that a run without it can't pass by skipping.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

inline bool underCi() {
  const char* ci = std::getenv("CI");
  return ci && std::string_view(ci) == "true";
}

#define NEED_CORPUS(present, what)                                  \
  if (!(present)) {                                                 \
    if (underCi()) FAIL() << "the corpus is missing under CI: " << (what); \
    GTEST_SKIP() << "no corpus: " << (what);                        \
  }
