#pragma once
// Sits on the Qt widget of one windowed control: hands its mouse to the model, keeps input
// away while the model takes none, and runs the model's side of the widget's own signals. The
// widget may outlive the control for a moment (it is deleted later); once detached the tap
// does nothing.

#include <QObject>
#include <functional>

namespace vellumry::tk {
class Control;
}

namespace vellumry::presenter {

class Presenter;

class ControlTap : public QObject {
 public:
  ControlTap(Presenter& presenter, tk::Control& control, QWidget* widget);

  tk::Control* control() const { return control_; }
  void detach() { control_ = nullptr; }
  // Runs `action` on the control as a user action, then shows the model's state on the widget
  // again, so a refused or changed value doesn't stay on screen.
  void act(const std::function<void(tk::Control&)>& action);
  // Takes the mouse from `object` instead: the part of the widget that gets it (a viewport).
  void watchMouse(QObject* object);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool mouse(QEvent* event);

  Presenter& presenter_;
  tk::Control* control_;
  QWidget* widget_;
  QObject* mouseObject_;
};

}  // namespace vellumry::presenter
