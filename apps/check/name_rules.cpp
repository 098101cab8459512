// Names of other widgets, and the number of the tab.
#include <algorithm>

#include "apps/check/near_name.h"
#include "apps/check/rules.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

/// A setting that holds the name of a widget.
struct NameSetting {
  StringView key;
  bool (*fits)(const FormFile&, const FormWidget&);
  const char* wanted;
};
const NameSetting kNameSettings[] = {
    {u"TxtIrmao", [](const FormFile& f, const FormWidget& w) { return f.IsField(w); },
     "no tessaria::qt::TsText"},
    {u"LabelAssociado", [](const FormFile& f, const FormWidget& w) { return f.IsA(w, u"QLabel"); },
     "no QLabel"},
    {u"DataSource", [](const FormFile& f, const FormWidget& w) { return f.IsDataControl(w); },
     "no tessaria::qt::Adodc"},
    {u"ObjetoCancelar", [](const FormFile&, const FormWidget&) { return true; }, ""}};

/// A tool button shows an action, whose name then stands for it.
bool IsAction(const FormFile& file, const String& name) {
  return std::any_of(file.actions.begin(), file.actions.end(),
                     [&](const String& action) { return EqualNoCase(action, name); });
}

void CheckName(const FormFile& file, const Field& field, const NameSetting& setting,
               Findings& findings) {
  // The sibling's name may have blanks around it when it is looked whether there is one.
  const String name = field.Text(setting.key);
  if (Trim(name).empty()) return;
  const int line = field.LineOf(setting.key);
  const std::string text = ToUtf8(setting.key) + " " + Quoted(name);
  const FormWidget* const found = file.Named(name);
  if (!found) {
    if (setting.key == u"ObjetoCancelar" && IsAction(file, name)) return;
    findings.Error(
        line, field.Name(), "name",
        text + " is not on this form" + DidYouMean(name, file.NamesBeside(*field.widget)));
  } else if (found == field.widget) {
    findings.Error(line, field.Name(), "name", text + " is the field itself");
  } else if (!setting.fits(file, *found)) {
    findings.Error(line, field.Name(), "name",
                   text + " is a " + ToUtf8(found->className) + ", " + setting.wanted);
  }
}

/// The tabs around the field, and the one that it is on.
struct Place {
  const FormWidget* tabs = nullptr;
  int page = 0, count = 0;
};

Place PlaceOf(const FormFile& file, const FormWidget& widget) {
  const FormWidget* at = &widget;
  while (at->parent >= 0) {
    const FormWidget& outer = file.widgets[static_cast<std::size_t>(at->parent)];
    if (file.IsA(outer, u"QTabWidget")) return {&outer, at->page, outer.children};
    at = &outer;
  }
  return {};
}

void CheckTab(const FormFile& file, const Field& field, Findings& findings) {
  const String text = Trim(field.Text(u"NumeroTab"));
  if (text.empty()) return;
  const int line = field.LineOf(u"NumeroTab");
  const std::string shown = "NumeroTab " + Quoted(text);
  int number = 0;
  try {
    number = CInt(text);
  } catch (const HostError&) {
    return findings.Error(line, field.Name(), "tab", shown + " is no number");
  }
  const Place place = PlaceOf(file, *field.widget);
  if (!place.tabs) {
    findings.Warning(line, field.Name(), "tab",
                     shown + " has no effect: the field is on no QTabWidget");
  } else if (number < 0 || number >= place.count) {
    findings.Error(line, field.Name(), "tab",
                   shown + ": " + Quoted(place.tabs->name) + " has the tabs 0 to " +
                       std::to_string(place.count - 1));
  } else if (number != place.page) {
    findings.Error(line, field.Name(), "tab",
                   shown + ": the field is on tab " + std::to_string(place.page) + " of " +
                       Quoted(place.tabs->name));
  }
}

void CheckBinding(const Field& field, Findings& findings) {
  const bool hasSource = !field.Text(u"DataSource").empty();
  const bool hasColumn = !field.Text(u"DataField").empty();
  if (hasSource == hasColumn) return;
  const StringView has = hasSource ? u"DataSource" : u"DataField";
  const StringView lacks = hasSource ? u"DataField" : u"DataSource";
  findings.Warning(field.LineOf(has), field.Name(), "binding",
                   ToUtf8(has) + " without " + ToUtf8(lacks) + ": the field is not bound");
}

}  // namespace

void CheckNames(const CheckedForm& form, const Field& field, Findings& findings) {
  for (const NameSetting& setting : kNameSettings) CheckName(form.file, field, setting, findings);
  CheckTab(form.file, field, findings);
  CheckBinding(field, findings);
}

}  // namespace tessaria::formcheck
