#pragma once
// The base of every control and of the form itself: name, place in twips, visibility,
// containment, focus and the properties by name.

#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/Events.h"
#include "platform/toolkit/Properties.h"

namespace vellumry::tk {

class Form;
class Runtime;

enum class Kind {
  Form,
  Frame,
  PictureBox,
  Image,
  Label,
  TextBox,
  CommandButton,
  CheckBox,
  ListBox,
  FileListBox,
  ComboBox,
  VScrollBar,
  HScrollBar,
  Shape,
  Timer,
  Menu,
  TabStrip,
  CommonDialog
};
const char* kindName(Kind kind);

class Control : public EventSet<> {
 public:
  // `form` owns the control.
  Control(Form* form, std::string name, Kind kind);
  virtual ~Control();
  Control& operator=(const Control&) = delete;

  Kind kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  // The element's number in its control array, -1 for a single control.
  int Index() const { return index_; }
  Form& form() const { return *form_; }
  Runtime& runtime() const;
  // The frame, picture box or form that holds the control; positions are relative to it.
  Control* Container() const { return container_; }
  void setContainer(Control* container);

  // The place in the units of the container's scale: pixels inside a form or picture box whose
  // ScaleMode is 3, else twips. A form's own place is in twips.
  double Left() const { return left_ / unitX(); }
  double Top() const { return top_ / unitY(); }
  double Width() const { return width_ / unitX(); }
  double Height() const { return height_ / unitY(); }
  virtual void setLeft(double v);
  virtual void setTop(double v);
  virtual void setWidth(double v);
  virtual void setHeight(double v);
  void Move(double left, double top, double width, double height);
  // The place in twips, whatever the container's scale.
  double leftTwips() const { return left_; }
  double topTwips() const { return top_; }
  double widthTwips() const { return width_; }
  double heightTwips() const { return height_; }
  // Twips in one unit of the scale in which the controls inside this one are placed.
  virtual double innerUnitX() const { return 1; }
  virtual double innerUnitY() const { return 1; }
  bool Visible() const { return visible_; }
  virtual void setVisible(bool v);
  bool Enabled() const { return enabled_; }
  virtual void setEnabled(bool v);
  const std::string& ToolTipText() const { return toolTip_; }
  void setToolTipText(const std::string& v);
  const std::string& Tag() const { return tag_; }
  void setTag(const std::string& v) { tag_ = v; }

  // Visible and enabled here and in every container up to the form.
  bool reachable() const;
  // Whether the control can hold the keyboard focus at all.
  virtual bool focusable() const { return false; }
  // Gives the control the focus; fails when it can't take it now.
  void SetFocus();

  // Properties by name, case-blind; "List(3)" reads an indexed one.
  Value get(std::string_view property) const;
  void set(std::string_view property, const Value& v);
  virtual const std::vector<Property>& properties() const;

 protected:
  // The form's own part: it is its own form and lies in no container.
  struct FormItself {};
  Control(FormItself, Form* self, std::string name);
  // A hidden copy for a control array's new element; the array sets its Index.
  Control(const Control& other);
  // Tells the observer; every setter that changes what shows calls it.
  void changed(PropertyName property);
  // Sets `member` to `v` and tells the observer; false when it held that value already.
  template <class T, class V>
  bool assign(T& member, const V& v, PropertyName property) {
    if (member == v) return false;
    member = v;
    changed(property);
    return true;
  }
  void setWidthTwips(double v);
  void setHeightTwips(double v);
  // "Name.Property", for the text of a failure.
  std::string qualified(PropertyName property) const { return name_ + "." + std::string(property); }

 private:
  template <class T>
  friend class ControlArray;
  // Twips in one unit of the place: the container's scale.
  double unitX() const;
  double unitY() const;
  Form* form_;
  std::string name_;
  Kind kind_;
  int index_ = -1;
  Control* container_ = nullptr;
  double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  bool visible_ = true, enabled_ = true;
  std::string toolTip_, tag_;
};

// Parses "Name(3)" into "Name" and 3; a plain name gives no index.
std::pair<std::string_view, std::optional<int>> splitIndex(std::string_view text);

}  // namespace vellumry::tk
