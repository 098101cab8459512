#include "hosts/sql/session/dbms_version.h"

#include <vector>

#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// The leading numbers between points; anything else ends the text.
std::vector<int> NumbersOf(StringView text) {
  std::vector<int> numbers;
  bool open = false;
  for (const char16_t c : text) {
    if (c >= u'0' && c <= u'9') {
      if (!open) numbers.push_back(0);
      open = true;
      numbers.back() = numbers.back() * 10 + (c - u'0');
    } else if (c == u'.' && open) {
      open = false;
    } else {
      break;
    }
  }
  return numbers;
}

}  // namespace

String PostgreSqlVersion(StringView reported) {
  std::vector<int> numbers = NumbersOf(reported);
  if (numbers.size() == 2 && numbers[0] >= 10) numbers.insert(numbers.begin() + 1, 0);
  numbers.resize(3);
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : ".") + std::to_string(number);
  return u"PostgreSQL " + FromUtf8(text);
}

}  // namespace tessaria::sql
