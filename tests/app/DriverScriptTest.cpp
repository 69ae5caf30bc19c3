// The driver's scripts run as written and print what they say.
#include <QColor>
#include <QImage>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "Corpus.h"
#include "ProgramFixture.h"
#include "app/Driver.h"
#include "app/LiveScreen.h"
#include "app/ScriptWords.h"
#include "codecs/TestImages.h"
#include "platform/codecs/Encoders.h"
#include "platform/os/FileFacts.h"
#include "platform/os/FileSystem.h"
#include "program/Program.h"

using namespace vellumry;

namespace {
std::string readFile(const std::string& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

void writeFile(const std::filesystem::path& path, const std::vector<uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// A 32-bit BMP of 8 x 8 pixels of `argb`, its fourth byte written as it stands.
std::vector<uint8_t> bmp32(uint32_t argb) {
  gdi::Surface pixels(8, 8, gdi::AlphaMode::kUnknown);
  for (uint32_t& p : pixels.Pixels()) p = argb;
  return codecs::encodeBmp(pixels);
}

// A 1-bit BMP of 8 x 8 pixels, black and white columns by turns, white at the left.
std::vector<uint8_t> bmp1() {
  std::vector<uint8_t> file = {'B', 'M'};
  codecs::putLe32(file, 14 + 40 + 8 + 32);
  codecs::putLe32(file, 0);
  codecs::putLe32(file, 14 + 40 + 8);
  for (const uint32_t v : {40u, 8u, 8u}) codecs::putLe32(file, v);
  codecs::putLe16(file, 1);
  codecs::putLe16(file, 1);
  for (const uint32_t v : {0u, 32u, 0u, 0u, 2u, 0u, 0x000000u, 0xFFFFFFu}) codecs::putLe32(file, v);
  for (int row = 0; row < 8; ++row) codecs::putLe32(file, 0xAA);  // 1010 1010, padded
  return file;
}

// `text` with every `placeholder` replaced by `value`.
std::string filledIn(std::string text, const std::string& placeholder, const std::string& value) {
  for (size_t at = 0; (at = text.find(placeholder, at)) != std::string::npos; at += value.size())
    text.replace(at, placeholder.size(), value);
  return text;
}
}  // namespace

// Each script runs headless, and again with the windows on screen following every step: the
// screen must say what the model says, so the output is the same.
class DriverScriptTest : public ProgramFixture, public ::testing::WithParamInterface<bool> {
 protected:
  // Runs tests/scripts/NAME.drive with this test's folders filled in; expects `errors` lines
  // to fail and the driver to print NAME.expected, filled in alike.
  // `more` gives further placeholders of the expected output, asked for after the run.
  using Fills = std::vector<std::pair<std::string, std::string>>;
  void expectScript(const std::string& name, int errors, std::function<Fills()> more = {}) {
    const auto fill = [&](std::string text, const Fills& extra = {}) {
      Fills all = {{"${ROOT}", root.string()},
                   {"${HOME}", home.string()},
                   {"${PICTURES}", pictures.string()}};
      all.insert(all.end(), extra.begin(), extra.end());
      for (const auto& [placeholder, value] : all)
        text = filledIn(std::move(text), placeholder, value);
      return text;
    };
    const std::string script = readFile("tests/scripts/" + name + ".drive");
    ASSERT_FALSE(script.empty()) << name;
    std::istringstream in(fill(script));
    std::ostringstream out;
    vellumry::Driver driver(out);
    std::optional<LiveScreen> screen;
    if (GetParam()) screen.emplace(driver);
    EXPECT_EQ(driver.run(in), errors);
    EXPECT_EQ(out.str(),
              fill(readFile("tests/scripts/" + name + ".expected"), more ? more() : Fills{}));
  }
};

TEST_P(DriverScriptTest, Grid57RunsAsDocumented) {
  makeFiles(57);
  expectScript("grid57", 1);  // the one line that asks for what isn't there
}

TEST_P(DriverScriptTest, EveryKindOfPictureOfTheEngine) {
  using codecs::testing::iconFile;
  using codecs::testing::iconImageBytes;
  writeFile(pictures / "a-sizes.ico", iconFile(1, {{iconImageBytes(16, 0x800000FF)},
                                                   {iconImageBytes(32, 0x8000FF00)},
                                                   {iconImageBytes(48, 0x80FF0000)}}));
  writeFile(pictures / "b-straight.bmp", bmp32(0x80C80000));
  writeFile(pictures / "c-premultiplied.bmp", bmp32(0x80640000));
  writeFile(pictures / "d-zero.bmp", bmp32(0x00C80000));
  writeFile(pictures / "e-pointer.cur", iconFile(2, {{iconImageBytes(16, 0xFF123456), 3, 4}}));
  writeFile(pictures / "f-mono.bmp", bmp1());
  expectScript("engine", 0);
}

TEST_P(DriverScriptTest, PhotosOnTheirSideStandUpright) {
  const std::filesystem::path images = "../shared/corpus/pillow/Tests/images";
  NEED_CORPUS(std::filesystem::exists(images / "g4_orientation_6.tif"), images);
  std::filesystem::copy_file(images / "g4_orientation_6.tif", pictures / "a.tif");
  std::filesystem::copy_file(images / "orientation_rectangle.jpg", pictures / "b.jpg");
  expectScript("upright", 0);
}

// The link list's whole life in the driver, with the file checked byte for byte after each step.
TEST_P(DriverScriptTest, LinksScenarioKeepsTheFileInStep) {
  for (const char* folder : {"pictures", "Alps 2019", "beach", "City"}) makeFiles(2, root / folder);
  expectScript("links", 0);
}

TEST_P(DriverScriptTest, ViewerRunsAsWritten) {
  for (const char* name : {"a.png", "b.png", "c.png", "d.png", "e.png"}) {
    const bool big = name[0] == 'a';
    QImage image(big ? 2000 : 64, big ? 1900 : 48, QImage::Format_RGB32);
    image.fill(QColor(30, 60, 90));
    ASSERT_TRUE(image.save(QString::fromStdString((pictures / name).string()), "PNG"));
  }
  setting("slsh", "1");
  setting("sautor", "1");
  expectScript("viewer", 0);
}

// The dates of the file information stand as the desktop writes them, read after the run.
TEST_P(DriverScriptTest, DialogsScenario) {
  std::ofstream(iniPath(), std::ios::trunc)
      << "[Settings]\nrows=10\ngformc=4210752\ngselfrc=33023\nslsh=5\ndest=\nInw=<\n";
  writeFile(pictures / "a.BMP", bmp32(0xFF204060));
  writeFile(pictures / "b.bmp", bmp32(0xFF604020));
  for (const char* text : {"a.txt", "b.txt"}) std::ofstream(pictures / text) << "note";
  std::ofstream(pictures / "c.png") << "not a picture";
  QImage grey(640, 480, QImage::Format_Grayscale8);
  grey.fill(128);
  ASSERT_TRUE(grey.save(QString::fromStdString((pictures / "d.png").string()), "PNG"));
  const auto size = std::filesystem::file_size(pictures / "d.png");
  ASSERT_LT(size, 1536u);
  // Bytes behind the end of a PNG are no part of the picture.
  writeFile(pictures / "d.png", [&] {
    auto bytes = *os::readWholeFile((pictures / "d.png").string());
    bytes.resize(1536);
    return bytes;
  }());
  expectScript("dialogs", 0, [&] {
    Fills dates;
    for (const char* file : {"c.png", "d.png"}) {
      const auto facts = os::GetFile((pictures / file).string());
      dates.push_back({"${MODIFIED_" + std::string(file) + "}", facts->DateLastModified});
      dates.push_back({"${ACCESSED_" + std::string(file) + "}", facts->DateLastAccessed});
    }
    return dates;
  });
}

TEST_P(DriverScriptTest, GifWindowPlaysPausesStepsAndStops) {
  using codecs::testing::GifFrameSpec;
  const auto solid = [](uint8_t index, int delay) {
    return GifFrameSpec{0, 0, 2, 2, std::vector<uint8_t>(4, index), delay};
  };
  writeFile(pictures / "a-anim.gif",
            codecs::testing::makeAnimatedGif(2, 2, {solid(1, 10), solid(2, 0), solid(3, 20)}, 2));
  writeFile(pictures / "b-still.gif", codecs::testing::makeAnimatedGif(2, 2, {solid(1, 10)}, -1));
  expectScript("gif", 0);
}

using DriverTest = ProgramFixture;

TEST_F(DriverTest, ActionsOnWhatBlocksAndEnds) {
  std::istringstream in("home " + home.string() + "\npictures " + pictures.string() +
                        "\nstart\nanswer 7\nwait 500\ndump Form0\nclick Form1.Image4\n"
                        "get Form1.Visible\n");
  std::ostringstream out;
  vellumry::Driver driver(out);
  driver.run(in);
  std::string text = out.str();
  EXPECT_NE(text.find("> msgbox 36 \"\" \"  No images in the own folder of this record!\\r\\n\\r\\n"
                      "Do you want to close: 'Vellumry'?\" -> 7\n"),
            std::string::npos);
  EXPECT_NE(text.find("{\"form\":\"Form0\",\"properties\":{\"Name\":\"Form0\""), std::string::npos);
  EXPECT_NE(text.find("}}\n> end\n> error 8: "), std::string::npos);  // no form after the end
}

// A script that names no home runs in a folder of the driver's own, gone with the driver.
TEST_F(DriverTest, AFolderOfItsOwnGoesWithTheDriver) {
  const char* old = std::getenv("TMPDIR");
  const std::string saved = old ? old : "";
  ::setenv("TMPDIR", (root / "data").c_str(), 1);
  std::filesystem::create_directories(root / "data");
  {
    std::istringstream in("pictures " + pictures.string() + "\nstart\nanswer 7\nwait 500\n");
    std::ostringstream out;
    vellumry::Driver driver(out);
    driver.run(in);
    EXPECT_FALSE(std::filesystem::is_empty(root / "data"));  // the settings file, for one
  }
  old ? ::setenv("TMPDIR", saved.c_str(), 1) : ::unsetenv("TMPDIR");
  EXPECT_TRUE(std::filesystem::is_empty(root / "data"));
}

// Ten files, three marked and one mark taken back. Closed with Yes, the two marked files go to
// the trash and the other eight stay byte for byte; closed with Cancel and then No, all ten stay.
TEST_P(DriverScriptTest, MarkedFilesLeaveOnlyAfterYes) {
  struct Case {
    std::string script;
    std::set<std::string> gone;
  };
  for (const Case& c : {Case{"marks-keep", {}}, Case{"marks-yes", {"p01.png", "p08.png"}}}) {
    SCOPED_TRACE(c.script);
    std::map<std::string, std::string> before;
    for (int i = 0; i < 10; ++i) {
      const std::string name = "p0" + std::to_string(i) + ".png";
      QImage image(60, 40, QImage::Format_RGB32);
      image.fill(QColor(i * 25, 100, 200));
      ASSERT_TRUE(image.save(QString::fromStdString((pictures / name).string()), "PNG"));
      before[name] = readFile((pictures / name).string());
    }
    expectScript(c.script, 0);
    for (const auto& [name, bytes] : before) {
      const bool gone = c.gone.contains(name);
      EXPECT_EQ(std::filesystem::exists(pictures / name), !gone) << name;
      EXPECT_EQ(readFile((gone ? root / "data/Trash/files" : pictures) / name), bytes) << name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, DriverScriptTest, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Live" : "Headless"; });

TEST(ScriptWords, SplitsAtBlanksAndReadsJsonStrings) {
  EXPECT_EQ(vellumry::splitWords("type Form1.Text1 \"a b\\\"c\\u00e9\"  x"),
            (std::vector<std::string>{"type", "Form1.Text1", "a b\"c\xC3\xA9", "x"}));
  EXPECT_THROW(vellumry::splitWords("type \"open"), tk::Error);
  // JSON's escapes for backspace and form feed, and a character beyond 16 bits as a surrogate
  // pair (U+1F600, four bytes of UTF-8).
  EXPECT_EQ(vellumry::splitWords("\"\\b\\f\\ud83d\\ude00\""),
            (std::vector<std::string>{"\b\f\xF0\x9F\x98\x80"}));
  for (const char* bad : {"\"\\u12\"", "\"\\uzzzz\"", "\"\\ud83d\"", "\"\\ude00\"",
                          "\"\\ud83d\\u0041\""})
    EXPECT_THROW(vellumry::splitWords(bad), tk::Error) << bad;
  EXPECT_EQ(vellumry::formatValue(vellumry::parseValue("-2137.5")), "-2137.5");
  EXPECT_EQ(vellumry::formatValue(vellumry::parseValue("true")), "true");
  EXPECT_EQ(vellumry::formatValue(vellumry::parseValue("a\tb")), "\"a\\tb\"");
}
