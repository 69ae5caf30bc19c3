#include "platform/toolkit/DialogControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

void TabStrip::setSelectedItem(int v) {
  if (v < 1 || v > static_cast<int>(tabs_.size()))
    raise(err::InvalidProperty, qualified(prop::SelectedItem));
  if (assign(selected_, v, prop::SelectedItem)) fire(onClick);
}

const std::vector<Property>& TabStrip::properties() const {
  static const auto props =
      extend(Control::properties(),
             {accessor<TabStrip, &TabStrip::selectedItem, &TabStrip::setSelectedItem>(
                 prop::SelectedItem)});
  return props;
}

void CommonDialog::ShowSave() {
  auto path = runtime().saveFile({DialogTitle, Filter, FileName, InitDir, DefaultExt});
  if (path) FileName = *path;
  if (!path && CancelError) raise(err::CancelSelected);
}

void CommonDialog::ShowColor() {
  auto color = runtime().ChooseColor(Color);
  if (color) Color = *color;
  if (!color && CancelError) raise(err::CancelSelected);
}

namespace {
// A property bound to a plain field of the common dialog.
template <auto Field>
Property dialogField(PropertyName name) {
  using T = std::remove_cvref_t<decltype(std::declval<CommonDialog&>().*Field)>;
  return {
      name, [](const Control& c) { return toValue(static_cast<const CommonDialog&>(c).*Field); },
      [](Control& c, const Value& v) { static_cast<CommonDialog&>(c).*Field = fromValue<T>(v); }};
}
}  // namespace

const std::vector<Property>& CommonDialog::properties() const {
  static const auto props =
      extend(Control::properties(), {
                                        dialogField<&CommonDialog::DialogTitle>(prop::DialogTitle),
                                        dialogField<&CommonDialog::Filter>(prop::Filter),
                                        dialogField<&CommonDialog::FileName>(prop::FileName),
                                        dialogField<&CommonDialog::InitDir>(prop::InitDir),
                                        dialogField<&CommonDialog::DefaultExt>(prop::DefaultExt),
                                        dialogField<&CommonDialog::Flags>(prop::Flags),
                                        dialogField<&CommonDialog::CancelError>(prop::CancelError),
                                        dialogField<&CommonDialog::Color>(prop::Color),
                                    });
  return props;
}

}  // namespace vellumry::tk
