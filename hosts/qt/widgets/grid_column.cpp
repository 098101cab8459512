#include "hosts/qt/widgets/grid_column.h"

#include <QHeaderView>
#include <algorithm>

#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr Long kUnboundWidth = 1440;  // twips

}  // namespace

PaneColumn::PaneColumn(GridPane& pane, int position)
    : pane_(pane), position_(position), width_(float(twipsX(wantedPixels(), pane))) {
  show();
}

String PaneColumn::Caption() const { return fromQt(pane_.model().caption(position_)); }

/// A column that has no width of its own has room for its heading.
void PaneColumn::Caption(const String& text) {
  const bool fits = !wasAssigned_ && !wasResized();
  pane_.model().setCaption(position_, toQt(text));
  if (!fits) return;
  width_ = float(twipsX(wantedPixels(), pane_));
  show();
}

float PaneColumn::Width() const {
  return wasResized() ? float(twipsX(header().sectionSize(position_), pane_)) : width_;
}

void PaneColumn::Width(float twips) {
  wasAssigned_ = true;
  width_ = twips;
  show();
}

/// By the operator.
bool PaneColumn::wasResized() const {
  const int now = header().sectionSize(position_);
  return now != 0 && now != pixels();
}

void PaneColumn::Visible(bool visible) {
  visible_ = visible;
  show();
}

QHeaderView& PaneColumn::header() const { return *pane_.view().horizontalHeader(); }

int PaneColumn::pixels() const { return pixelsX(static_cast<Long>(width_), pane_); }

int PaneColumn::wantedPixels() const {
  const int wanted = pane_.fontMetrics().averageCharWidth() * pane_.model().charactersOf(position_);
  const int least = pane_.model().isBound(position_) ? 0 : pixelsX(kUnboundWidth, pane_);
  return std::max({wanted, least, header().sectionSizeHint(position_)});
}

/// A column without width is hidden.
void PaneColumn::show() {
  const bool shows = (visible_ || pane_.dimsHiddenColumns()) && pixels() > 0;
  pane_.model().setDimmed(position_, !visible_);
  header().setSectionHidden(position_, !shows);
  if (shows) header().resizeSection(position_, pixels());
}

}  // namespace tessaria::qt
