#include "tessaria/qt/form.h"

#include <QLabel>
#include <QTabWidget>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/label_text.h"
#include "hosts/qt/form/active_control.h"
#include "hosts/qt/form/form.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/host/widgets.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/surface.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {
namespace {

using PlainWidget = WidgetPort<host::Widget>;

class LabelPort final : public WidgetPort<host::Label, QLabel> {
 public:
  using WidgetPort::WidgetPort;
  String Caption() const override { return fromQt(captionOf(widget())); }
  Colour ForeColor() const override {
    const QVariant kept = widget().property(kColour);
    return kept.isValid() ? kept.toUInt() : host::colour::MenuText;
  }
  /// A literal colour that is not readable on the theme's background is adjusted.
  void ForeColor(Colour colour) override {
    QLabel& label = widget();
    label.setProperty(kColour, colour);
    const QWidget* around = label.parentWidget();
    const QPalette theme = around ? around->palette() : QPalette();
    const QColor wanted = toQColor(colour, theme);
    QPalette palette;
    if (colour != host::colour::MenuText && colour != host::colour::WindowText)
      palette.setColor(
          QPalette::WindowText,
          isSystemColour(colour) ? wanted : readableOn(wanted, theme.color(QPalette::Window)));
    label.setPalette(palette);
  }
  bool FontBold() const override { return widget().font().bold(); }
  void FontBold(bool bold) override {
    QFont font;
    font.setBold(bold);
    widget().setFont(font.resolve(widget().font()));
  }

 private:
  static constexpr char kColour[] = "_tessaria_colour";
};

class TabPort final : public WidgetPort<host::TabStrip, QTabWidget> {
 public:
  using WidgetPort::WidgetPort;
  Integer Tab() const override { return static_cast<Integer>(widget().currentIndex()); }
  void Tab(Integer number) override { widget().setCurrentIndex(require(number)); }
  bool TabVisible(Integer number) const override { return widget().isTabVisible(require(number)); }

 private:
  Integer require(Integer number) const {
    if (number < 0 || number >= widget().count()) throw HostError(errors::InvalidPropertyValue);
    return number;
  }
};

class FormPort final : public WidgetPort<host::Form> {
 public:
  using WidgetPort::WidgetPort;
  bool Visible() const override { return !isGone() && widget().isVisible(); }
  host::WidgetPtr Controls(const String& name) const override {
    for (QWidget* control : controlsOf(&widget()))
      if (EqualNoCase(nameOf(*control), name)) return makeWidget(*control);
    throw HostError(errors::ControlNotFound,
                    ErrorDescription(errors::ControlNotFound) + u": '" + name + u"'");
  }
  std::vector<host::WidgetPtr> Controls() const override {
    std::vector<host::WidgetPtr> controls;
    for (QWidget* control : controlsOf(&widget())) controls.push_back(makeWidget(*control));
    return controls;
  }
  /// The window's own focus widget, which does not change while boxes and other windows are active.
  /// While a field is settled for an action, it is the action.
  host::WidgetPtr ActiveControl() const override {
    const QWidget* window = widget().window();
    if (const auto standIn = activeStandIn(*window)) return standIn;
    QWidget* focus = window->focusWidget();
    if (!focus) return nullptr;
    return makeWidget(*controlOf(focus));
  }
};

}  // namespace

host::FormPtr makeForm(QWidget& form) { return std::make_shared<FormPort>(form); }

host::WidgetPtr makeWidget(QWidget& widget) {
  if (auto* own = dynamic_cast<FormControl*>(&widget)) return own->makePort();
  if (auto* label = qobject_cast<QLabel*>(&widget)) return std::make_shared<LabelPort>(*label);
  if (auto* tabs = qobject_cast<QTabWidget*>(&widget)) return std::make_shared<TabPort>(*tabs);
  if (isForm(&widget)) return makeForm(widget);
  return std::make_shared<PlainWidget>(widget);
}

void setConnection(QWidget& form, const host::ConnectionPtr& connection) {
  form.setProperty("dbForm", QVariant::fromValue(connection));
}

host::ConnectionPtr connectionOf(const QWidget& form) {
  return form.property("dbForm").value<host::ConnectionPtr>();
}

}  // namespace tessaria::qt
