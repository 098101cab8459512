#include "services/dialog_placement.h"

#include <cmath>

#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

constexpr double kStep = 10;
constexpr double kLowerMargin = 450;
constexpr double kRightMargin = 150;

/// The position after as many steps back as are needed to end before `limit`.
Long SteppedBack(double place, double room, double limit) {
  const double excess = place + room - limit;
  const double steps = excess > 0 ? std::ceil(excess / kStep) : 0;
  return static_cast<Long>(std::lround(place - steps * kStep));
}

}  // namespace

void PlaceOnScreen(host::Dialog& dialog, float top, float left) {
  dialog.Top(SteppedBack(top, dialog.Height() + kLowerMargin, TheDesktop().ScreenHeight()));
  dialog.Left(SteppedBack(left, dialog.Width() + kRightMargin, TheDesktop().ScreenWidth()));
}

}  // namespace tessaria
