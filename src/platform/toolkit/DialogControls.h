#pragma once
// The tab strip and the common dialog.

#include <optional>
#include <string>
#include <vector>

#include "platform/toolkit/Control.h"

namespace vellumry::tk {

// A row of tabs; selectedItem counts from 1, and a change raises Click.
class TabStrip : public Control {
 public:
  TabStrip(Form* form, std::string name) : Control(form, std::move(name), Kind::TabStrip) {}
  void addTab(const std::string& caption) { tabs_.push_back(caption); }
  const std::vector<std::string>& tabs() const { return tabs_; }
  int selectedItem() const { return selected_; }
  void setSelectedItem(int v);
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  std::vector<std::string> tabs_;
  int selected_ = 1;
};

// The save-file and colour dialogs. With CancelError on, a cancel is err::CancelSelected.
class CommonDialog : public Control {
 public:
  CommonDialog(Form* form, std::string name) : Control(form, std::move(name), Kind::CommonDialog) {}
  // DefaultExt: the extension, without its dot, that a chosen name without one is given.
  std::string DialogTitle, Filter, FileName, InitDir, DefaultExt;
  int Flags = 0;
  bool CancelError = false;
  uint32_t Color = 0;
  // Asks for a file name to save to; sets FileName. A cancel leaves it as it was.
  void ShowSave();
  // Asks for a colour; sets Color.
  void ShowColor();
  const std::vector<Property>& properties() const override;
};

}  // namespace vellumry::tk
