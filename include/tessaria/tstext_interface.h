// A control of the library as its siblings and the library's own modules see it.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

/// Kinds of control. Any other number behaves as Normal.
enum class TipoControle : Long {
  Normal = 0,
  Browse = 1,      ///< key field with a lookup grid
  Calendario = 2,  ///< date field with a calendar
  Descricao = 3,   ///< description of its sibling's key
  Diretorio = 4,   ///< path field with a folder picker
  Calculadora = 5  ///< number field with a calculator
};

/// How leaving a field ended.
enum class ExitVerdict {
  Left,      ///< the field is settled, or there was nothing to settle
  Refused,   ///< the text is not valid: the field keeps it and wants the focus back
  NotStored  ///< the value was refused, or an error came before it was stored; the operator has
             ///< been told
};

/// The control as seen from outside. Implemented by `tsText`.
class TESSARIA_CORE_API _tsText {
 public:
  _tsText() = default;
  _tsText(const _tsText&) = delete;
  _tsText& operator=(const _tsText&) = delete;
  virtual ~_tsText() = default;

  /// The typed value.
  virtual Variant Value() const = 0;
  virtual void Value(const Variant& value) = 0;
  /// Assigns `Value`. Returns false when the value was refused; the operator has then been told.
  virtual bool TakeValue(const Variant& value) = 0;
  /// Assigns `Value` without writing the bound field: a row is being shown.
  virtual void ShowValue(const Variant& value) = 0;
  /// Code of the variant type that an unbound value is held in.
  virtual Long TipoDado() const = 0;
  /// Name of the sibling; empty for none.
  virtual String TxtIrmao() const = 0;
  /// Whether the operator can work in the field.
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool enabled) = 0;
  /// Outcome of the last validation; true before the first one.
  virtual bool LastValidaStatus() const = 0;
  /// Looks the description up again and passes it to the sibling. With `ApenasTsBrowse` a key field
  /// leaves its sibling alone; with `DisparaBrowseReturn` the event is raised afterwards.
  virtual Variant AtualizaIrmao(bool ApenasTsBrowse = false, bool DisparaBrowseReturn = false) = 0;
  /// As `AtualizaIrmao`, except that the sibling's bound field is not written: a row is being
  /// shown.
  virtual void ShowSibling(bool ApenasTsBrowse) = 0;
  /// Raises the event of that exact name: "BrowseReturn". Any other text does nothing.
  virtual Variant DisparaEventos(const String& strEvento) = 0;
};

/// The events of a control. Arguments by reference may be changed by the handler.
class TESSARIA_CORE_API tsTextEvents {
 public:
  tsTextEvents() = default;
  tsTextEvents(const tsTextEvents&) = delete;
  tsTextEvents& operator=(const tsTextEvents&) = delete;
  virtual ~tsTextEvents() = default;

  /// The first show at run time is complete.
  virtual void Show() = 0;
  /// The text of the box has changed, by the operator or by the program.
  virtual void Change() = 0;
  /// A key went down in the field. Code 0 swallows it.
  virtual void KeyDown(Integer& KeyCode, Integer& Shift) = 0;
  /// A key gives a character. Code 0 swallows it.
  virtual void KeyPress(Integer& KeyAscii) = 0;
  /// A key was released.
  virtual void KeyUp(Integer& KeyCode, Integer& Shift) = 0;
  /// The field was settled. `LastValue` is the control's own member, which holds the previous
  /// value.
  virtual void BrowseReturn(bool& HouveAlteracao, Variant& LastValue) = 0;
};

}  // namespace tessaria
