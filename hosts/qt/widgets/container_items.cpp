#include "hosts/qt/widgets/container_items.h"

#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

String FrameItem::Caption() const { return fromQt(box_.title()); }
void FrameItem::Caption(const String& text) { box_.setTitle(toQt(text)); }

TabsItem::TabsItem(TabStrip& strip, const DialogGate& gate, std::span<const StringView> captions)
    : DialogItemOf(strip, gate), strip_(strip) {
  for (const StringView caption : captions) strip.addTab(new QWidget, toQt(caption));
  strip.chosen = [this](int previous) { raiseClick(OnClick, previous); };
}

int TabsItem::existing(Long page) const {
  if (page < 0 || page >= Tabs()) throw HostError(errors::InvalidPropertyValue);
  return page;
}

String TabsItem::TabCaption(Long page) const { return fromQt(strip_.tabText(existing(page))); }

void TabsItem::TabEnabled(Long page, bool enabled) {
  strip_.bar().setOpen(existing(page), enabled);
}

}  // namespace tessaria::qt
