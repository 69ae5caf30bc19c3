#pragma once
// The link list's program-wide state: the current link, the link dialog's mode, finding and
// sorting. The link list and its dialog change it; the grid and the shell point it at the link of
// the folder shown.

#include <cstdint>
#include <string>

namespace vellumry {

namespace tk {
class FieldTable;
}
class Links;
class frmEdit;

class LinkState {
 public:
  int16_t iCurLink() const { return iCurLink_; }
  const std::string& linkMode() const { return linkMode_; }
  bool findDone() const { return findDone_; }
  bool sortAsc() const { return sortAsc_; }

  // The link of the folder shown, -1 for none.
  void setCurLink(int16_t link) { iCurLink_ = link; }

  void addFields(tk::FieldTable& fields);

 private:
  friend class Links;
  friend class frmEdit;

  int16_t iCurLink_ = -1;
  std::string linkMode_;
  bool findDone_ = false, sortAsc_ = false;
};

}  // namespace vellumry
