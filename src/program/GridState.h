#pragma once
// The grid's program-wide state: each position's natural picture size in twips, and the marks
// (-1 marked), both from position 1. The tables grow with the folder that is loaded. The grid
// changes them; the other rooms read them.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellumry {

namespace tk {
class FieldTable;
}
class Grid;

class GridState {
 public:
  int32_t aPicW(int position) const { return aPicW_.at(static_cast<size_t>(position)); }
  int32_t aPicH(int position) const { return aPicH_.at(static_cast<size_t>(position)); }
  int32_t nDeleted() const { return nDeleted_; }
  // False for a position beyond the table.
  bool marked(int position) const {
    return position >= 0 && static_cast<size_t>(position) < aDeleted_.size() &&
           aDeleted_[static_cast<size_t>(position)] != 0;
  }

  void addFields(tk::FieldTable& fields);

 private:
  friend class Grid;
  // Room for positions 1 to `positions`.
  void fit(int positions);

  std::vector<int32_t> aPicH_ = std::vector<int32_t>(1002);
  std::vector<int32_t> aPicW_ = std::vector<int32_t>(1002);
  int32_t nDeleted_ = 0;
  std::vector<int16_t> aDeleted_ = std::vector<int16_t>(1001);
};

}  // namespace vellumry
