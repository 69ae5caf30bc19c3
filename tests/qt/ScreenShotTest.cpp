// The screen as a person would see it, painted by the code that paints the windows.

#include <QDir>
#include <QFile>

#include "platform/qt/ScreenShot.h"
#include "platform/qt/WindowlessPainter.h"
#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

QRgb at(const QImage& image, int x, int y) { return image.pixel(x, y) | 0xFF000000u; }

class ScreenShotTest : public ::testing::Test {
 protected:
  QtProgram p;
  PanelForm& f = p.form();
};

TEST_F(ScreenShotTest, ShowsAnImagesPictureWhereTheModelPlacesIt) {
  f.Show();
  // The form stands at 100, 200 px; Image1(0) at 220, 180 px inside it, 40 x 40 px, stretched.
  f.Image1(0).setPicture(solidPicture(4, 4, 0xFF00FF00));
  f.Image1(0).setVisible(true);
  QImage screen = presenter::renderScreen(*p.presenter);
  ASSERT_EQ(screen.size(), QSize(800, 600));
  EXPECT_EQ(at(screen, 100 + 220, 200 + 180), 0xFF00FF00u);
  EXPECT_EQ(at(screen, 100 + 259, 200 + 219), 0xFF00FF00u);
  EXPECT_NE(at(screen, 100 + 260, 200 + 220), 0xFF00FF00u);
  // The frame's blue stands where it is, and the screen outside any form is black.
  EXPECT_EQ(at(screen, 100 + 15, 200 + 130), 0xFF0000FFu);
  EXPECT_EQ(at(screen, 5, 5), 0xFF000000u);
}

TEST_F(ScreenShotTest, ArrayElementsStandAtTheLevelOfTheirFirstElement) {
  f.Show();
  // Shape1 is made after Image1(0): an element loaded later still lies below it.
  f.Shape1.Move(220 * 15, 180 * 15, 40 * 15, 40 * 15);
  f.Shape1.setFillStyle(0);
  f.Shape1.setFillColor(0x000000FF);  // red
  f.Shape1.setVisible(true);
  tk::Image& late = f.Image1.Load(1);
  late.setStretch(true);
  late.Move(220 * 15, 180 * 15, 40 * 15, 40 * 15);
  late.setPicture(solidPicture(4, 4, 0xFF00FF00));
  late.setVisible(true);
  EXPECT_EQ(at(presenter::renderScreen(*p.presenter), 100 + 240, 200 + 200), 0xFFFF0000u);
}

TEST(ScreenShot, ADrawnPictureWithAlphaOwnsItsPixels) {
  gdi::Surface half(8, 8, gdi::AlphaMode::kPremultiplied);
  for (int y = 4; y < 8; ++y)
    for (int x = 0; x < 8; ++x) half.setPixel(x, y, 0xFF0000FF);
  QImage drawn = presenter::renderPicture(gdi::Picture::fromSurface(std::move(half)), QSize(8, 8));
  std::vector<char> reuse(4096, 'x');  // what the freed canvas would have held now
  EXPECT_EQ(drawn.pixel(0, 0), 0x00000000u);
  EXPECT_EQ(drawn.pixel(7, 7), 0xFF0000FFu);
}

TEST_F(ScreenShotTest, AnImageWithoutStretchDrawsAtNaturalSize) {
  f.Show();
  f.Image1(0).setStretch(false);
  f.Image1(0).setVisible(true);
  f.Image1(0).setPicture(solidPicture(4, 4, 0xFFFF0000));
  EXPECT_EQ(f.Image1(0).Width(), 60);  // the model sized it to the picture
  QImage screen = presenter::renderScreen(*p.presenter);
  EXPECT_EQ(at(screen, 100 + 223, 200 + 183), 0xFFFF0000u);
  EXPECT_NE(at(screen, 100 + 224, 200 + 183), 0xFFFF0000u);
}

TEST_F(ScreenShotTest, ALaterFormLiesOverAndHiddenOnesDontShow) {
  f.setBackColor(0x000000FF);  // red
  f.Show();
  tk::FormSlot<PanelForm> second(p.runtime,
                                 [&] { return std::make_unique<PanelForm>(p.runtime, p.log); });
  second().setBackColor(0x0000FF00);  // green, at the same place
  second().Show();
  QImage screen = presenter::renderScreen(*p.presenter);
  EXPECT_EQ(at(screen, 100 + 390, 200 + 290), 0xFF00FF00u);
  second().Hide();
  screen = presenter::renderScreen(*p.presenter);
  EXPECT_EQ(at(screen, 100 + 390, 200 + 290), 0xFFFF0000u);
  f.Hide();
  screen = presenter::renderScreen(*p.presenter);
  EXPECT_EQ(at(screen, 100 + 390, 200 + 290), 0xFF000000u);
  second().Unload();
}

TEST_F(ScreenShotTest, WorksWithoutAPresenterAndWritesAPng) {
  p.presenter.reset();
  f.setBackColor(0x000000FF);
  f.Show();
  QImage screen = presenter::renderScreen(p.runtime);
  EXPECT_EQ(at(screen, 100 + 390, 200 + 290), 0xFFFF0000u);
  EXPECT_EQ(p.runtime.observer(), nullptr);  // the one made for the moment is gone

  const QString file = QDir::temp().filePath("vellumry-qt-shot.png");
  ASSERT_TRUE(presenter::saveShot(p.runtime, nullptr, file));
  QImage back(file);
  EXPECT_EQ(back.size(), QSize(800, 600));
  QFile::remove(file);
  EXPECT_FALSE(presenter::saveShot(p.runtime, nullptr, "/nonexistent-folder/shot.png"));
}

}  // namespace
