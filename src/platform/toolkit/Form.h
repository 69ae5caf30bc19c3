#pragma once
// A top-level window of the system. A form class derives from this one, holds its controls
// as members and overrides the Form_ events it handles. Forms live in a FormSlot, which
// creates them when first touched; Unload ends them.

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/gdi/Picture.h"
#include "platform/toolkit/Control.h"
#include "platform/toolkit/Error.h"

namespace vellumry::tk {

class Menu;
class Runtime;

class Form : public Control {
 public:
  Form(Runtime& runtime, std::string name);
  ~Form() override;

  Runtime& runtime() const { return runtime_; }

  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& v);
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  // 0 normal, 1 minimised, 2 maximised. A change raises Resize.
  int WindowState() const { return windowState_; }
  void setWindowState(int v);
  // 0 default, 11 the hourglass.
  int MousePointer() const { return mousePointer_; }
  void setMousePointer(int v);
  bool KeyPreview() const { return keyPreview_; }
  void setKeyPreview(bool v) { keyPreview_ = v; }
  // 0 none, 1 fixed single, 2 sizable, ...: only how the presenter frames it.
  int BorderStyle() const { return borderStyle_; }
  void setBorderStyle(int v);
  // The system menu box of the title bar.
  bool ControlBox() const { return controlBox_; }
  void setControlBox(bool v);
  // A bordered window has a title bar unless it has neither a caption nor a control box; the
  // fixed single border then is a thin line around the client area.
  bool hasTitleBar() const { return borderStyle_ != 0 && (controlBox_ || !caption_.empty()); }
  // 1 twips, 3 pixels: the unit of the form's own drawing.
  int ScaleMode() const { return scaleMode_; }
  void setScaleMode(int v) { scaleMode_ = v; }
  double innerUnitX() const override;
  double innerUnitY() const override;
  // Stays above every other window while true.
  bool topMost() const { return topMost_; }
  void setTopMost(bool v);
  // The typeface and size in points of the text of the form's controls; empty and 0: the
  // desktop's own.
  const std::string& FontName() const { return fontName_; }
  void setFontName(const std::string& v);
  double FontSize() const { return fontSize_; }
  void setFontSize(double v);
  // The window's outline: a rectangle of `width` by `height` pixels from its corner, the
  // corners cut by an ellipse of `cornerWidth` by `cornerHeight` pixels. All 0: no outline
  // of its own, the whole window shows.
  struct Region {
    int width = 0, height = 0, cornerWidth = 0, cornerHeight = 0;
    bool operator==(const Region&) const = default;
  };
  const Region& windowRegion() const { return region_; }
  void setWindowRegion(const Region& v);
  // A picture the form keeps; the program's task-bar owner keeps the screen of the last
  // minimising in it.
  const gdi::Picture& Picture() const { return picture_; }
  void setPicture(const gdi::Picture& p) { picture_ = p; }
  // The form whose window this one lies inside, as a child window: Left and Top count from
  // that window's corner, and it shows only while that window does. Null: a window of its own.
  Form* ownerForm() const { return owner_; }
  void SetParent(Form* owner);

  void setVisible(bool v) override;
  void setWidth(double v) override;
  void setHeight(double v) override;
  void Show();
  void Hide() { setVisible(false); }
  // Runs QueryUnload and Unload; false when one of them cancelled. Unloading a form that is
  // already unloading does nothing.
  bool Unload(int unloadMode = 1);
  bool isLoaded() const { return loaded_; }

  // Shows `menu` as a popup; the picked entry's Click runs after the popup has closed.
  void PopupMenu(Menu& menu, int flags = 0, std::optional<double> x = {},
                 std::optional<double> y = {});

  Control* ActiveControl() const { return active_; }
  // A key pressed while the form had the keyboard, and its release: false when the press went
  // elsewhere (a menu, a dialog, another window), so that the release is no key stroke here.
  void keyPressed(int keyCode) { keysDown_.insert(keyCode); }
  bool keyReleased(int keyCode) { return keysDown_.erase(keyCode) != 0; }
  // The control named `name` with `index` (-1 for a single control), or nullptr.
  Control* find(std::string_view name, int index = -1) const;
  const std::vector<Control*>& controls() const { return controls_; }
  FieldTable& fields() { return fields_; }

  const std::vector<Property>& properties() const override;

  // The form's events; override those the form handles.
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_QueryUnload(int& /*Cancel*/, int /*UnloadMode*/) {}
  virtual void Form_Unload(int& /*Cancel*/) {}
  virtual void Form_KeyDown(int& /*KeyCode*/, int /*Shift*/) {}
  virtual void Form_KeyUp(int& /*KeyCode*/, int /*Shift*/) {}
  virtual void Form_KeyPress(int& /*KeyAscii*/) {}
  virtual void Form_MouseDown(int /*Button*/, int /*Shift*/, double /*X*/, double /*Y*/) {}
  virtual void Form_MouseUp(int /*Button*/, int /*Shift*/, double /*X*/, double /*Y*/) {}
  virtual void Form_MouseMove(int /*Button*/, int /*Shift*/, double /*X*/, double /*Y*/) {}
  virtual void Form_Click() {}
  virtual void Form_DblClick() {}

 private:
  friend class Control;
  template <class T>
  friend class FormSlot;
  friend class Runtime;
  void adopt(Control* c) { controls_.push_back(c); }
  void release(Control* c);
  void focus(Control* c);
  // Called by the slot once the object is complete: registers and raises Load.
  void load();
  // Marks the form gone without events; the program has ended.
  void discard();
  void raiseResize();

  Runtime& runtime_;
  std::vector<Control*> controls_;
  FieldTable fields_;
  Control* active_ = nullptr;
  std::string caption_, fontName_;
  double fontSize_ = 0;
  uint32_t backColor_ = 0x8000000F;
  int windowState_ = 0, mousePointer_ = 0, borderStyle_ = 2, scaleMode_ = 1;
  bool keyPreview_ = false, topMost_ = false, controlBox_ = true;
  Region region_;
  gdi::Picture picture_;
  Form* owner_ = nullptr;
  std::set<int> keysDown_;
  bool loaded_ = false, unloading_ = false, shownOnce_ = false;
};

// The control `name` of `form` as a `T`, for code that knows the form only as a plain window;
// a form that has none fails.
template <class T>
T& controlOf(Form& form, const char* name) {
  auto* c = dynamic_cast<T*>(form.find(name));
  if (!c) raise(err::ElementMissing, form.Name() + "." + name);
  return *c;
}

}  // namespace vellumry::tk
