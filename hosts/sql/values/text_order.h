// How texts are compared when rows are sorted and searched: without regard to case.
#pragma once

#include "tessaria/string.h"

namespace tessaria::sql {

/// Lower case without accents: "São" and "SAO" give the same key.
String BaseKey(StringView text);

/// Below 0, 0 or above 0. Base letters decide first, then accents; case never does.
int CompareText(StringView a, StringView b);

/// A pattern of `like`: "*" or "%" at either end stand for any text; without regard to case.
class LikePattern {
 public:
  explicit LikePattern(StringView pattern);

  bool Matches(StringView text) const;
  /// How every text that matches begins, in lower case.
  String Start() const { return openStart_ ? String() : part_; }

 private:
  String part_;  // in lower case
  bool openStart_ = false;
  bool openEnd_ = false;
};

}  // namespace tessaria::sql
