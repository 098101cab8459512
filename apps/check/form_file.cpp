#include "apps/check/form_file.h"

#include <QXmlStreamReader>

#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

/// Far more than a form has, and far less than the stack holds.
constexpr int kMostNested = 1000;
/// With more names, comparing each with a misspelt one would take too long.
constexpr std::size_t kMostCompared = 2000;

class FormReader {
 public:
  FormReader(QIODevice& file, FormFile& form, Findings& findings)
      : xml_(&file), form_(form), findings_(findings) {}

  bool Read() {
    const bool isForm = xml_.readNextStartElement() && xml_.name() == u"ui";
    if (isForm) ReadUi();
    if (xml_.hasError()) {
      findings_.Error(LineNow(), {}, "xml", "broken XML: " + xml_.errorString().toStdString());
      return false;
    }
    if (!isForm || form_.widgets.empty()) {
      findings_.Error(1, {}, "no-form", "there is no form in this file");
      return false;
    }
    return true;
  }

 private:
  int LineNow() const { return static_cast<int>(xml_.lineNumber()); }
  String Attribute(const char* name) const {
    return qt::fromQt(xml_.attributes().value(QLatin1String(name)).toString());
  }
  Line TextHere() {
    const int line = LineNow();
    return {line, qt::fromQt(xml_.readElementText(QXmlStreamReader::IncludeChildElements))};
  }

  void ReadUi() {
    while (xml_.readNextStartElement()) {
      if (xml_.name() == u"widget") {
        ReadWidget(-1);
      } else if (xml_.name() == u"customwidgets") {
        ReadCustomWidgets();
      } else {
        xml_.skipCurrentElement();
      }
    }
  }

  void ReadWidget(int parent) {
    FormWidget widget;
    widget.className = Attribute("class");
    widget.name = Attribute("name");
    widget.line = LineNow();
    widget.parent = parent;
    if (parent >= 0) widget.page = form_.widgets[static_cast<std::size_t>(parent)].children++;
    const int position = static_cast<int>(form_.widgets.size());
    if (!widget.name.empty()) form_.byName.emplace(LCase(widget.name), form_.widgets.size());
    form_.widgets.push_back(std::move(widget));
    ReadContents(position, true);
  }

  /// What is inside a widget, or inside a layout or an item of it, whose properties are not the
  /// widget's.
  void ReadContents(int owner, bool isWidget) {
    if (++depth_ > kMostNested) xml_.raiseError(QStringLiteral("widgets are nested too deeply"));
    while (xml_.readNextStartElement()) {
      if (xml_.name() == u"widget") {
        ReadWidget(owner);
      } else if (xml_.name() == u"layout" || xml_.name() == u"item") {
        ReadContents(owner, false);
      } else if (xml_.name() == u"property" && isWidget) {
        ReadProperty(form_.widgets[static_cast<std::size_t>(owner)]);
      } else {
        if (xml_.name() == u"action") form_.actions.push_back(Attribute("name"));
        xml_.skipCurrentElement();
      }
    }
    --depth_;
  }

  void ReadProperty(FormWidget& widget) {
    const String name = Attribute("name");
    const bool isSettings = name == u"settings";
    widget.properties.push_back({LineNow(), name});
    if (isSettings) widget.hasSettings = true;
    while (xml_.readNextStartElement()) {
      if (xml_.name() == u"string") {
        widget.texts[name] = TextHere();
        if (isSettings) RefuseSettings(widget, widget.texts[name].number);
      } else if (xml_.name() == u"stringlist" && isSettings) {
        while (xml_.readNextStartElement()) widget.settings.push_back(TextHere());
      } else {
        xml_.skipCurrentElement();
      }
    }
  }

  void RefuseSettings(const FormWidget& widget, int line) {
    findings_.Error(line, widget.name, "settings", "the settings must be a <stringlist>");
  }

  void ReadCustomWidgets() {
    while (xml_.readNextStartElement()) {
      CustomWidget custom;
      custom.line = LineNow();
      while (xml_.readNextStartElement()) {
        const QString element = xml_.name().toString();
        const String text = TextHere().text;
        if (element == u"class") custom.className = text;
        if (element == u"extends") custom.extends = text;
        if (element == u"header") custom.header = text;
      }
      form_.customWidgets.push_back(std::move(custom));
    }
  }

  QXmlStreamReader xml_;
  int depth_ = 0;
  FormFile& form_;
  Findings& findings_;
};

}  // namespace

const FormWidget* FormFile::Named(StringView name) const {
  const auto found = byName.find(LCase(String(name)));
  return found == byName.end() ? nullptr : &widgets[found->second];
}

const CustomWidget* FormFile::Custom(StringView className) const {
  for (const CustomWidget& custom : customWidgets)
    if (custom.className == className) return &custom;
  return nullptr;
}

bool FormFile::IsA(const FormWidget& widget, StringView className) const {
  String own = widget.className;
  // A file may promote in a circle.
  for (std::size_t step = 0; step <= customWidgets.size(); ++step) {
    if (own == className) return true;
    const CustomWidget* const custom = Custom(own);
    if (!custom) return false;
    own = custom->extends;
  }
  return false;
}

bool FormFile::IsField(const FormWidget& widget) const {
  return IsA(widget, u"tessaria::qt::TsText");
}

bool FormFile::IsDataControl(const FormWidget& widget) const {
  return IsA(widget, u"tessaria::qt::Adodc");
}

std::vector<String> FormFile::NamesBeside(const FormWidget& widget) const {
  std::vector<String> names;
  if (widgets.size() > kMostCompared) return names;
  for (const FormWidget& other : widgets)
    if (&other != &widget) names.push_back(other.name);
  return names;
}

bool ReadForm(QIODevice& file, FormFile& form, Findings& findings) {
  return FormReader(file, form, findings).Read();
}

}  // namespace tessaria::formcheck
