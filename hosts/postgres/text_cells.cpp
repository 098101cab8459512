#include "hosts/postgres/text_cells.h"

#include <charconv>
#include <string>

#include "hosts/postgres/pg_types.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

using sql::ColumnStore;
using sql::Storage;

template <class T>
void AppendParsed(ColumnStore& store, std::size_t column, std::string_view text) {
  T value{};
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isRead = end.ec == std::errc() && end.ptr == text.data() + text.size();
  isRead ? store.AppendFixed(column, value) : store.AppendKept(column, FromUtf8(text));
}

// "2020-02-29 13:14:15.5-03 BC" without "-03".
std::string WithoutZone(std::string_view text) {
  const std::size_t time = text.find(' ');
  const std::size_t zone = time == text.npos ? text.npos : text.find_first_of("+-", time);
  if (zone == text.npos) return std::string(text);
  const std::size_t end = text.find(' ', zone);
  return std::string(text.substr(0, zone)) +
         std::string(end == text.npos ? std::string_view() : text.substr(end));
}

void AppendText(ColumnStore& store, std::size_t column, bool padded, Oid type,
                std::string_view text) {
  constexpr std::string_view kHexSign = "\\x";
  if (type == kByteaType && text.starts_with(kHexSign)) text.remove_prefix(kHexSign.size());
  padded ? AppendPadded(store, column, text) : store.AppendUtf8(column, text);
}

}  // namespace

void AppendTextCell(ColumnStore& store, std::size_t column, const sql::ArrivingForm& form, Oid type,
                    std::string_view text) {
  switch (form.storage) {
    case Storage::Int16:
      return AppendParsed<std::int16_t>(store, column, text);
    case Storage::Int32:
      return AppendParsed<std::int32_t>(store, column, text);
    case Storage::Int64:
      return AppendParsed<std::int64_t>(store, column, text);
    case Storage::Single:
      return AppendParsed<float>(store, column, text);
    case Storage::Double:
      return AppendParsed<double>(store, column, text);
    case Storage::Boolean:
      return store.AppendFixed(column, static_cast<std::uint8_t>(text == "t" ? 1 : 0));
    case Storage::Number:
      return store.AppendUtf8(column, text);
    case Storage::Text:
      return AppendText(store, column, form.padded, type, text);
    case Storage::Moment:
      return sql::AppendArrived(store, column, form, FromUtf8(WithoutZone(text)));
    case Storage::Money:
    case Storage::Day:
    case Storage::TimeOfDay:
      return sql::AppendArrived(store, column, form, FromUtf8(text));
  }
}

}  // namespace tessaria::postgres
