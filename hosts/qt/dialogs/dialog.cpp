#include "hosts/qt/dialogs/dialog.h"

#include <utility>

#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr Long kAlreadyShown = 400;

}  // namespace

host::DialogPtr Dialog::make(const host::DialogDescription& description) {
  const std::shared_ptr<Dialog> dialog(new Dialog(description));
  // The handle is separate from the window, which outlives it inside its modal loop.
  return {dialog.get(), [dialog](host::Dialog*) { dialog->abandon(); }};
}

Dialog::Dialog(const host::DialogDescription& description)
    : window_(std::make_unique<DialogWindow>(toQt(description.Caption))),
      items_(std::make_unique<SurfaceItems>(description, *window_, *this)) {
  window_->sizeChanged = [this] { resized(); };
  window_->cameBack = [this] { items_->gate().raise(OnActivate); };
  window_->closeByFrame = [this] {
    if (!OnCloseRequest || !items_->gate().isOpen()) return false;
    items_->gate().raise(OnCloseRequest);
    return true;
  };
}

Dialog::~Dialog() {
  items_->close();
  window_.reset();
}

// --- Properties ---------------------------------------------------------------------------------

String Dialog::Caption() const { return fromQt(window_->windowTitle()); }
void Dialog::Caption(const String& text) { window_->setWindowTitle(toQt(text)); }

Long Dialog::Left() const { return left_.value(window_->x(), twipsX(window_->x(), *window_)); }

void Dialog::Left(Long twips) {
  left_ = {twips, pixelsX(twips, *window_), true};
  window_->move(left_.pixel, window_->y());
}

Long Dialog::Top() const { return top_.value(window_->y(), twipsY(window_->y(), *window_)); }

void Dialog::Top(Long twips) {
  top_ = {twips, pixelsY(twips, *window_), true};
  window_->move(window_->x(), top_.pixel);
}

Long Dialog::Width() const {
  return width_.value(window_->width(), twipsX(window_->width(), *window_));
}

void Dialog::Width(Long twips) {
  width_ = {twips, pixelsX(twips, *window_), true};
  window_->resize(width_.pixel, window_->height());
}

Long Dialog::Height() const {
  return height_.value(window_->height(), twipsY(window_->height(), *window_));
}

void Dialog::Height(Long twips) {
  height_ = {twips, pixelsY(twips, *window_), true};
  window_->resize(window_->width(), height_.pixel);
}

// --- Life ---------------------------------------------------------------------------------------

void Dialog::ShowModal() {
  if (window_->isRunning()) throw HostError(kAlreadyShown, u"O formulário já está sendo exibido.");
  const auto alive = shared_from_this();
  items_->aboutToShow();
  if (!wasShown_ && !width_.holds) window_->widenToHint();
  window_->run([this] { shown(); });
}

void Dialog::shown() {
  if (!std::exchange(wasShown_, true)) items_->gate().raise(OnResize);
  items_->gate().raise(OnActivate);
}

void Dialog::resized() {
  if (wasShown_ && window_->isVisible()) items_->gate().raise(OnResize);
}

void Dialog::abandon() {
  items_->close();
  window_->hide();
}

}  // namespace tessaria::qt
