// Classes of the library that are promoted wrongly, and settings of other widgets.
#include <algorithm>
#include <set>

#include "apps/check/rules.h"
#include "tessaria/field_settings.h"

namespace tessaria::formcheck {
namespace {

struct OwnClass {
  StringView name, header, withoutNamespace;
};
constexpr OwnClass kOwnClasses[] = {
    {u"tessaria::qt::TsText", u"tessaria/qt/tstext.h", u"TsText"},
    {u"tessaria::qt::Adodc", u"tessaria/qt/adodc.h", u"Adodc"},
    {u"tessaria::qt::ItemGrid", u"tessaria/qt/item_grid.h", u"ItemGrid"}};

/// Designer writes the header with or without a folder of includes before it.
bool NamesHeader(const CustomWidget& custom, const OwnClass& own) {
  return custom.header.ends_with(own.header);
}

void CheckPromotion(const FormFile& file, const FormWidget& widget, const OwnClass& own,
                    Findings& findings) {
  const CustomWidget* const custom = file.Custom(own.name);
  const std::string header = Quoted(own.header);
  if (!custom) {
    findings.Warning(
        widget.line, widget.name, "promotion",
        Quoted(own.name) + " is not among the <customwidgets>: compiled code lacks " + header);
  } else if (!NamesHeader(*custom, own)) {
    findings.Error(
        custom->line, {}, "promotion",
        Quoted(own.name) + " has the header " + Quoted(custom->header) + " instead of " + header);
  }
}

/// Names of properties are those of Qt, whose case counts: `enabled` is one of every widget.
bool IsSetting(const String& name) {
  const auto settings = StoredSettings();
  return std::any_of(settings.begin(), settings.end(),
                     [&](const StoredSetting& setting) { return setting.key == name; });
}

void CheckProperties(const FormWidget& field, Findings& findings) {
  for (const Line& property : field.properties) {
    if (IsSetting(property.text))
      findings.Warning(property.number, field.name, "property",
                       "the property " + Quoted(property.text) +
                           " is set with its side effects and not checked; give it among the "
                           "'settings'");
  }
}

}  // namespace

void CheckClasses(const FormFile& file, Findings& findings) {
  std::set<String> told;
  for (const FormWidget& widget : file.widgets) {
    for (const OwnClass& own : kOwnClasses) {
      if (widget.className == own.name && told.insert(widget.className).second)
        CheckPromotion(file, widget, own, findings);
      if (widget.className == own.withoutNamespace && !file.IsA(widget, own.name))
        findings.Error(
            widget.line, widget.name, "promotion",
            "the class is called " + Quoted(own.name) + ", not " + Quoted(widget.className));
    }
    if (file.IsField(widget)) CheckProperties(widget, findings);
    const bool isNamedSo = widget.className == kOwnClasses[0].withoutNamespace;
    if (widget.hasSettings && !file.IsField(widget) && !isNamedSo)
      findings.Error(widget.line, widget.name, "promotion",
                     "a " + ToUtf8(widget.className) + " has no settings: only " +
                         Quoted(kOwnClasses[0].name) + " has");
  }
}

}  // namespace tessaria::formcheck
