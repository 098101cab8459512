// Long texts in a field: a key takes about as long as in a plain line edit, and causes no box.
#include <QElapsedTimer>
#include <QTest>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

constexpr int kKeys = 4;
// Laying out the text dominates both; the additional time must not be a multiple of it.
constexpr double kMostTimes = 3;
constexpr double kLeast = 20;  // milliseconds per key, too short to be noticed

/// TESSARIA_LONG_TEXT sets another size: with 10000 a key takes seconds in either.
int kilobytes() {
  const char* asked = std::getenv("TESSARIA_LONG_TEXT");
  return asked ? std::atoi(asked) : 100;
}

/// Milliseconds that a key takes at the end of the text, without the first, which lays out the
/// text.
double millisecondsAKey(QWidget& window, QLineEdit& edit, const QString& text) {
  edit.setFocus();
  settleEvents();
  edit.setText(text);
  edit.setCursorPosition(int(text.size()));
  type(window, QStringLiteral("a"));
  settleEvents();
  QElapsedTimer clock;
  clock.start();
  for (int i = 0; i < kKeys; ++i) {
    type(window, QStringLiteral("b"));
    settleEvents();
  }
  return double(clock.nsecsElapsed()) / 1e6 / kKeys;
}

class LongText : public FieldFixture {
 protected:
  LongText() {
    plain_ = new QLineEdit(window_.get());
    plain_->setMaxLength(std::numeric_limits<int>::max());
    window_->layout()->addWidget(plain_);
  }
  QLineEdit* plain_;
};

TEST_F(LongText, AKeyTakesAsLongAsInALineEdit) {
  show();
  const QString text(kilobytes() * 1000, QLatin1Char('x'));
  const double plain = millisecondsAKey(*window_, *plain_, text);
  plain_->clear();
  const double ours = millisecondsAKey(*window_, box(), text);
  std::printf("%d kB: %.1f ms a key in a line edit, %.1f ms in a field, ratio %.2f\n", kilobytes(),
              plain, ours, ours / plain);
  EXPECT_LT(ours, kMostTimes * plain + kLeast);
  EXPECT_EQ(box().text().size(), text.size() + kKeys + 1);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

}  // namespace
}  // namespace tessaria::qt::tests
