// The settings dialog with values set by hand in the file, outside its lists.
#include "ProgramFixture.h"
#include "tools/frmSet.h"

using namespace vellumry;

namespace {

class SettingsDialog : public ProgramFixture {};

TEST_F(SettingsDialog, ValuesOutsideTheListsShowAsTheyAreAndSaveBack) {
  setting("rows", "1");  // fewer than the list's 2
  setting("slsh", "7");  // between the list's 5 and 10
  start();
  frmSet& dialog = program->frmSet();
  dialog.Show();
  EXPECT_EQ(dialog.cbo(1).Text(), "7");
  EXPECT_EQ(dialog.cbo(1).ListIndex(), -1);
  EXPECT_EQ(dialog.rowsChecked, 1);  // checked like any other value: one row fits
  tk::user::click(dialog.btn(0));
  EXPECT_EQ(setting("rows") + " " + setting("slsh"), "1 7");
}

}  // namespace
