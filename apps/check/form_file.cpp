#include "apps/check/form_file.h"

#include <QFile>
#include <QXmlStreamReader>

#include <tessaria/text.h>

namespace tessaria::formcheck {

const char16_t* const kFieldClass = u"tessaria::qt::TsText";
const char16_t* const kDataControlClass = u"tessaria::qt::Adodc";

namespace {

bool Is(const QXmlStreamReader& xml, const char* name) { return xml.name() == QLatin1String(name); }

String Attribute(const QXmlStreamReader& xml, const char* name) {
  return xml.attributes().value(QLatin1String(name)).toString().toStdU16String();
}

class Reader {
 public:
  explicit Reader(QIODevice& file) : xml_(&file) {}

  FormFile Read() {
    if (!xml_.readNextStartElement() || !Is(xml_, "ui"))
      throw NoForm(xml_.hasError() ? xml_.errorString().toStdString()
                                   : std::string("this is no form of Qt Designer"),
                   Line());
    while (!xml_.atEnd()) {
      xml_.readNext();
      if (xml_.isStartElement() && Is(xml_, "widget")) ReadWidget();
    }
    if (xml_.hasError()) throw NoForm(xml_.errorString().toStdString(), Line());
    return std::move(form_);
  }

 private:
  int Line() const { return static_cast<int>(xml_.lineNumber()); }

  /// With everything that is on it.
  void ReadWidget() {
    const std::size_t at = form_.widgets.size();
    form_.widgets.push_back({Attribute(xml_, "class"), Attribute(xml_, "name"), Line(), {}, {}});
    for (int depth = 1; depth > 0 && !xml_.atEnd();) {
      xml_.readNext();
      if (xml_.isEndElement()) --depth;
      if (!xml_.isStartElement()) continue;
      if (Is(xml_, "widget")) {
        ReadWidget();
      } else if (Is(xml_, "property")) {
        ReadProperty(at);
      } else {
        ++depth;
      }
    }
  }

  void ReadProperty(std::size_t widget) {
    const String name = Attribute(xml_, "name");
    while (xml_.readNextStartElement()) {
      if (Is(xml_, "stringlist")) {
        ReadList(widget, name);
      } else {
        const int line = Line();
        const QString text = xml_.readElementText(QXmlStreamReader::IncludeChildElements);
        form_.widgets[widget].properties[name] = {text.toStdU16String(), line};
      }
    }
  }

  void ReadList(std::size_t widget, const String& name) {
    while (xml_.readNextStartElement()) {
      const int line = Line();
      const String text =
          xml_.readElementText(QXmlStreamReader::IncludeChildElements).toStdU16String();
      if (name == u"settings") form_.widgets[widget].settings.push_back({text, line});
    }
  }

  QXmlStreamReader xml_;
  FormFile form_;
};

}  // namespace

const Widget* FormFile::Find(const String& name) const {
  for (const Widget& widget : widgets)
    if (EqualNoCase(widget.name, name)) return &widget;
  return nullptr;
}

FormFile ReadForm(const std::string& path) {
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) throw Unreadable(file.errorString().toStdString());
  return Reader(file).Read();
}

}  // namespace tessaria::formcheck
