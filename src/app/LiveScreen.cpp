#include "app/LiveScreen.h"

#include <QCoreApplication>

#include "app/Driver.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/ScreenCheck.h"
#include "platform/qt/ScreenShot.h"
#include "program/Program.h"

namespace vellumry {

namespace {
constexpr int kSettleRounds = 3;
}  // namespace

LiveScreen::LiveScreen(Driver& driver) : driver_(driver) {
  driver.onStart = [this](Program& program) {
    presenter_ = std::make_unique<presenter::Presenter>(program.runtime);
    presenter_->setTaskbarForm("Form0");
  };
  driver.afterCommand = [this]() -> std::optional<std::string> {
    if (!presenter_) return std::nullopt;
    // What the windows do in answer to the step (showing, activating, deleting) comes as
    // events of Qt's own.
    // Answers can come in rounds: a window shown, the desktop activating it, the presenter
    // giving the keyboard back to the model's window.
    for (int round = 0; round < kSettleRounds; ++round) {
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCoreApplication::processEvents();
    }
    return presenter::screenDisagreement(*presenter_);
  };
  driver.shot = [this](Program& program, const std::string& png) {
    return presenter::saveShot(program.runtime, presenter_.get(), QString::fromStdString(png));
  };
  driver.host().drawScreen = [this] {
    tk::Runtime& runtime = driver_.program()->runtime;
    return presenter::asPicture(presenter::renderScreen(*presenter_),
                                runtime.screen().TwipsPerPixelX);
  };
}

LiveScreen::~LiveScreen() {
  driver_.onStart = nullptr;
  driver_.afterCommand = nullptr;
  driver_.shot = nullptr;
  driver_.host().drawScreen = nullptr;
}

}  // namespace vellumry
