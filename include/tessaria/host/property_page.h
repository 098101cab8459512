// What a property page asks of the program that shows it at design time.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/host/form.h"

namespace tessaria::host {

/// The controls that the page edits, and the flag that enables the frame's apply button. Owned by
/// the frame around the page; outlives it.
class TESSARIA_CORE_API PropertyPageSite {
 public:
  PropertyPageSite() = default;
  PropertyPageSite(const PropertyPageSite&) = delete;
  PropertyPageSite& operator=(const PropertyPageSite&) = delete;
  virtual ~PropertyPageSite() = default;

  virtual Long SelectedCount() const = 0;
  /// By position from 0, the one that the operator has clicked last of all. Error 9 outside them.
  virtual std::shared_ptr<TsTextWidget> Selected(Long position) const = 0;
  virtual bool Changed() const = 0;
  virtual void Changed(bool changed) = 0;
};

}  // namespace tessaria::host
