// How a session that was lost comes to be opened again.
#pragma once

#include "tessaria/string.h"

namespace tessaria::sql {

/// Of one session: what it was opened with, and of which action of the operator the loss was.
class Reconnection {
 public:
  /// The program has opened the session, or closed it.
  void Opened(String connectionString, Long timeout);
  void Closed() noexcept { isWanted_ = false; }
  /// A call has found the link lost.
  void NoteLoss() noexcept;

  /// Whether the program has the session open.
  bool IsWanted() const noexcept { return isWanted_; }
  /// The same, and somebody can be asked.
  bool IsPossible() const noexcept;
  /// Whether the operator's present action may ask: once, and not in the action that has met the
  /// loss. Counts as asked then.
  bool TakeTurn();
  const String& ConnectionString() const { return text_; }
  Long Timeout() const { return timeout_; }

 private:
  String text_;
  Long timeout_ = 0;
  bool isWanted_ = false;
  Long doneIn_ = 0;  // the action in which the loss was met, or in which it was asked last
};

}  // namespace tessaria::sql
