// Values of each type come back as they were written.
#include <tessaria/conversion.h>
#include <tessaria/error.h>
#include <tessaria/utf8.h>

#include "apps/check-server/guarantee.h"

namespace tessaria::check {
namespace {

// Writes the value into a column of the type, and compares what another session reads.
Finding ComesBack(Subject& subject, const char16_t* table, const String& type, const Variant& value,
                  const String& expected) {
  try {
    subject.Create(table, (u"k int primary key, v " + type).c_str());
  } catch (const HostError& error) {
    return CannotTell("the server has no such type: " + TextOf(error));
  }
  const String statement = u"select k, v from " + subject.Table(table);
  const auto rows = Subject::Edit(subject.One(), statement);
  rows->AddNew();
  rows->Fields().Item(u"k")->Value(Long{1});
  rows->Fields().Item(u"v")->Value(value);
  rows->Update();
  const Variant stored = subject.Other().Execute(statement)->Fields().Item(u"v")->Value();
  const String text = stored.IsNull() ? String(u"Null") : CStr(stored);
  return KeptIf(text == expected, "'" + ToUtf8(text) + "' instead of '" + ToUtf8(expected) + "'");
}

Finding Text(Subject& subject) {
  const String value = u"A\u00e7\u00e3o 'x' \"y\" \\ ? { \u6f22\u5b57 \U0001F600  ";
  return ComesBack(subject, u"texts", u"varchar(60)", value, value);
}

Finding LongText(Subject& subject) {
  const String value(20000, u'\u00e7');
  return ComesBack(subject, u"long_texts", u"text", value, value);
}

Finding Padding(Subject& subject) {
  return ComesBack(subject, u"padded", u"char(10)", u"ab", u"ab");
}

Finding BlankNumber(Subject& subject) {
  return ComesBack(subject, u"blanks", u"int", u"", u"Null");
}

Finding BlankText(Subject& subject) {
  return ComesBack(subject, u"blank_texts", u"varchar(10)", u"", u"");
}

Finding Exact(Subject& subject) {
  return ComesBack(subject, u"exact", u"numeric(24, 4)", u"12345678901234567890,1234",
                   u"12345678901234567890,1234");
}

Finding Large(Subject& subject) {
  return ComesBack(subject, u"large", u"bigint", u"9223372036854775807", u"9223372036854775807");
}

Finding Floating(Subject& subject) {
  return ComesBack(subject, u"floating", u"double precision", 0.1, u"0,1");
}

Finding Day(Subject& subject) {
  return ComesBack(subject, u"days", u"date", CDate(u"29/02/2032"), u"29/02/2032");
}

Finding Moment(Subject& subject) {
  return ComesBack(subject, u"moments", u"timestamp", CDate(u"31/12/2031 23:59:58"),
                   u"31/12/2031 23:59:58");
}

Finding Truth(Subject& subject) {
  return ComesBack(subject, u"truths", u"boolean", true, CStr(true));
}

Finding Uuid(Subject& subject) {
  const String value = u"a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11";
  return ComesBack(subject, u"uuids", u"uuid", value, value);
}

}  // namespace

std::vector<Guarantee> TypeGuarantees() {
  return {{"text of any characters", Text},
          {"long text", LongText},
          {"padded text comes without its padding", Padding},
          {"a blank text stays blank", BlankText},
          {"a blank number is Null", BlankNumber},
          {"exact numbers", Exact},
          {"large integers", Large},
          {"floating point numbers", Floating},
          {"dates", Day},
          {"dates with a time", Moment},
          {"booleans", Truth},
          {"uuids", Uuid}};
}

}  // namespace tessaria::check
