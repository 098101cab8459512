// The names that a field may refer to.
#pragma once

#include "control/members.h"
#include "tessaria/host/control.h"

namespace tessaria {

/// Assigns names of other widgets; a message box tells the programmer about a refused name.
class Naming {
 public:
  /// Both must outlive this object.
  Naming(host::ControlSite& site, FormTies& ties) : site_(site), ties_(ties) {}
  Naming(const Naming&) = delete;
  Naming& operator=(const Naming&) = delete;

  /// Any name but the field's own.
  void TxtIrmao(const String& v);
  /// The same, at design time only.
  void LabelAssociado(const String& v);

 private:
  bool IsOwnName(const String& v) const;

  host::ControlSite& site_;
  FormTies& ties_;
};

}  // namespace tessaria
