#include "hosts/qt/form/late_binding.h"

#include <QCheckBox>
#include <QLabel>
#include <QMetaProperty>
#include <algorithm>
#include <iterator>
#include <type_traits>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/label_text.h"
#include "hosts/qt/conversion/units.h"
#include "hosts/qt/form/widget_place.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/surface.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

Variant colourOf(const QWidget& widget, QPalette::ColorRole role) {
  return static_cast<Long>(toColour(widget.palette().color(role)));
}

void setColour(QWidget& widget, QPalette::ColorRole role, const Variant& value) {
  QPalette palette = widget.palette();
  palette.setColor(role, toQColor(static_cast<Colour>(CLng(value)), QPalette()));
  widget.setPalette(palette);
}

/// The widget that Tab stops at, which may be inside a control that is made of several.
template <class Widget>
Widget& tabStopOf(Widget& widget) {
  return widget.focusProxy() ? *widget.focusProxy() : widget;
}

/// A name of the object model for which Qt has no property.
struct ModelProperty {
  StringView name;
  Variant (*get)(const QWidget&);
  void (*let)(QWidget&, const Variant&);  ///< nullptr for read-only
};

const ModelProperty kModel[] = {
    {u"Name", [](const QWidget& w) { return Variant(nameOf(w)); }, nullptr},
    {u"Left", [](const QWidget& w) { return Variant(leftOf(w)); },
     [](QWidget& w, const Variant& v) { w.move(pixelsX(CLng(v), w), w.y()); }},
    {u"Top", [](const QWidget& w) { return Variant(topOf(w)); },
     [](QWidget& w, const Variant& v) { w.move(w.x(), pixelsY(CLng(v), w)); }},
    {u"Width", [](const QWidget& w) { return Variant(twipsX(w.width(), w)); },
     [](QWidget& w, const Variant& v) { w.resize(pixelsX(CLng(v), w), w.height()); }},
    {u"Height", [](const QWidget& w) { return Variant(heightOf(w)); },
     [](QWidget& w, const Variant& v) { w.resize(w.width(), pixelsY(CLng(v), w)); }},
    // The widget's own flags, regardless of its ancestors.
    {u"Visible", [](const QWidget& w) { return Variant(!w.isHidden()); },
     [](QWidget& w, const Variant& v) { w.setVisible(CBool(v)); }},
    {u"Enabled", [](const QWidget& w) { return Variant(!w.testAttribute(Qt::WA_ForceDisabled)); },
     [](QWidget& w, const Variant& v) { w.setEnabled(CBool(v)); }},
    {u"TabStop",
     [](const QWidget& w) { return Variant((tabStopOf(w).focusPolicy() & Qt::TabFocus) != 0); },
     [](QWidget& w, const Variant& v) {
       tabStopOf(w).setFocusPolicy(CBool(v) ? Qt::StrongFocus : Qt::ClickFocus);
     }},
    {u"ForeColor", [](const QWidget& w) { return colourOf(w, w.foregroundRole()); },
     [](QWidget& w, const Variant& v) { setColour(w, w.foregroundRole(), v); }},
    {u"BackColor", [](const QWidget& w) { return colourOf(w, w.backgroundRole()); },
     [](QWidget& w, const Variant& v) { setColour(w, w.backgroundRole(), v); }},
};

/// The value of a check box is 0, 1, or 2 if it is partially checked; that of an option button is a
/// Boolean.
constexpr Qt::CheckState kCheckStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};

Variant checkOf(const QCheckBox& box) {
  const auto* state = std::find(std::begin(kCheckStates), std::end(kCheckStates), box.checkState());
  return static_cast<Integer>(state - std::begin(kCheckStates));
}

/// True also checks the box.
void setCheck(QCheckBox& box, const Variant& value) {
  const Long state = value.TryGet<bool>() ? Long{CBool(value)} : CLng(value);
  if (state < 0 || state >= Long{std::size(kCheckStates)}) throw HostError(errors::InvalidArgument);
  box.setCheckState(kCheckStates[state]);
}

/// The check box, if the name stands for its state.
template <class Widget>
auto* checkBoxFor(Widget& widget, StringView name) {
  using Box = std::conditional_t<std::is_const_v<Widget>, const QCheckBox, QCheckBox>;
  return EqualNoCase(name, u"Value") ? qobject_cast<Box*>(&widget) : nullptr;
}

/// Names of the object model for properties with another name in Qt; the first one that the widget
/// has is used.
struct Alias {
  StringView name;
  const char* qtName;
};

constexpr Alias kAliases[] = {
    {u"Caption", "text"},           {u"Caption", "title"},    {u"Caption", "windowTitle"},
    {u"Text", "currentText"},       {u"Text", "plainText"},   {u"Value", "checked"},
    {u"ListIndex", "currentIndex"}, {u"Tab", "currentIndex"}, {u"ToolTipText", "toolTip"},
    {u"MaxLength", "maxLength"},    {u"Locked", "readOnly"},
};

const ModelProperty* findModel(StringView name) {
  for (const ModelProperty& property : kModel)
    if (EqualNoCase(property.name, name)) return &property;
  return nullptr;
}

/// Qt's spelling of a property name; empty if the widget has no such property.
QByteArray findQtName(const QWidget& widget, StringView name) {
  const QMetaObject& meta = *widget.metaObject();
  const QByteArray wanted = toQt(name).toUtf8();
  for (int i = meta.propertyCount() - 1; i >= 0; --i)
    if (qstricmp(meta.property(i).name(), wanted) == 0) return meta.property(i).name();
  for (const QByteArray& dynamic : widget.dynamicPropertyNames())
    if (qstricmp(dynamic, wanted) == 0) return dynamic;
  for (const Alias& alias : kAliases)
    if (EqualNoCase(alias.name, name) && meta.indexOfProperty(alias.qtName) >= 0)
      return alias.qtName;
  return {};
}

QByteArray requireQtName(const QWidget& widget, StringView name) {
  QByteArray found = findQtName(widget, name);
  if (found.isEmpty()) throw HostError(errors::NoSuchMember);
  return found;
}

}  // namespace

Variant getLate(const QWidget& widget, const String& property) {
  if (const auto* control = dynamic_cast<const FormControl*>(&widget))
    if (const auto value = control->ownProperty(property)) return *value;
  if (const ModelProperty* found = findModel(property)) return found->get(widget);
  if (const auto* box = checkBoxFor(widget, property)) return checkOf(*box);
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    if (EqualNoCase(property, u"Caption")) return fromQt(captionOf(*label));
  return toVariant(widget.property(requireQtName(widget, property)));
}

void letLate(QWidget& widget, const String& property, const Variant& value) {
  auto* control = dynamic_cast<FormControl*>(&widget);
  if (control && control->letOwnProperty(property, value)) return;
  if (const ModelProperty* found = findModel(property)) {
    if (!found->let) throw HostError(errors::PropertyIsReadOnly);
    return found->let(widget, value);
  }
  if (auto* box = checkBoxFor(widget, property)) return setCheck(*box, value);
  const QByteArray name = requireQtName(widget, property);
  const int index = widget.metaObject()->indexOfProperty(name);
  if (index >= 0 && !widget.metaObject()->property(index).isWritable())
    throw HostError(errors::PropertyIsReadOnly);
  const bool written = widget.setProperty(name, toQVariant(value));
  if (index >= 0 && !written) throw HostError(errors::TypeMismatch);
}

}  // namespace tessaria::qt
