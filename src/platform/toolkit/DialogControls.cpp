#include "platform/toolkit/DialogControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

void TabStrip::setSelectedItem(int v) {
  if (v < 1 || v > static_cast<int>(tabs_.size()))
    raise(err::InvalidProperty, Name() + ".SelectedItem");
  if (assign(selected_, v, "SelectedItem")) fire(onClick);
}

const std::vector<Property>& TabStrip::properties() const {
  static const auto props =
      extend(Control::properties(),
             {prop<TabStrip, &TabStrip::SelectedItem, &TabStrip::setSelectedItem>("SelectedItem")});
  return props;
}

void CommonDialog::ShowSave() {
  auto path = runtime().SaveFile({DialogTitle, Filter, FileName, InitDir});
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
Property dialogField(const char* name) {
  using T = std::remove_cvref_t<decltype(std::declval<CommonDialog&>().*Field)>;
  return {
      name, [](const Control& c) { return toValue(static_cast<const CommonDialog&>(c).*Field); },
      [](Control& c, const Value& v) { static_cast<CommonDialog&>(c).*Field = fromValue<T>(v); }};
}
}  // namespace

const std::vector<Property>& CommonDialog::properties() const {
  static const auto props =
      extend(Control::properties(), {
                                        dialogField<&CommonDialog::DialogTitle>("DialogTitle"),
                                        dialogField<&CommonDialog::Filter>("Filter"),
                                        dialogField<&CommonDialog::FileName>("FileName"),
                                        dialogField<&CommonDialog::InitDir>("InitDir"),
                                        dialogField<&CommonDialog::Flags>("Flags"),
                                        dialogField<&CommonDialog::CancelError>("CancelError"),
                                        dialogField<&CommonDialog::Color>("Color"),
                                    });
  return props;
}

}  // namespace vellumry::tk
