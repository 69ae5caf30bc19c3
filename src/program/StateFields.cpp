// Each room's program-wide state under the names by which the driver and the scripts read it.
#include <algorithm>

#include "platform/toolkit/Properties.h"
#include "program/GridState.h"
#include "program/LinkState.h"
#include "program/ShellState.h"
#include "program/ToolState.h"
#include "program/ViewerState.h"

namespace vellumry {

void ShellState::addFields(tk::FieldTable& fields) {
  fields.add("sIniPath", sIniPath_);
  fields.add("sInstallDir", sInstallDir_);
  fields.add("sDataDir", sDataDir_);
  fields.add("sDest", sDest_);
  fields.add("vScreenPxW", vScreenPxW_);
  fields.add("vScreenPxH", vScreenPxH_);
}

void GridState::addFields(tk::FieldTable& fields) {
  fields.addArray("aPicH", aPicH_);
  fields.addArray("aPicW", aPicW_);
  fields.add("nDeleted", nDeleted_);
  fields.addArray("aDeleted", aDeleted_);
}

void GridState::fit(int positions) {
  const auto sizes = static_cast<size_t>(std::max(positions + 1, 1002));
  if (aPicH_.size() < sizes) aPicH_.resize(sizes), aPicW_.resize(sizes);
  const auto marks = static_cast<size_t>(positions + 1);
  if (aDeleted_.size() < marks) aDeleted_.resize(marks);
}

void LinkState::addFields(tk::FieldTable& fields) {
  fields.add("iCurLink", iCurLink_);
  fields.add("linkMode", linkMode_);
  fields.add("findDone", findDone_);
  fields.add("sortAsc", sortAsc_);
}

void ViewerState::addFields(tk::FieldTable& fields) {
  fields.add("ViewerUp", ViewerUp_);
  fields.add("lSlideMs", lSlideMs_);
  fields.add("sAniGif", sAniGif_);
  fields.add("bBigPlay", bBigPlay_);
}

void ToolState::addFields(tk::FieldTable& fields) {
  fields.add("delShot", delShot_);
  fields.add("delShotW", delShotW_);
  fields.add("delShotH", delShotH_);
  fields.add("sideText", sideText_);
}

}  // namespace vellumry
