#include "platform/toolkit/Menu.h"

#include "platform/toolkit/PropertyList.h"

namespace vellumry::tk {

void Menu::setCaption(const std::string& v) { assign(caption_, v, "Caption"); }

void Menu::setChecked(bool v) { assign(checked_, v, "Checked"); }

const std::vector<Property>& Menu::properties() const {
  static const auto props =
      extend(Control::properties(), {
                                        prop<Menu, &Menu::Caption, &Menu::setCaption>("Caption"),
                                        prop<Menu, &Menu::Checked, &Menu::setChecked>("Checked"),
                                    });
  return props;
}

}  // namespace vellumry::tk
