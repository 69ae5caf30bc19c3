#include "app/Driver.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <istream>
#include <ostream>

#include "app/ScriptWords.h"
#include "gif/Form3.h"
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/gdi/Blit.h"
#include "platform/os/FileSystem.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/ScrollBar.h"
#include "program/Program.h"
#include "shell/CommandLine.h"
#include "shell/Main.h"

namespace vellumry {

namespace {
using tk::raise;
namespace err = tk::err;

int toInt(const std::string& word) { return tk::CLng(tk::toNumber(tk::Value(word))); }

// `c` as a control of kind T, for a verb that needs one.
template <class T>
T& as(tk::Control& c) {
  auto* typed = dynamic_cast<T*>(&c);
  if (!typed) raise(err::NotSupported, c.Name() + " can't do that");
  return *typed;
}

// A path split at its dots: "Form1.Image1(3).Left" -> Form1, Image1(3), Left.
std::vector<std::string> pathParts(const std::string& path) {
  std::vector<std::string> parts;
  size_t start = 0;
  for (size_t dot = path.find('.'); dot != std::string::npos; dot = path.find('.', start)) {
    parts.push_back(path.substr(start, dot - start));
    start = dot + 1;
  }
  parts.push_back(path.substr(start));
  return parts;
}

tk::Form* loadedForm(Program& p, std::string_view name) {
  for (tk::Form* f : p.runtime.Forms())
    if (tk::iequals(f->Name(), name)) return f;
  return nullptr;
}

// What a path names: a control (or form) and a property, a form field, or a program field.
struct Target {
  tk::Control* control = nullptr;
  tk::FieldTable* fields = nullptr;
  std::string member;  // property or field name, "(i)" kept for indexed ones
};

Target resolve(Program& p, const std::string& path) {
  auto parts = pathParts(path);
  Target t;
  tk::Form* form = loadedForm(p, parts[0]);
  if (!form) {
    if (parts.size() != 1) raise(err::InvalidCall, "no loaded form " + parts[0]);
    t.fields = &p.fields;
    t.member = parts[0];
    return t;
  }
  t.control = form;
  if (parts.size() == 1) return t;
  auto [name, index] = tk::splitIndex(parts[1]);
  if (tk::Control* c = form->find(name, index.value_or(-1))) {
    t.control = c;
    if (parts.size() > 2) t.member = parts[2];
    return t;
  }
  if (index && form->find(name, 0)) raise(err::ElementMissing, parts[1]);
  if (parts.size() != 2) raise(err::InvalidCall, "no control " + parts[1]);
  t.member = parts[1];
  if (form->fields().has(name)) t.fields = &form->fields();
  return t;
}

tk::Value getValue(const Target& t) {
  if (t.fields) {
    auto [name, index] = tk::splitIndex(t.member);
    return t.fields->get(name, index);
  }
  if (t.member.empty()) raise(err::InvalidCall, "a property is needed");
  return t.control->get(t.member);
}

void setValue(const Target& t, const tk::Value& v) {
  if (t.fields) {
    auto [name, index] = tk::splitIndex(t.member);
    return t.fields->set(name, index, v);
  }
  if (t.member.empty()) raise(err::InvalidCall, "a property is needed");
  t.control->set(t.member, v);
}

// The picture that an image or picture box holds.
const gdi::Picture& pictureOf(const Target& t) {
  if (const auto* image = dynamic_cast<const tk::Image*>(t.control)) return image->Picture();
  if (const auto* box = dynamic_cast<const tk::PictureBox*>(t.control)) return box->Picture();
  if (const auto* form = dynamic_cast<const tk::Form*>(t.control)) return form->Picture();
  raise(err::InvalidCall, "no image or picture box");
}

// What the picture classes say of `picture`, as one line of JSON.
std::string pictureJson(StdPictureEx& ex, const gdi::Picture& picture) {
  return "{\"PictureType\":" + std::to_string(ex.PictureType(picture)) +
         ",\"IsManaged\":" + (ex.IsManaged(picture) ? "true" : "false") +
         ",\"SubImageCount\":" + std::to_string(ex.SubImageCount(picture)) + "}";
}

// The player of the GIF window as one line of JSON, or `none` without one.
std::string gifJson(Program& program) {
  const Form3* window = program.Form3.peek();
  const cGIFViewer* player = window ? window->gifViewer.get() : nullptr;
  if (!player) return "none";
  const int32_t index = player->AnimationIndex();
  return "{\"AnimationState\":" + std::to_string(player->AnimationState()) +
         ",\"AnimationIndex\":" + std::to_string(index) +
         ",\"Frames\":" + std::to_string(player->FrameProperty(1, 6)) +
         ",\"FrameTime\":" + std::to_string(player->FrameProperty(index, 0)) +
         ",\"LoopCount\":" + std::to_string(player->LoopCount()) +
         ",\"Width\":" + std::to_string(player->Width()) +
         ",\"Height\":" + std::to_string(player->Height()) +
         ",\"MinimumDelay\":" + std::to_string(player->MinimumDelay()) +
         ",\"LoopsDone\":" + std::to_string(player->LoopsDone()) + "}";
}

// The colour at pixel (x, y) of the control's picture drawn stretched over the control's size,
// on the back colour of what holds the control.
std::string shownPixel(const Target& t, double twipsPerPixel, int x, int y) {
  const gdi::Picture& picture = pictureOf(t);
  const tk::Control& holder = t.control->Container() ? *t.control->Container()
                                                     : static_cast<tk::Control&>(t.control->form());
  const auto pixels = [&](double twips) { return static_cast<int>(twips / twipsPerPixel + 0.5); };
  const int width = pixels(t.control->widthTwips()), height = pixels(t.control->heightTwips());
  if (x < 0 || y < 0 || x >= width || y >= height) raise(err::InvalidCall, "no such pixel");
  gdi::Surface shown(width, height, gdi::AlphaMode::kOpaque);
  gdi::fill(shown, {0, 0, width, height},
            tk::pixelOf(static_cast<uint32_t>(tk::CLng(tk::toNumber(holder.get("BackColor"))))));
  picture.Render(shown, 0, 0, width, height, 0, picture.Height(), picture.Width(),
                 -picture.Height());
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%06X", shown.pixel(x, y) & 0xFFFFFFu);
  return hex;
}

std::string propertiesJson(const tk::Control& c) {
  std::string out = "{";
  for (const tk::Property& prop : c.properties()) {
    if (prop.getAt) continue;
    if (out.size() > 1) out += ",";
    out += tk::jsonQuote(prop.name) + ":" + formatValue(prop.get(c));
  }
  if (auto* list = dynamic_cast<const tk::ListControl*>(&c)) {
    out += ",\"List\":[";
    for (int i = 0; i < list->ListCount(); ++i)
      out += (i ? "," : "") + tk::jsonQuote(list->List(i));
    out += "]";
  }
  return out + "}";
}

std::string dumpJson(tk::Form& form) {
  std::string out = "{\"form\":" + tk::jsonQuote(form.Name()) +
                    ",\"properties\":" + propertiesJson(form) + ",\"controls\":[";
  bool first = true;
  for (tk::Control* c : form.controls()) {
    out += first ? "" : ",";
    first = false;
    out += "{\"name\":" + tk::jsonQuote(c->Name()) + ",\"index\":" + std::to_string(c->Index()) +
           ",\"kind\":" + tk::jsonQuote(tk::kindName(c->kind())) +
           ",\"properties\":" + propertiesJson(*c) + "}";
  }
  out += "],\"fields\":{";
  first = true;
  for (const auto& [name, values] : form.fields().all()) {
    out += (first ? "" : ",") + tk::jsonQuote(name) + ":" + formatValue(values.front());
    first = false;
  }
  return out + "}}";
}
}  // namespace

Driver::Driver(std::ostream& out) : out_(out) {
  host_.onShown = [this](const std::string& line) { print(line); };
  auto temp = std::filesystem::temp_directory_path() / "vellumry-drive-XXXXXX";
  std::string dir = temp.string();
  if (mkdtemp(dir.data())) ownFolder_ = dir;
  places_ = {ownFolder_, ownFolder_, ownFolder_};
}

Driver::~Driver() {
  program_.reset();
  std::error_code error;
  if (!ownFolder_.empty()) std::filesystem::remove_all(ownFolder_, error);
}

void Driver::print(const std::string& line) { out_ << "> " << line << "\n"; }

Program& Driver::running() {
  if (!program_) raise(err::InvalidCall, "the program isn't started");
  return *program_;
}

void Driver::act(bool taken) {
  if (!taken) print("ignored " + currentLine_);
}

int Driver::run(std::istream& in) {
  std::string line;
  for (int lineNo = 1; std::getline(in, line); ++lineNo) runLine(line, lineNo);
  out_.flush();
  return errors_;
}

void Driver::runLine(const std::string& line, int lineNo) {
  size_t first = line.find_first_not_of(" \t\r");
  if (first == std::string::npos || line[first] == '#') return;
  currentLine_ = line.substr(first);
  while (!currentLine_.empty() && currentLine_.back() == '\r') currentLine_.pop_back();
  try {
    command(splitWords(currentLine_));
  } catch (const tk::Error& e) {
    ++errors_;
    print("error " + std::to_string(lineNo) + ": " + e.Description);
  }
  if (program_ && afterCommand) {
    if (const auto disagreement = afterCommand()) {
      ++errors_;
      print("screen: " + *disagreement);
    }
  }
  if (program_ && program_->runtime.ended() && !endPrinted_) {
    endPrinted_ = true;
    print("end");
  }
}

void Driver::command(const Args& a) {
  const auto& table = verbs();
  const auto verb =
      std::find_if(table.begin(), table.end(), [&](const Verb& v) { return a[0] == v.name; });
  if (verb == table.end()) raise(err::InvalidCall, "unknown command " + a[0]);
  if (a.size() < verb->least) raise(err::InvalidCall, std::string("usage: ") + verb->usage);
  verb->run(*this, a);
}

tk::Control& Driver::control(const std::string& path) {
  Target t = resolve(running(), path);
  if (!t.control || !t.member.empty()) raise(err::InvalidCall, path + " is no control");
  return *t.control;
}

tk::Form& Driver::form(const std::string& name) {
  tk::Form* f = loadedForm(running(), name);
  if (!f) raise(err::InvalidCall, "no loaded form " + name);
  return *f;
}

void Driver::start() {
  if (program_) raise(err::InvalidCall, "started already");
  program_ = std::make_unique<Program>(host_, tk::EventLoop::Clock::Virtual, screen_, places_);
  program_->runtime.onUncaught = [this](const tk::Error& e) {
    print("uncaught " + std::to_string(e.Number) + ": " + e.Description);
  };
  if (onStart) onStart(*program_);
  Main(*program_);
}

// The mouse verbs: PATH BUTTON, then X Y where given.
template <bool (*press)(tk::Control&, int, int, double, double)>
void Driver::mouse(const Args& a) {
  const double x = a.size() > 4 ? tk::toNumber(tk::Value(a[3])) : 0;
  const double y = a.size() > 4 ? tk::toNumber(tk::Value(a[4])) : 0;
  act(press(control(a[1]), toInt(a[2]), 0, x, y));
}

const std::vector<Driver::Verb>& Driver::verbs() {
  using A = const Args&;
  static const std::vector<Verb> table = {
      // Set-up, before `start`.
      {"screen", 3, "screen W H [TPP]",
       [](Driver& d, A a) {
         d.screen_ =
             tk::Screen::ofPixels(toInt(a[1]), toInt(a[2]), a.size() > 3 ? toInt(a[3]) : 15);
       }},
      {"home", 2, "home DIR",
       [](Driver& d, A a) { d.places_.programFolder = d.places_.installFolder = a[1]; }},
      {"pictures", 2, "pictures DIR", [](Driver& d, A a) { d.places_.picturesFolder = a[1]; }},
      {"named", 2, "named PATH",
       [](Driver& d, A a) {
         takeCommandLine({"vellumry", a[1]}, d.places_);
       }},
      {"start", 1, "start", [](Driver& d, A) { d.start(); }},
      {"wait", 2, "wait MS",
       [](Driver& d, A a) { d.running().runtime.loop().advance(toInt(a[1])); }},
      // What a user does.
      {"click", 2, "click PATH", [](Driver& d, A a) { d.act(tk::user::click(d.control(a[1]))); }},
      {"dblclick", 2, "dblclick PATH",
       [](Driver& d, A a) { d.act(tk::user::dblClick(d.control(a[1]))); }},
      {"mousedown", 3, "mousedown PATH BUTTON [X Y]",
       [](Driver& d, A a) { d.mouse<tk::user::mouseDown>(a); }},
      {"mouseup", 3, "mouseup PATH BUTTON [X Y]",
       [](Driver& d, A a) { d.mouse<tk::user::mouseUp>(a); }},
      {"mousemove", 5, "mousemove PATH BUTTON X Y",
       [](Driver& d, A a) { d.mouse<tk::user::mouseMove>(a); }},
      {"key", 3, "key FORM CODE [SHIFT]",
       [](Driver& d, A a) {
         d.act(tk::user::key(d.form(a[1]), toInt(a[2]), a.size() > 3 ? toInt(a[3]) : 0));
       }},
      {"select", 3, "select PATH INDEX",
       [](Driver& d, A a) {
         d.act(tk::user::select(as<tk::ListControl>(d.control(a[1])), toInt(a[2])));
       }},
      {"type", 3, "type PATH TEXT",
       [](Driver& d, A a) { d.act(tk::user::type(as<tk::TextBox>(d.control(a[1])), a[2])); }},
      {"scroll", 3, "scroll PATH VALUE",
       [](Driver& d, A a) {
         d.act(tk::user::scroll(as<tk::ScrollBar>(d.control(a[1])), toInt(a[2])));
       }},
      // Answers for what blocks.
      {"answer", 2, "answer N", [](Driver& d, A a) { d.host_.queueAnswer(toInt(a[1])); }},
      {"choose", 2, "choose NAME|none",
       [](Driver& d, A a) { d.host_.queueMenuPick(a[1] == "none" ? "" : a[1]); }},
      {"savefile", 2, "savefile PATH|cancel",
       [](Driver& d, A a) {
         d.host_.queueSaveFile(a[1] == "cancel" ? std::nullopt : std::optional<std::string>(a[1]));
       }},
      {"color", 2, "color N|cancel",
       [](Driver& d, A a) {
         d.host_.queueColor(a[1] == "cancel"
                                ? std::nullopt
                                : std::optional<uint32_t>(static_cast<uint32_t>(toInt(a[1]))));
       }},
      // Reading and writing.
      {"get", 2, "get PATH",
       [](Driver& d, A a) { d.out_ << formatValue(getValue(resolve(d.running(), a[1]))) << "\n"; }},
      {"set", 3, "set PATH VALUE",
       [](Driver& d, A a) {
         Target t = resolve(d.running(), a[1]);
         d.running().runtime.dispatch([&] { setValue(t, parseValue(a[2])); });
       }},
      {"dump", 2, "dump FORM", [](Driver& d, A a) { d.out_ << dumpJson(d.form(a[1])) << "\n"; }},
      {"setting", 3, "setting KEY VALUE",
       [](Driver& d, A a) { d.running().writeSetting(a[1], a[2]); }},
      {"file", 2, "file FILE",
       [](Driver& d, A a) {
         const auto bytes = os::readWholeFile(a[1]);
         d.out_ << (bytes ? tk::jsonQuote(std::string(bytes->begin(), bytes->end())) : "missing")
                << "\n";
       }},
      {"picture", 2, "picture PATH",
       [](Driver& d, A a) {
         d.out_ << pictureJson(d.running().pictures().stdPictureEx(),
                               pictureOf(resolve(d.running(), a[1])))
                << "\n";
       }},
      {"pixel", 4, "pixel PATH X Y",
       [](Driver& d, A a) {
         d.out_ << shownPixel(resolve(d.running(), a[1]), d.running().pictures().twipsPerPixel(),
                              toInt(a[2]), toInt(a[3]))
                << "\n";
       }},
      {"gif", 1, "gif", [](Driver& d, A) { d.out_ << gifJson(d.running()) << "\n"; }},
      {"shot", 2, "shot FILE.png",
       [](Driver& d, A a) {
         if (!d.shot) raise(err::NotSupported, "this driver takes no pictures");
         if (!d.shot(d.running(), a[1])) raise(err::InvalidCall, "can't write " + a[1]);
       }},
  };
  return table;
}

}  // namespace vellumry
