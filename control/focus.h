// Entering and leaving a field: the box shows an editable text inside, the formatted one outside.
#pragma once

#include "control/pair.h"
#include "control/validation.h"
#include "control/value.h"

namespace tessaria {

class Focus {
 public:
  /// What the focus works on; all of it must outlive this object.
  struct Parts {
    host::ControlSite& Site;
    FieldBox& Box;
    Members& Remembered;
    Validation& Rules;
    ValueAssignment& Value;
    Pair& Siblings;
    tsTextEvents& Events;
  };
  explicit Focus(const Parts& parts) : parts_(parts) {}
  Focus(const Focus&) = delete;
  Focus& operator=(const Focus&) = delete;

  /// Both report errors.
  void Enter();
  /// Settles the field and returns how that ended.
  ExitVerdict Exit();
  /// Whether leaving the field now would settle anything.
  bool HasToSettle() const;

 private:
  void ShowEditable();
  void Settle(ExitVerdict& verdict);
  Validation::Verdict CheckText();
  void FillZeros();
  bool AssignTyped();
  void ReportChange();
  bool Enabled() const { return parts_.Box.Widget().Enabled(); }

  Parts parts_;
  ExitVerdict lastExit_ = ExitVerdict::Left;
};

}  // namespace tessaria
