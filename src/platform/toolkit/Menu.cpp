#include "platform/toolkit/Menu.h"

#include "platform/toolkit/PropertyList.h"

namespace tk {

void Menu::setCaption(const std::string& v) {
  if (v == caption_) return;
  caption_ = v;
  changed("Caption");
}

void Menu::setChecked(bool v) {
  if (v == checked_) return;
  checked_ = v;
  changed("Checked");
}

const std::vector<Property>& Menu::properties() const {
  static const auto props = extend(Control::properties(),
                                   {
                                       prop<Menu, &Menu::Caption, &Menu::setCaption>("Caption"),
                                       prop<Menu, &Menu::Checked, &Menu::setChecked>("Checked"),
                                   });
  return props;
}

}  // namespace tk
