// Frames and tab strips of surfaces.
#pragma once

#include <QGroupBox>
#include <span>

#include "hosts/qt/widgets/dialog_item.h"
#include "hosts/qt/widgets/tab_strip.h"

namespace tessaria::qt {

class FrameItem final : public DialogItemOf<host::DialogFrame> {
 public:
  FrameItem(QGroupBox& box, const DialogGate& gate) : DialogItemOf(box, gate), box_(box) {}

  String Caption() const override;
  void Caption(const String& text) override;
  QWidget& inside(Integer) override { return box_; }

 private:
  QGroupBox& box_;
};

class TabsItem final : public DialogItemOf<host::DialogTabs> {
 public:
  TabsItem(TabStrip& strip, const DialogGate& gate, std::span<const StringView> captions);

  Long Tabs() const override { return strip_.count(); }
  String TabCaption(Long page) const override;
  Long Tab() const override { return strip_.currentIndex(); }
  void Tab(Long page) override { strip_.bringToFront(existing(page)); }
  bool TabEnabled(Long page) const override { return strip_.bar().isOpen(existing(page)); }
  void TabEnabled(Long page, bool enabled) override;
  QWidget& inside(Integer page) override { return *strip_.widget(existing(page)); }

 private:
  int existing(Long page) const;

  TabStrip& strip_;
};

}  // namespace tessaria::qt
