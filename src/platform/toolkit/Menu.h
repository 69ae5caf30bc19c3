#pragma once
// A menu entry of a form's menus: a top entry holds the entries a popup shows. A caption of
// "-" is a separator.

#include <string>
#include <vector>

#include "platform/toolkit/Control.h"

namespace vellumry::tk {

// Flags of a popup menu: it answers the right mouse button as well as the left.
namespace popup {
inline constexpr int RightButton = 2;
}  // namespace popup

class Menu : public Control {
 public:
  Menu(Form* form, std::string name, std::string caption = {})
      : Control(form, std::move(name), Kind::Menu), caption_(std::move(caption)) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& v);
  // The key shown beside the caption ("F1"); showing only, the form handles the key itself.
  const std::string& Shortcut() const { return shortcut_; }
  void setShortcut(const std::string& v) { shortcut_ = v; }
  bool Checked() const { return checked_; }
  void setChecked(bool v);
  bool separator() const { return caption_ == "-"; }
  // The entries under this one, in the order they show.
  const std::vector<Menu*>& children() const { return children_; }
  void add(Menu& child) { children_.push_back(&child); }
  const std::vector<Property>& properties() const override;

 private:
  std::string caption_, shortcut_;
  bool checked_ = false;
  std::vector<Menu*> children_;
};

}  // namespace vellumry::tk
