// The calendar's window.
#pragma once

#include "tessaria/host/dialog.h"
#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The date picker of a date field. Created on first use, one per thread; its caller keeps it alive
/// until it returns.
class frmCalendario {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  frmCalendario();
  frmCalendario(const frmCalendario&) = delete;
  frmCalendario& operator=(const frmCalendario&) = delete;
  ~frmCalendario();

  /// Opens with the date of the box, or with today's date, which the box then shows, and returns
  /// the selected date when the window closes, however it closes. `nLi` and `nCi` are the wanted
  /// top and left, in twips; `cTexto` is the box's text without its mask. Error 13 for a text that
  /// is not a date.
  ///
  /// `chosen`, unless null, receives whether the operator chose a day, by a click or by Enter. With
  /// `Comforts::CalendarCancels` the box keeps its text; without it, a selected day that differs
  /// from the one the calendar opened with also counts as chosen.
  Variant ExecutaCalendario(const Variant& nLi, const Variant& nCi, host::TextBox& txtData,
                            const String& cTexto, const String& cMascara,
                            const String& cItensMascara, bool* chosen = nullptr);
  /// Closes the window, also while it is open.
  void Unload();

 private:
  void Leave(bool chosen);

  host::DialogPtr dialog_;
  bool chosen_ = false;
};

}  // namespace tessaria
