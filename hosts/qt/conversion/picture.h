// Pictures of the core as Qt images.
#pragma once

#include <QIcon>
#include <utility>

#include "tessaria/host/application.h"

namespace tessaria::qt {

/// A picture file as loaded by Qt, in all the sizes that it holds.
class Picture final : public host::Picture {
 public:
  explicit Picture(QIcon icon) : icon_(std::move(icon)) {}
  const QIcon& icon() const { return icon_; }

 private:
  QIcon icon_;
};

}  // namespace tessaria::qt
