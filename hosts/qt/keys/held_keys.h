// The keys that an edit has received and whose release it awaits.
#pragma once

#include <QHash>
#include <QKeyEvent>

#include "hosts/qt/keys/edit_events.h"

namespace tessaria::qt {

/// A key keeps the code of its first press until it is released, whatever the modifiers do.
class HeldKeys {
 public:
  /// Whether this is the repetition of a key that was pressed here.
  bool isRepetition(const QKeyEvent& press) const;
  /// Notes a press and returns its code.
  Integer press(const QKeyEvent& press);

  struct Release {
    Integer code;
    PressedIn where;
  };
  Release release(const QKeyEvent& release);
  void clear() { held_.clear(); }

 private:
  QHash<quint64, Integer> held_;
};

}  // namespace tessaria::qt
