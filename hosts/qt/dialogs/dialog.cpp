#include "hosts/qt/dialogs/dialog.h"

#include <QGuiApplication>
#include <utility>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/units.h"
#include "hosts/qt/dialogs/layouts.h"
#include "hosts/qt/dialogs/make_item.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

constexpr Long kAlreadyShown = 400;

}  // namespace

host::DialogPtr Dialog::make(const host::DialogDescription& description) {
  const std::shared_ptr<Dialog> dialog(new Dialog(description));
  dialog->build();
  // The handle is separate from the window, which outlives it inside its modal loop.
  return {dialog.get(), [dialog](host::Dialog*) { dialog->abandon(); }};
}

Dialog::Dialog(const host::DialogDescription& description)
    : description_(description),
      window_(std::make_unique<DialogWindow>(toQt(description.Name), toQt(description.Caption))),
      gate_(*window_),
      keys_(*window_, gate_, *this, [this](const QWidget* widget) { return itemOf(widget); }) {
  window_->sizeChanged = [this] { resized(); };
  window_->cameBack = [this] { gate_.raise(OnActivate); };
  window_->closeByFrame = [this] {
    if (!OnCloseRequest || !gate_.isOpen()) return false;
    gate_.raise(OnCloseRequest);
    return true;
  };
}

/// Widgets may still emit signals while the window is destroyed.
Dialog::~Dialog() {
  gate_.close();
  window_.reset();
}

void Dialog::build() {
  for (const auto& widget : description_.Widgets)
    entries_.push_back({&widget, makeItem(widget, *window_, gate_)});
  layOut(*window_, description_.Name);
}

DialogItem* Dialog::itemOf(const QWidget* widget) const {
  for (const Entry& entry : entries_) {
    const QWidget& face = entry.item->face();
    if (&face == widget || face.isAncestorOf(widget)) return entry.item.get();
  }
  return nullptr;
}

host::DialogWidget& Dialog::Widget(StringView name, Integer index) {
  for (const Entry& entry : entries_)
    if (entry.description->Index == index && EqualNoCase(entry.description->Name, name))
      return entry.item->port();
  throw HostError(errors::ControlNotFound);
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

// A window with the application's own colour returns the system's name for it.
Colour Dialog::BackColor() const {
  const QColor back = window_->palette().color(QPalette::Window);
  return back == QGuiApplication::palette().color(QPalette::Window) ? host::colour::ButtonFace
                                                                    : toColour(back);
}

Long Dialog::hWnd() const { return handleOf(*window_); }

void Dialog::dbForm(host::ConnectionPtr connection) {
  window_->setProperty("dbForm", QVariant::fromValue(connection));
}

// --- Life ---------------------------------------------------------------------------------------

void Dialog::ShowModal() {
  if (window_->isRunning()) throw HostError(kAlreadyShown, u"O formulário já está sendo exibido.");
  const auto alive = shared_from_this();
  for (const Entry& entry : entries_) gate_.enter([&] { entry.item->aboutToShow(); });
  if (!wasShown_ && !width_.holds) window_->widenToHint();
  keys_.watchAll();
  window_->run([this] { shown(); });
}

void Dialog::shown() {
  if (!std::exchange(wasShown_, true)) gate_.raise(OnResize);
  gate_.raise(OnActivate);
}

void Dialog::resized() {
  if (wasShown_ && window_->isVisible()) gate_.raise(OnResize);
}

void Dialog::abandon() {
  gate_.close();
  window_->hide();
}

}  // namespace tessaria::qt
