#include "platform/toolkit/DialogControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace tk {

void TabStrip::setSelectedItem(int v) {
  if (v < 1 || v > static_cast<int>(tabs_.size())) raise(err::InvalidProperty, Name() + ".SelectedItem");
  if (v == selected_) return;
  selected_ = v;
  changed("SelectedItem");
  fire(onClick);
}

const std::vector<Property>& TabStrip::properties() const {
  static const auto props = extend(
      Control::properties(),
      {prop<TabStrip, &TabStrip::SelectedItem, &TabStrip::setSelectedItem>("SelectedItem")});
  return props;
}

void CommonDialog::ShowSave() {
  auto path = runtime().SaveFile({DialogTitle, Filter, FileName, InitDir});
  cancelled_ = !path;
  if (path) FileName = *path;
  if (cancelled_ && CancelError) raise(err::CancelSelected);
}

void CommonDialog::ShowColor() {
  auto color = runtime().ChooseColor(Color);
  cancelled_ = !color;
  if (color) Color = *color;
  if (cancelled_ && CancelError) raise(err::CancelSelected);
}

const std::vector<Property>& CommonDialog::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          Property{"FileName",
                   [](const Control& c) -> Value { return static_cast<const CommonDialog&>(c).FileName; },
                   [](Control& c, const Value& v) { static_cast<CommonDialog&>(c).FileName = toText(v); }},
          Property{"Color",
                   [](const Control& c) -> Value { return double(static_cast<const CommonDialog&>(c).Color); },
                   [](Control& c, const Value& v) {
                     static_cast<CommonDialog&>(c).Color = fromValue<uint32_t>(v);
                   }},
      });
  return props;
}

}  // namespace tk
