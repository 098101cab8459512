#include "hosts/qt/dialogs/surface_items.h"

#include <QGuiApplication>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/dialogs/layouts.h"
#include "hosts/qt/widgets/make_item.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {

SurfaceItems::SurfaceItems(const host::DialogDescription& description, QWidget& face,
                           const host::Surface& surface)
    : face_(face),
      gate_(face),
      keys_(face, gate_, surface, [this](const QWidget* widget) { return itemOf(widget); }),
      focus_(face, gate_, [this](const QWidget* widget) { return itemOf(widget); }) {
  face.setObjectName(toQt(description.Name));
  build(description);
  for (const Entry& entry : entries_) entry.item->previewFor(surface);
}

void SurfaceItems::build(const host::DialogDescription& description) {
  for (const auto& widget : description.Widgets) {
    QWidget* parent = &face_;
    QWidget* container = &face_;
    if (!widget.Container.empty()) {
      DialogItem& around = itemNamed(widget.Container);
      parent = &around.inside(widget.Page);
      container = &around.face();
    }
    entries_.push_back({&widget, makeItem(widget, *parent, *container, gate_)});
  }
  std::vector<LaidWidget> widgets;
  for (const Entry& entry : entries_)
    widgets.push_back({entry.description->Kind, &entry.item->face()});
  layOut(face_, description.Name, widgets);
}

DialogItem& SurfaceItems::itemNamed(StringView name) const {
  for (const Entry& entry : entries_)
    if (EqualNoCase(entry.description->Name, name)) return *entry.item;
  throw HostError(errors::ControlNotFound);
}

/// The innermost one: a frame contains others.
DialogItem* SurfaceItems::itemOf(const QWidget* widget) const {
  for (const QWidget* w = widget; w && w != &face_; w = w->parentWidget())
    for (const Entry& entry : entries_)
      if (&entry.item->face() == w) return entry.item.get();
  return nullptr;
}

host::DialogWidget& SurfaceItems::widget(StringView name, Integer index) const {
  for (const Entry& entry : entries_)
    if (entry.description->Index == index && EqualNoCase(entry.description->Name, name))
      return entry.item->port();
  throw HostError(errors::ControlNotFound);
}

// A surface with the application's own colour returns the system's name for it.
Colour SurfaceItems::backColour() const {
  const QColor back = face_.palette().color(QPalette::Window);
  return back == QGuiApplication::palette().color(QPalette::Window) ? host::colour::ButtonFace
                                                                    : toColour(back);
}

void SurfaceItems::dbForm(const host::ConnectionPtr& connection) {
  face_.setProperty("dbForm", QVariant::fromValue(connection));
}

void SurfaceItems::aboutToShow() {
  for (const Entry& entry : entries_) gate_.enter([&] { entry.item->aboutToShow(); });
}

void SurfaceItems::close() {
  gate_.close();
  for (const Entry& entry : entries_) entry.item->silence();
}

}  // namespace tessaria::qt
