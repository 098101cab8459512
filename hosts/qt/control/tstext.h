// The private parts of TsText.
#pragma once

#include "hosts/qt/control/browse_button.h"
#include "hosts/qt/control/control_site.h"
#include "hosts/qt/keys/text_box.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qt/variants.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {

/// Emits the control's events as signals.
class TsText::Events final : public tsTextEvents {
 public:
  explicit Events(TsText& surface) : surface_(&surface) {}

  void Show() override;
  void Change() override;
  void KeyDown(Integer& KeyCode, Integer& Shift) override;
  void KeyPress(Integer& KeyAscii) override;
  void KeyUp(Integer& KeyCode, Integer& Shift) override;
  void BrowseReturn(bool& HouveAlteracao, Variant& LastValue) override;

 private:
  template <class Emit>
  void tell(Emit&& emitter);
  QPointer<TsText> surface_;
};

/// A child of the surface.
TextEdit* newEdit(TsText& surface, bool severalLines);

/// The properties that the program is told of, as it knows them.
struct Announced {
  QVariant value;
  QString texto;
  bool enabled = true;
  bool isValid = true;
};

/// The widgets are children of the surface; the rest outlives it while the core is running.
struct TsText::Parts {
  explicit Parts(TsText& surface)
      : edit(newEdit(surface, false)),
        browseButton(new BrowseButton(&surface)),
        box(*edit),
        button(*browseButton),
        site(surface, {[&surface] { return surface.designMode(); },
                       [&surface](const QString& name) {
                         surface.watchChanges();
                         emit surface.propertyChanged(name);
                       }}),
        events(surface),
        control(site, box, button, events) {}

  TextEdit* edit;
  BrowseButton* const browseButton;
  TextBox box;
  CommandButton button;
  ControlSite site;
  Events events;
  tsText control;
  Announced announced;
  QString placeholder;
  bool hasSeveralLines = false;  ///< `multiLineText`, whether it has an effect or not
  bool isLeftByTab = false;      ///< the editor of a cell is being left

  QWidget& face() const { return edit->widget(); }
};

template <class Get>
auto TsText::read(Get&& get) const {
  decltype(get(parts_->control)) result{};
  guarded(this, [&] { result = get(parts_->control); });
  return result;
}

template <class Set>
void TsText::write(Set&& set) {
  guarded(this, [&] {
    watchChanges();
    set(parts_->control);
  });
}

}  // namespace tessaria::qt
