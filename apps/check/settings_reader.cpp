#include "apps/check/settings_reader.h"

#include <algorithm>
#include <optional>

#include "apps/check/definition_reader.h"
#include "apps/check/near_name.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/field_settings.h"
#include "tessaria/host/widgets.h"
#include "tessaria/text.h"
#include "tessaria/text_property_bag.h"

namespace tessaria::formcheck {
namespace {

constexpr StringView kFirstLine = u"tessaria 1";
constexpr StringView kObjectValue = u"Object:";

const std::vector<StoredSetting>& Known() {
  static const std::vector<StoredSetting> settings = StoredSettings();
  return settings;
}

const StoredSetting* FindKnown(const String& key) {
  for (const StoredSetting& known : Known())
    if (EqualNoCase(known.key, key)) return &known;
  return nullptr;
}

std::vector<String> StoredNames() {
  std::vector<String> names;
  for (const StoredSetting& known : Known()) names.push_back(known.key);
  return names;
}

bool IsDefinition(const String& key) {
  return EqualNoCase(key, u"Browse") || EqualNoCase(key, u"Pesquisa");
}

/// What a setting takes, for a message; nullptr when the value is of that kind, which follows from
/// the default.
const char* WrongKind(const StoredSetting& known, const Variant& value) {
  const char* wanted = "a text";
  try {
    if (known.byDefault.IsNull()) {
      if (IsDefinition(known.key)) return "an object";
      wanted = "a font";
      (void)value.As<host::Font>();
    } else if (known.byDefault.Type() == Variant::Kind::Boolean) {
      wanted = "Boolean:True or Boolean:False";
      (void)CBool(value);
    } else if (known.byDefault.IsNumeric()) {
      wanted = "a whole number";
      (void)CLng(value);
    } else if (known.byDefault.IsString()) {
      (void)CStr(value);
    }
    return nullptr;
  } catch (const HostError&) {
    return wanted;
  }
}

/// Numbers that are codes, with those that have a meaning.
struct CodeRange {
  StringView key;
  Long least, most;
};
constexpr CodeRange kCodeRanges[] = {{u"TipoControle", 0, 5},
                                     {u"TipoStrZero", 1, 2},
                                     {u"TipoDado", 0, 8},
                                     {u"MaxLength", 0, 0x7FFFFFFF}};

class SettingsReader {
 public:
  SettingsReader(const FormWidget& widget, Findings& findings) : findings_(findings) {
    field_.widget = &widget;
  }

  Field Read() {
    const std::vector<Line>& lines = field_.widget->settings;
    if (lines.empty()) return std::move(field_);
    std::size_t first = 1;
    if (lines[0].text != kFirstLine) {
      const bool isOther = lines[0].text.starts_with(u"tessaria ");
      Error(lines[0].number, "settings",
            isOther ? "the version " + Quoted(lines[0].text) + " is not known; this is 'tessaria 1'"
                    : "the first line of the settings must be 'tessaria 1'");
      if (isOther) return std::move(field_);
      first = 0;
    }
    for (std::size_t i = first; i < lines.size(); ++i)
      if (!lines[i].text.empty()) ReadLine(lines[i]);
    field_.browse = ReadDefinition<Browse>(u"Browse.");
    field_.pesquisa = ReadDefinition<Pesquisa>(u"Pesquisa.");
    RequireCodes();
    return std::move(field_);
  }

 private:
  void Error(int line, const char* rule, std::string message) {
    findings_.Error(line, field_.Name(), rule, std::move(message));
  }

  void ReadLine(const Line& line) {
    const std::size_t equals = line.text.find(u'=');
    if (equals == String::npos)
      return Error(line.number, "line", Quoted(line.text) + " has no '='");
    const String key = line.text.substr(0, equals);
    const String value = line.text.substr(equals + 1);
    if (field_.Find(key) || objects_.contains(LCase(key)))
      return Error(line.number, "line", Quoted(key) + " is there twice");
    if (value.starts_with(kObjectValue)) return ReadObject(line.number, key, value);
    if (const auto read = ValueOf(value)) {
      ReadValue({line.number, key, *read});
    } else {
      Error(line.number, "value", Quoted(value) + " is no stored value");
    }
  }

  static std::optional<Variant> ValueOf(const String& text) {
    try {
      TextPropertyBag bag;
      bag.Load(String(kFirstLine) + u"\nv=" + text);
      return bag.ReadProperty(u"v", Variant());
    } catch (const HostError&) {
      return std::nullopt;
    }
  }

  void ReadObject(int line, const String& key, const String& value) {
    const String className = value.substr(kObjectValue.size());
    if (!IsDefinition(key)) {
      Error(line, "value", Quoted(key) + " is no object");
    } else if (!EqualNoCase(className, key) ||
               (className != u"Browse" && className != u"Pesquisa")) {
      Error(line, "value",
            Quoted(key) + " takes 'Object:" + ToUtf8(key) + "', not " + Quoted(value));
    }
    objects_[LCase(key)] = line;
  }

  void ReadValue(const Setting& setting) {
    const std::size_t dot = setting.key.find(u'.');
    if (dot == String::npos) {
      if (!IsTaken(setting)) return;
    } else if (!objects_.contains(LCase(setting.key.substr(0, dot)))) {
      const std::string object = ToUtf8(setting.key.substr(0, dot));
      return Error(setting.line, "line",
                   Quoted(setting.key) + " stands before '" + object + "=Object:" + object + "'");
    }
    field_.settings.push_back(setting);
  }

  bool IsTaken(const Setting& setting) {
    const StoredSetting* const known = FindKnown(setting.key);
    if (!known) {
      Error(setting.line, "unknown-setting",
            "there is no setting " + Quoted(setting.key) + DidYouMean(setting.key, StoredNames()));
      return false;
    }
    const char* const wanted = WrongKind(*known, setting.value);
    if (wanted) Error(setting.line, "value", ToUtf8(setting.key) + " takes " + wanted);
    return !wanted;
  }

  template <class Definition>
  std::shared_ptr<Definition> ReadDefinition(StringView prefix) {
    const String object = LCase(prefix.substr(0, prefix.size() - 1));
    if (!objects_.contains(object)) return nullptr;
    const DefinitionBag bag(field_.settings, prefix);
    auto definition = std::make_shared<Definition>();
    bool isBroken = bag.TellUnread(*definition, field_.Name(), findings_);
    try {
      definition->ReadProperties(bag);
    } catch (const HostError&) {
      if (!isBroken)
        Error(objects_[object], "value", "two entries of " + ToUtf8(object) + " have the same key");
    }
    return definition;
  }

  void RequireCodes() {
    for (const CodeRange& range : kCodeRanges) {
      const Long number = field_.Number(range.key, range.least);
      if (number >= range.least && number <= range.most) continue;
      const std::string bound =
          range.most == 0x7FFFFFFF
              ? "is at least " + std::to_string(range.least)
              : "is one of " + std::to_string(range.least) + " to " + std::to_string(range.most);
      Error(field_.LineOf(range.key), "value",
            ToUtf8(range.key) + " " + bound + ", not " + std::to_string(number));
    }
  }

  Field field_;
  std::map<String, int> objects_;  ///< lines of the objects, by name in small letters
  Findings& findings_;
};

}  // namespace

Field ReadSettings(const FormWidget& widget, Findings& findings) {
  return SettingsReader(widget, findings).Read();
}

}  // namespace tessaria::formcheck
