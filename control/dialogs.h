// The button, which opens the dialogs of a field.
#pragma once

#include <memory>
#include <optional>

#include "browse/lookup_run.h"
#include "control/definitions.h"
#include "control/surroundings.h"
#include "control/value.h"

namespace tessaria {

class frmCalculadora;

class Dialogs {
 public:
  /// What the dialogs work on; all of it must outlive this object.
  struct Parts {
    host::ControlSite& Site;
    FieldBox& Box;
    Members& Remembered;
    Definitions& Lookup;
    Surroundings& Around;
    ValueAssignment& Value;
    tsTextEvents& Events;
  };
  explicit Dialogs(const Parts& parts)
      : parts_(parts), box_(parts.Box), m_(parts.Remembered), value_(parts.Value) {}
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  /// The button's click: opens the dialog of the field's kind and takes its answer. Errors are
  /// reported.
  void Open();
  /// Opens the calculator from the keyboard: its answer is taken unchecked.
  void OpenCalculator();
  /// Closes the dialogs that the controls of this thread share. Errors are ignored.
  static void CloseShared();

 private:
  struct Place {
    float Top;
    float Left;
  };
  /// An answer, and whether it is just the field's own value.
  struct Calculated {
    Variant Answer;
    bool IsOwn;
  };
  /// What the field and its row hold before an answer that may be undone.
  struct Held {
    Variant Value;
    std::optional<Variant> Stored;  ///< empty if there is no row
    FieldBox::What Shows;
  };

  Place PlaceBelow() const;
  void Pick(const Place& place);
  void PickFromList(const Place& place);
  String RunList(const Place& place, mdlObjTxt::ListEnd& end);
  std::shared_ptr<Pesquisa> Searches() const;
  void TakeFromList(mdlObjTxt::ListEnd end, const String& key);
  bool ExpandForList(String& where) const;
  void PickDate(const Place& place);
  void PickPath(const Place& place);
  void Assign(const Variant& v) { value_.Assign(v, AssignMode::Write); }
  void TakeAnswer(const Variant& answer, bool isOwn);
  Calculated Calculate(frmCalculadora& calculator, const Place& place);
  void CalculateChecked(const Place& place);
  bool CalculationFits();
  Held Holds() const;
  void GiveBack(const Held& before);

  Parts parts_;
  FieldBox& box_;
  Members& m_;
  ValueAssignment& value_;
};

}  // namespace tessaria
