// Why a row was not stored, in the operator's words.
#pragma once

#include <QString>
#include <exception>

#include "tessaria/string.h"

namespace tessaria::qt {

class SaveFailure {
 public:
  explicit SaveFailure(const std::exception_ptr& error);

  bool isRowChanged() const;
  bool isInDoubt() const;
  /// A clause in small letters, without a full stop. `isLost` says that the connection is closed.
  QString cause(bool isLost) const;
  /// What the database or the program says; empty when the cause says it all.
  QString details() const;

 private:
  bool isOfDatabase() const;

  Long number_;
  QString description_;
};

}  // namespace tessaria::qt
