#include "hosts/odbc/connection_text.h"

#include "tessaria/text.h"

namespace tessaria::odbc {
namespace {

// 7.4-0: the driver leaves errors inside a transaction alone; this layer sets savepoints. Its own
// handling undoes the whole transaction when a text has a syntax error.
// UseDeclareFetch: the driver's own cursors can end early without a diagnostic.
// LFConversion: line ends must come back as they were stored.
// MaxVarcharSize, MaxLongVarcharSize: the size of a text without a declared one must be no size
// that a text can be declared with.
// KeepaliveTime, KeepaliveInterval: a way that has gone is noticed within minutes, not hours.
constexpr StringView kPostgresSettings =
    u"Protocol=7.4-0;UseDeclareFetch=0;LFConversion=0;MaxVarcharSize=10485761;"
    u"MaxLongVarcharSize=0;KeepaliveTime=60;KeepaliveInterval=10;";

bool NamesOtherDriver(const String& text) {
  const String folded = LCase(text);
  const bool names = StartsWith(folded, u"driver=") || InStr(folded, u";driver=") > 0;
  return names && InStr(folded, u"postgres") == 0 && InStr(folded, u"psqlodbc") == 0;
}

}  // namespace

String DriverConnectionText(const String& connectionString) {
  const String text = Trim(connectionString);
  if (NamesOtherDriver(text)) return text;
  // The driver takes the last of two equal keywords.
  return text + (text.empty() || EndsWith(text, u";") ? u"" : u";") + String(kPostgresSettings);
}

}  // namespace tessaria::odbc
