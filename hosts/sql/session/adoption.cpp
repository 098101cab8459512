#include "hosts/sql/session/adoption.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

#include "tessaria/text.h"
#include "tessaria/utf8.h"

namespace tessaria::sql {
namespace {

struct SettingRule {
  StringView name;
  StringView value;  // empty: a bound in milliseconds
};

// Bounds first. Notices of our statements would reach the program's own handler on another thread;
// the others make cells arrive in the form that is read.
constexpr SettingRule kRules[] = {{u"statement_timeout", {}},         {u"lock_timeout", {}},
                                  {u"client_min_messages", u"error"}, {u"datestyle", u"ISO"},
                                  {u"extra_float_digits", u"3"},      {u"bytea_output", u"hex"}};

String Milliseconds(Long seconds) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return FromUtf8(std::to_string(std::min(std::int64_t{seconds} * 1000, kMost)));
}

String Assignment(StringView name, StringView value) {
  return u"SET LOCAL " + String(name) + u" = '" + Replace(value, u"'", u"''") + u"'; ";
}

}  // namespace

// Inside a transaction its own start is before that of the statement. Not a SELECT, for which the
// driver may be set to declare a cursor.
String Adoption::Question() {
  String text =
      u"VALUES (CAST(extract(epoch FROM now()) AS text), "
      u"CASE WHEN now() <> statement_timestamp() THEN '1' ELSE '0' END, CAST(pg_backend_pid() AS "
      u"text)";
  for (const SettingRule& rule : kRules) text += u", current_setting('" + String(rule.name) + u"')";
  return text + u")";
}

bool Adoption::Learn(const TextRow& answer, bool isOpen) {
  const auto text = [&](std::size_t i) {
    return i < answer.size() ? answer[i].value_or(String()) : String();
  };
  began_ = isOpen || text(1) == u"1" ? text(0) : String();
  settings_.clear();
  for (std::size_t i = 3; i < answer.size(); ++i) settings_.push_back(text(i));
  if (process_.empty()) process_ = text(2);
  return process_ == text(2);
}

StringView Adoption::MarkOwn() { return u"; SAVEPOINT tessaria_transaction"; }

StringView Adoption::UndoOwn() { return u"ROLLBACK TO SAVEPOINT tessaria_transaction; ROLLBACK"; }

String Adoption::Settings(Long command, Long lock) {
  const String bounds[] = {Milliseconds(command), Milliseconds(lock)};
  String text;
  std::size_t bound = 0;
  for (const SettingRule& rule : kRules)
    text += Assignment(rule.name, rule.value.empty() ? StringView(bounds[bound++]) : rule.value);
  return text;
}

int Adoption::SettingCount() { return static_cast<int>(std::size(kRules)); }

String Adoption::Enter(Long command, Long lock) {
  return u"SAVEPOINT tessaria_statement; " + Settings(command, lock);
}

// The release comes first, because the ODBC driver leaves a text alone that begins with it.
String Adoption::Leave() const {
  String text = u"RELEASE SAVEPOINT tessaria_statement; ";
  for (std::size_t i = 0; i < settings_.size(); ++i)
    text += Assignment(kRules[i].name, settings_[i]);
  return text;
}

String Adoption::Undo() {
  return u"ROLLBACK TO SAVEPOINT tessaria_statement; RELEASE SAVEPOINT tessaria_statement";
}

StringView Adoption::Lead() { return u"SAVEPOINT tessaria_driver; "; }

}  // namespace tessaria::sql
