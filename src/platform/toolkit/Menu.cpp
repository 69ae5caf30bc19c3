#include "platform/toolkit/Menu.h"

#include "platform/toolkit/PropertyList.h"

namespace vellumry::tk {

void Menu::setCaption(const std::string& v) { assign(caption_, v, prop::Caption); }

void Menu::setChecked(bool v) { assign(checked_, v, prop::Checked); }

const std::vector<Property>& Menu::properties() const {
  static const auto props = extend(
      Control::properties(), {
                                 accessor<Menu, &Menu::Caption, &Menu::setCaption>(prop::Caption),
                                 accessor<Menu, &Menu::Checked, &Menu::setChecked>(prop::Checked),
                             });
  return props;
}

}  // namespace vellumry::tk
