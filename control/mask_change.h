// A new mask, or a new fill character, for a field that already shows a text.
#pragma once

#include "control/value.h"

namespace tessaria {

class MaskChange {
 public:
  /// All of them must outlive this object.
  MaskChange(host::ControlSite& site, FieldBox& box, MaskSettings& mask, ValueAssignment& value)
      : site_(site), box_(box), mask_(mask), value_(value) {}
  MaskChange(const MaskChange&) = delete;
  MaskChange& operator=(const MaskChange&) = delete;

  /// At run time the box is laid out again. Removing the mask of a blank text sets the value to
  /// Null.
  void Mascara(const String& v);
  void PromptChar(const String& v);
  /// Dates and amounts keep the literals of their masks in the value.
  void TipoControle(FieldKind& kind, tessaria::TipoControle v);
  void ItensMascara(const String& v);

 private:
  host::ControlSite& site_;
  FieldBox& box_;
  MaskSettings& mask_;
  ValueAssignment& value_;
};

}  // namespace tessaria
