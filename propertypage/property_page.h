// The property page of a field: its settings, its lookup and its searches, edited at design time.
#pragma once

#include <memory>

#include "propertypage/browse_tab.h"
#include "propertypage/page.h"
#include "propertypage/searches_tab.h"
#include "propertypage/wizard_hand_over.h"
#include "tessaria/export.h"

namespace tessaria {

class tsText;

/// A page inside a frame of the hosting program. One instance for each time the page is opened; it
/// edits the last of the selected controls. Errors that are not told go to the frame, which shows
/// them: the page stays usable.
class TESSARIA_CORE_API tsTextProperty {
 public:
  /// What the page is made of; its caption is that of the frame.
  static const host::DialogDescription& Description();

  /// `surface` was made from the description. `site` outlives the page.
  tsTextProperty(host::SurfacePtr surface, host::PropertyPageSite& site);
  tsTextProperty(const tsTextProperty&) = delete;
  tsTextProperty& operator=(const tsTextProperty&) = delete;

  /// Takes over what the control holds. `Changed` is false afterwards.
  void PropertyPage_SelectionChanged();
  /// Writes the page to the control.
  void PropertyPage_ApplyChanges();

 private:
  enum class Mode { Todos, TxtIrmao };

  void Connect();
  void TakeFirst();
  void TakeNames();
  void CarregaListas(Mode mode);
  void AddToLists(const host::Widget& control);
  void TypeClicked();
  void TabClicked(Long previous);
  void CopiaIrmao();
  Long ChosenType() const;
  std::shared_ptr<host::TsTextWidget> Control() const;

  host::SurfacePtr surface_;
  propertypage::Page page_;
  propertypage::BrowseTab browseTab_;
  propertypage::SearchesTab searchesTab_;
  propertypage::WizardHandOver wizardHandOver_;
  host::FormPtr objForm;
  std::shared_ptr<host::TsTextWidget> objIrmao;
  bool bCarregado = false;
};

}  // namespace tessaria
