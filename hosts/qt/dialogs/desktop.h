// The desktop of a Qt program, where the library's windows open.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::qt {

class Desktop final : public host::Desktop {
 public:
  /// The right and the lower edge of the area for windows on the screen with the active window:
  /// positions count from the corner of the first screen.
  Long ScreenWidth() const override;
  Long ScreenHeight() const override;
  Date Today() const override;
  host::DialogPtr MakeDialog(const host::DialogDescription& description) override;
  void Busy(bool busy) override;
  void ClipboardText(const String& text) override;
  String Dir(const String& pattern) const override;
  /// Error 68 if it is not an entry of the list of drives.
  bool DriveReady(const String& drive) const override;
};

}  // namespace tessaria::qt
