#include "hosts/qt/widgets/grid_column.h"

#include <QHeaderView>

#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

PaneColumn::PaneColumn(GridPane& pane, int position)
    : pane_(pane),
      position_(position),
      isNew_(pane.model().caption(position).isEmpty()),
      width_(isNew_ ? NewWidth : float(twipsX(wantedPixels(), pane))) {
  show();
}

String PaneColumn::Caption() const { return fromQt(pane_.model().caption(position_)); }

void PaneColumn::Caption(const String& text) {
  pane_.model().setCaption(position_, toQt(text));
  if (isNew_ && !text.empty()) makeRoomForCaption();
}

void PaneColumn::makeRoomForCaption() {
  isNew_ = false;
  const int wanted = header().sectionSizeHint(position_);
  if (wanted <= header().sectionSize(position_)) return;
  width_ = float(twipsX(wanted, pane_));
  show();
}

float PaneColumn::Width() const {
  const int now = header().sectionSize(position_);
  return now == 0 || now == pixels() ? width_ : float(twipsX(now, pane_));
}

void PaneColumn::Width(float twips) {
  isNew_ = false;
  width_ = twips;
  show();
}

void PaneColumn::Visible(bool visible) {
  visible_ = visible;
  show();
}

QHeaderView& PaneColumn::header() const { return *pane_.view().horizontalHeader(); }

int PaneColumn::pixels() const { return pixelsX(static_cast<Long>(width_), pane_); }

int PaneColumn::wantedPixels() const {
  return pane_.fontMetrics().averageCharWidth() * pane_.model().charactersOf(position_);
}

/// A column without width is hidden.
void PaneColumn::show() {
  pane_.model().setDimmed(position_, !visible_);
  const bool shows = (visible_ || pane_.dimsHidden()) && pixels() > 0;
  header().setSectionHidden(position_, !shows);
  if (shows) header().resizeSection(position_, pixels());
}

}  // namespace tessaria::qt
