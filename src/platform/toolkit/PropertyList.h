#pragma once
// Builds a control class's property list from its base's and its own.

#include <initializer_list>
#include <vector>

#include "platform/toolkit/Properties.h"

namespace vellumry::tk {

inline std::vector<Property> extend(const std::vector<Property>& base,
                                    std::initializer_list<Property> own) {
  std::vector<Property> all = base;
  all.insert(all.end(), own);
  return all;
}

}  // namespace vellumry::tk
