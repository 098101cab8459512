// The control: a text box that knows what it holds.
#pragma once

#include <memory>

#include "lookup/browse_definition.h"
#include "lookup/pesquisa_definition.h"
#include "mask/masked_field.h"
#include "tessaria/host/control.h"
#include "tessaria/tstext_interface.h"

namespace tessaria {

/// A data-entry field: text box and button on one surface.
///
/// A host creates one with the widgets of the surface, then calls the `UserControl_...` entry
/// points as the surface's events come in: Initialize (the constructor), InitProperties for a
/// new control or ReadProperties for a stored one, Show at each first appearance, EnterFocus
/// and ExitFocus around the whole surface, the surface's key events, Resize, Terminate at the
/// end. The events of the two widgets are connected by the constructor.
///
/// Property setters raise in the caller what goes wrong in them; the entry points report
/// their errors themselves, except where a declaration says otherwise.
class tsText final : public _tsText, private MaskedField {
 public:
  /// All four outlive the control.
  tsText(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
         tsTextEvents& events);
  ~tsText() override;

  // --- What the surface's host calls -------------------------------------------------------
  void UserControl_InitProperties();
  void UserControl_ReadProperties(const host::PropertyBag& bag);
  void UserControl_WriteProperties(host::PropertyBag& bag);
  void UserControl_Show();
  void UserControl_Resize();
  void UserControl_EnterFocus();
  void UserControl_ExitFocus();
  /// These three pass the key on to the application; errors of its handlers surface here.
  void UserControl_KeyDown(Integer& KeyCode, Integer& Shift);
  void UserControl_KeyPress(Integer& KeyAscii);
  void UserControl_KeyUp(Integer& KeyCode, Integer& Shift);
  void UserControl_Terminate();

  // --- Methods -------------------------------------------------------------------------------
  /// Resolves all names anew and loads the current row. The result is always Empty.
  Variant Refresh();
  /// Whether the field may be left; see docs/validation. Shows its own messages.
  bool Valida();
  /// The relation check alone: no message for a missing row, no focus work.
  bool AcionaChecaRelacao();
  Variant AtualizaIrmao(bool ApenasTsBrowse = false, bool DisparaBrowseReturn = false) override;
  Variant DisparaEventos(const String& strEvento) override;
  void ClearLastValue();
};

}  // namespace tessaria
