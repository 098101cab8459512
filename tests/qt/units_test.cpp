// Twips and pixels, at the density of this screen and at others.
#include "hosts/qt/conversion/units.h"

#include <gtest/gtest.h>

#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// A widget on a screen of another density.
class DenseWidget final : public QWidget {
 public:
  DenseWidget(int x, int y) : x_(x), y_(y) {}

 protected:
  int metric(PaintDeviceMetric what) const override {
    if (what == PdmDpiX) return x_;
    if (what == PdmDpiY) return y_;
    return QWidget::metric(what);
  }

 private:
  int x_;
  int y_;
};

TEST(Units, AnInchHas1440Twips) {
  const struct {
    int dpi;
    int pixels;
    Long twips;
  } cases[] = {{96, 1, 15},  {96, 24, 360},  {96, 21, 315}, {120, 10, 120}, {144, 36, 360},
               {192, 2, 15}, {192, 48, 360}, {96, -4, -60}, {288, 3, 15},   {96, 32767, 491505}};
  for (const auto& row : cases) {
    const DenseWidget widget(row.dpi, row.dpi);
    EXPECT_EQ(twipsX(row.pixels, widget), row.twips) << row.dpi;
    EXPECT_EQ(twipsY(row.pixels, widget), row.twips) << row.dpi;
    EXPECT_EQ(pixelsX(row.twips, widget), row.pixels) << row.dpi;
    EXPECT_EQ(pixelsY(row.twips, widget), row.pixels) << row.dpi;
  }
}

TEST(Units, TheTwoDirectionsHaveTheirOwnDensity) {
  const DenseWidget widget(96, 144);
  EXPECT_EQ(twipsX(10, widget), 150);
  EXPECT_EQ(twipsY(10, widget), 100);
}

TEST(Units, PixelsConvertToTwipsAndBackAtAnyDensity) {
  for (int dpi : {72, 96, 101, 120, 144, 192, 240}) {
    const DenseWidget widget(dpi, dpi);
    for (int pixels = 0; pixels < 400; ++pixels)
      EXPECT_EQ(pixelsX(twipsX(pixels, widget), widget), pixels) << dpi;
  }
}

// These also run at a scale of 2: the logical sizes are the same.
class Geometry : public FieldFixture {};

TEST_F(Geometry, AFieldIsLaidOutInTwipsAtAnyScale) {
  TsText field(window_.get());
  field.setGeometry(0, 0, 200, 10);
  showActive(*window_);
  field.show();
  settleEvents();
  EXPECT_EQ(twipsY(field.height(), field), 315);
  field.setTipoControle(TsText::Calendario);
  EXPECT_EQ(twipsX(field.width() - editOf(field)->width(), field), 360);
}

TEST_F(Geometry, TheScaleIsTheRequestedOne) {
  const double wanted = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();
  EXPECT_DOUBLE_EQ(window_->devicePixelRatioF(), wanted);
}

}  // namespace
}  // namespace tessaria::qt::tests
