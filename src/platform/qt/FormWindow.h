#pragma once
// The top-level window of one form. Besides what every container does, it takes the keys of
// the whole window before any child widget does (the model routes them to the form and to the
// control with the focus), and tells the presenter when the user closes, minimises, restores
// or activates it.

#include "platform/qt/ContainerView.h"

namespace vellumry::tk {
class Form;
}

namespace vellumry::presenter {

class FormWindow : public ContainerView {
 public:
  FormWindow(Presenter& presenter, tk::Form& form);

  tk::Form* form() const;

  // Where the client area began when the controls were last placed.
  QPoint clientOrigin;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
};

}  // namespace vellumry::presenter
