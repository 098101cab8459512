#include "apps/check/field.h"

#include "apps/check/known_keys.h"

#include <tessaria/conversion.h>
#include <tessaria/error.h>
#include <tessaria/text.h>
#include <tessaria/text_property_bag.h>
#include <tessaria/utf8.h>

namespace tessaria::formcheck {
namespace {

const String kVersion = u"tessaria 1";

TextPropertyBag::Factories Definitions() {
  return {{u"Browse", [] { return std::make_shared<Browse>(); }},
          {u"Pesquisa", [] { return std::make_shared<Pesquisa>(); }}};
}

/// A part of a definition needs the line of the definition above it.
String Frame(StringView key) {
  const std::size_t dot = key.find(u'.');
  if (dot == StringView::npos) return kVersion + u"\n";
  const String object(key.substr(0, dot));
  return kVersion + u"\n" + object + u"=Object:" + object + u"\n";
}

/// Why a value cannot be taken for a setting with that default; "" when it can.
String Unfit(const Variant& value, const Variant& byDefault) {
  try {
    if (byDefault.Type() == Variant::Kind::Boolean) {
      CBool(value);
    } else if (byDefault.IsNumeric()) {
      CLng(value);
    }
    return {};
  } catch (const HostError&) {
    return byDefault.Type() == Variant::Kind::Boolean ? u"is neither true nor false"
                                                      : u"is no number";
  }
}

}  // namespace

Finding Field::About(int line, const char* kind, const String& message) const {
  return {{}, line, ToUtf8(Name()), kind, Severity::Mistake, ToUtf8(message)};
}

void Field::Read(std::vector<Finding>& findings) {
  const auto& lines = widget_->settings;
  if (lines.empty()) return;
  if (lines.front().text != kVersion) {
    findings.push_back(About(lines.front().line, "settings",
                             u"the settings do not begin with \"" + kVersion + u"\""));
    return;
  }
  for (std::size_t i = 1; i < lines.size(); ++i) ReadLine(lines[i], findings);
  ReadDefinitions();
}

bool Field::IsKnown(const String& key, int line, std::vector<Finding>& findings) const {
  if (KnownKeys().contains(Folded(key))) return true;
  const String like = MostLike(key);
  findings.push_back(About(line, "unknown-setting",
                           u"there is no setting \"" + key + u"\"" +
                               (like.empty() ? String() : u"; did you mean " + like + u"?")));
  return false;
}

void Field::ReadLine(const Text& line, std::vector<Finding>& findings) {
  if (line.text.empty()) return;
  const String key = line.text.substr(0, line.text.find(u'='));
  TextPropertyBag bag(Definitions());
  Variant value;
  try {
    bag.Load(Frame(key) + line.text + u"\n");
    if (key.find(u'.') == String::npos) value = bag.ReadProperty(key, Variant());
  } catch (const HostError& error) {
    const bool isValue = error.Number() == errors::TypeMismatch;
    findings.push_back(
        About(line.line, isValue ? "value" : "settings", u"\"" + line.text + u"\" cannot be read"));
    return;
  }
  if (!IsKnown(key, line.line, findings)) return;
  const String unfit = Unfit(value, KnownKeys().at(Folded(key)));
  if (!unfit.empty()) {
    findings.push_back(About(line.line, "value",
                             u"the value of " + key + u", \"" + CStr(value) + u"\", " + unfit));
    return;
  }
  settings_[LCase(key)] = {value, line.line};
  readable_.push_back(line.text);
}

void Field::ReadDefinitions() {
  String text = kVersion + u"\n";
  for (const String& line : readable_) text += line + u"\n";
  TextPropertyBag bag(Definitions());
  try {
    bag.Load(text);
    if (Has(u"Browse")) lookup_ = bag.ReadProperty(u"Browse", Variant()).As<Browse>();
    if (Has(u"Pesquisa")) searches_ = bag.ReadProperty(u"Pesquisa", Variant()).As<Pesquisa>();
  } catch (const HostError&) {
    // The lines that cannot be read have been reported.
  }
}

bool Field::Has(StringView key) const { return settings_.contains(LCase(String(key))); }

int Field::LineOf(StringView key) const {
  const auto found = settings_.find(LCase(String(key)));
  return found == settings_.end() ? widget_->line : found->second.line;
}

String Field::TextOf(StringView key) const {
  const auto found = settings_.find(LCase(String(key)));
  return found == settings_.end() ? String() : CStr(found->second.value);
}

Long Field::NumberOf(StringView key, Long byDefault) const {
  return Has(key) ? CLng(settings_.at(LCase(String(key))).value) : byDefault;
}

}  // namespace tessaria::formcheck
