#pragma once
// The names of the controls' properties, in one list. Setters tell the observer by these, the
// property tables are keyed by them and the presenter compares them, so a misspelt name is a
// compile error rather than a screen that silently stops following the model. The text is
// what the driver's `get`, `set` and `dump` read and write, case-blind.

#include <string_view>

namespace vellumry::tk {

class PropertyName {
 public:
  // Names come only from the list below: no text turns into a name by itself.
  explicit consteval PropertyName(const char* text) : text_(text) {}
  constexpr operator std::string_view() const { return text_; }
  friend constexpr bool operator==(PropertyName a, PropertyName b) {
    return std::string_view(a) == std::string_view(b);
  }

 private:
  const char* text_;
};

namespace prop {
inline constexpr PropertyName Alignment{"Alignment"};
inline constexpr PropertyName AutoRedraw{"AutoRedraw"};
inline constexpr PropertyName AutoSize{"AutoSize"};
inline constexpr PropertyName BackColor{"BackColor"};
inline constexpr PropertyName BackStyle{"BackStyle"};
inline constexpr PropertyName BorderColor{"BorderColor"};
inline constexpr PropertyName BorderStyle{"BorderStyle"};
inline constexpr PropertyName BorderWidth{"BorderWidth"};
inline constexpr PropertyName CancelError{"CancelError"};
inline constexpr PropertyName Caption{"Caption"};
inline constexpr PropertyName Checked{"Checked"};
inline constexpr PropertyName Color{"Color"};
inline constexpr PropertyName Container{"Container"};  // told to the observer only
inline constexpr PropertyName ControlBox{"ControlBox"};
inline constexpr PropertyName DefaultExt{"DefaultExt"};
inline constexpr PropertyName DialogTitle{"DialogTitle"};
inline constexpr PropertyName Enabled{"Enabled"};
inline constexpr PropertyName FileName{"FileName"};
inline constexpr PropertyName FillColor{"FillColor"};
inline constexpr PropertyName FillStyle{"FillStyle"};
inline constexpr PropertyName Filter{"Filter"};
inline constexpr PropertyName Flags{"Flags"};
inline constexpr PropertyName FontName{"FontName"};
inline constexpr PropertyName FontSize{"FontSize"};
inline constexpr PropertyName ForeColor{"ForeColor"};
inline constexpr PropertyName Height{"Height"};
inline constexpr PropertyName Index{"Index"};
inline constexpr PropertyName InitDir{"InitDir"};
inline constexpr PropertyName Interval{"Interval"};
inline constexpr PropertyName KeyPreview{"KeyPreview"};
inline constexpr PropertyName LargeChange{"LargeChange"};
inline constexpr PropertyName Left{"Left"};
inline constexpr PropertyName List{"List"};  // indexed: List(3)
inline constexpr PropertyName ListCount{"ListCount"};
inline constexpr PropertyName ListIndex{"ListIndex"};
inline constexpr PropertyName Locked{"Locked"};
inline constexpr PropertyName Max{"Max"};
inline constexpr PropertyName Min{"Min"};
inline constexpr PropertyName MousePointer{"MousePointer"};
inline constexpr PropertyName Name{"Name"};
inline constexpr PropertyName OwnerForm{"OwnerForm"};  // told to the observer only
inline constexpr PropertyName Path{"Path"};
inline constexpr PropertyName Pattern{"Pattern"};
inline constexpr PropertyName Picture{"Picture"};
inline constexpr PropertyName Region{"Region"};
inline constexpr PropertyName ScaleMode{"ScaleMode"};
inline constexpr PropertyName ScaleHeight{"ScaleHeight"};
inline constexpr PropertyName ScaleWidth{"ScaleWidth"};
inline constexpr PropertyName SelectedItem{"SelectedItem"};
inline constexpr PropertyName SelLength{"SelLength"};
inline constexpr PropertyName SelStart{"SelStart"};
inline constexpr PropertyName Shape{"Shape"};
inline constexpr PropertyName SmallChange{"SmallChange"};
inline constexpr PropertyName Sorted{"Sorted"};
inline constexpr PropertyName Stretch{"Stretch"};
inline constexpr PropertyName Tag{"Tag"};
inline constexpr PropertyName Text{"Text"};
inline constexpr PropertyName ToolTipText{"ToolTipText"};
inline constexpr PropertyName Top{"Top"};
inline constexpr PropertyName TopMost{"TopMost"};
inline constexpr PropertyName Value{"Value"};
inline constexpr PropertyName Visible{"Visible"};
inline constexpr PropertyName Width{"Width"};
inline constexpr PropertyName WindowState{"WindowState"};
}  // namespace prop

}  // namespace vellumry::tk
