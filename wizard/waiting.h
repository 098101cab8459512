// Says what the wizard waits for.
#pragma once

#include "services/busy_pointer.h"
#include "wizard/wizard.h"

namespace tessaria::wizard {

/// The busy pointer and a line in the window, during this object's lifetime, in which no box opens.
/// The line stays when the work was not done.
class Waiting {
 public:
  /// `failed` is what the line says afterwards, unless `Done` is called.
  Waiting(const Wizard& wizard, const String& awaited, String failed);
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
  ~Waiting();

  void Done() { afterwards_.clear(); }

 private:
  const BusyPointer busy_;
  const Wizard& wizard_;
  String afterwards_;
};

}  // namespace tessaria::wizard
