// The first show of a field, in the designer and on a running form.
#pragma once

#include "control/definitions.h"
#include "control/discovery.h"
#include "control/looks.h"
#include "control/mask_change.h"

namespace tessaria {

class FirstShow {
 public:
  /// The parts that prepare a field; all of them must outlive this object.
  struct Parts {
    host::ControlSite& Site;
    FieldBox& Box;
    Members& Remembered;
    Definitions& Lookup;
    Surroundings& Around;
    Discovery& Names;
    MaskChange& Mask;
    Looks& Drawing;
    tsTextEvents& Events;
  };
  explicit FirstShow(const Parts& parts) : parts_(parts) {}
  FirstShow(const FirstShow&) = delete;
  FirstShow& operator=(const FirstShow&) = delete;

  /// The first call prepares the field; later calls do nothing. Errors are reported.
  void Run();
  /// Draws the field again with other settings.
  void Redraw();
  /// Why the first show in the designer could not read the database; "" if it could.
  String DesignTimeError() const { return designTimeError_; }

 private:
  void KeepForeColor();
  void ShowAtDesignTime();
  void ShowAtRunTime();
  void FitMaskToField();

  Parts parts_;
  String designTimeError_;
};

}  // namespace tessaria
