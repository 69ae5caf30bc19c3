#pragma once
// One running program: its toolkit, its picture engine, its settings, the state that the
// subsystems share, and a slot for each form. Nothing is global, so tests can run several
// programs side by side.
//
// The forms are only declared here: a subsystem that wants a form's own controls or routines
// includes that form's header, and so must link its library; as a plain window every form is
// reachable from here. The shell's Main gives each slot its maker.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/Runtime.h"
#include "program/GridState.h"
#include "program/LinkState.h"
#include "program/Places.h"
#include "program/ShellState.h"
#include "program/ToolState.h"
#include "program/ViewerState.h"

namespace vellumry {

class Module1;
class PictureServices;

class Form0;
class Form1;
class Form1Controls;
class Form2;
class Form3;
class FormScreenCapture;
class frmEdit;
class frmMenu;
class frmSet;
class About;

class Program {
 public:
  Program(tk::Host& host, tk::EventLoop::Clock clock, tk::Screen screen, Places places);
  ~Program();

  tk::Runtime runtime;
  Places places;

 private:
  // Made before the forms and gone after them, since their pictures draw through it.
  std::unique_ptr<PictureServices> pictures_;
  std::unique_ptr<Module1> module1_;

 public:
  // The picture engine: decoders, pixel cache, decoding ahead, and the two roads of the grid.
  // A room that draws pictures includes its headers; the others compile without them.
  PictureServices& pictures() { return *pictures_; }
  Module1& module1() { return *module1_; }

  // The program-wide state, each in the header of the room that owns it; the driver reads it
  // by its names.
  ShellState shell;
  GridState grid;
  LinkState links;
  ViewerState viewer;
  ToolState tools;
  tk::FieldTable fields;

  tk::FormSlot<vellumry::Form0> Form0;
  tk::FormSlot<vellumry::Form1> Form1;
  tk::FormSlot<vellumry::Form2> Form2;
  tk::FormSlot<vellumry::Form3> Form3;
  tk::FormSlot<vellumry::FormScreenCapture> FormScreenCapture;
  tk::FormSlot<vellumry::frmMenu> frmMenu;
  tk::FormSlot<vellumry::frmEdit> frmEdit;
  tk::FormSlot<vellumry::frmSet> frmSet;
  tk::FormSlot<vellumry::About> About;
  // Form3.pLoad: plays a GIF file in the GIF window. For the viewer, whose library lies below
  // the GIF window's; the shell's Main wires it.
  std::function<void(const std::string& sFileName)> playGif;
  // Form3.pP when its animation fills the screen, else Form3.pM: the GIF window made ready for
  // a minimising from its menu. Wired by Main, as playGif.
  std::function<void()> settleGifWindow;
  // Form1's controls, the model that every subsystem shares; touching loads Form1.
  Form1Controls& mainWindow();

  // A key of the settings file, "?" when missing; each read goes to the file.
  std::string readSetting(const std::string& key) const;
  // A numeric key; one that holds no number reads as its default.
  long readSettingNumber(const std::string& key) const;
  void writeSetting(const std::string& key, const std::string& value) const;

  // Minimises the program as every minimising does: the screen picture, ViewerUp when given,
  // then Form0 to the screen and minimised; Form0's Resize hides the rest.
  void pMinimise(std::optional<uint8_t> viewerUp);
  // Ends the program: `dest` written empty, every form unloaded.
  void pQuit();
  // Starts the help program beside the program; a failure to start is err::FileNotFound.
  void startHelp();
  // Opens a folder in the desktop's file manager; a failure is err::FileNotFound.
  void openFolder(const std::string& path);
  // Twips to whole pixels by the screen; direction 0 horizontal, else vertical.
  int32_t ConvertTwipsToPixels(int32_t twips, uint8_t direction);
};

}  // namespace vellumry
