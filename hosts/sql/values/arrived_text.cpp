#include "hosts/sql/values/arrived_text.h"

#include <algorithm>

#include "hosts/sql/values/calendar.h"
#include "hosts/sql/values/money.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr std::size_t kDayCharacters = 10;

void AppendMoney(ColumnStore& store, std::size_t column, StringView text) {
  const auto money = MoneyFromText(text);
  money ? store.AppendFixed(column, *money) : store.AppendKept(column, PlainMoneyText(text));
}

void AppendDay(ColumnStore& store, std::size_t column, StringView text) {
  const auto day = DayOfText(text);
  day ? store.AppendFixed(column, *day) : store.AppendKept(column, text);
}

// yyyy-mm-dd[ hh:mm:ss[.f]]
void AppendMoment(ColumnStore& store, std::size_t column, StringView text) {
  const auto day = DayOfText(text.substr(0, kDayCharacters));
  const auto micros = MicrosOfTime(text.substr(std::min(kDayCharacters + 1, text.size())));
  if (day && micros) {
    store.AppendFixed(column, *day * kMicrosPerDay + *micros);
  } else {
    store.AppendKept(column, text);
  }
}

void AppendTime(ColumnStore& store, std::size_t column, StringView text) {
  const auto micros = MicrosOfTime(text);
  micros ? store.AppendFixed(column, *micros) : store.AppendKept(column, text);
}

StringView WithoutPadding(StringView text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

}  // namespace

void AppendArrived(ColumnStore& store, std::size_t column, const ArrivingForm& form,
                   StringView text) {
  switch (form.storage) {
    case Storage::Money:
      return AppendMoney(store, column, text);
    case Storage::Day:
      return AppendDay(store, column, text);
    case Storage::Moment:
      return AppendMoment(store, column, text);
    case Storage::TimeOfDay:
      return AppendTime(store, column, text);
    default:
      if (form.lowerCase) return store.AppendText(column, LCase(text));
      return store.AppendText(column, form.padded ? WithoutPadding(text) : text);
  }
}

}  // namespace tessaria::sql
