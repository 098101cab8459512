// The values that a fuzzer reads from its bytes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tessaria/string.h"
#include "tessaria/text.h"

namespace tessaria::fuzz {

/// Returns the bytes in order, and zeros and empty texts when they are used up.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool IsEmpty() const { return size_ == 0; }
  std::uint8_t Byte() {
    if (IsEmpty()) return 0;
    --size_;
    return *data_++;
  }
  /// Characters of one byte each, at most `limit`: the length comes first.
  String Latin(std::size_t limit) {
    String text;
    for (std::size_t count = Byte() % (limit + 1); count > 0 && !IsEmpty(); --count)
      text += static_cast<char16_t>(Byte());
    return text;
  }
  /// The rest of the bytes, read as UTF-8.
  String Rest() {
    const String text = FromUtf8({reinterpret_cast<const char*>(data_), size_});
    size_ = 0;
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace tessaria::fuzz
