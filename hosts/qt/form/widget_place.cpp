#include "hosts/qt/form/widget_place.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

#include "hosts/qt/conversion/units.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/qt/surface.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

template <class Class>
bool is(const QWidget& widget) {
  return qobject_cast<const Class*>(&widget);
}

struct TypeRow {
  bool (*matches)(const QWidget&);
  const char16_t* name;
};

/// The first match counts.
constexpr TypeRow kTypes[] = {
    {[](const QWidget& w) { return isForm(&w); }, u"Form"},
    {is<QLabel>, u"Label"},
    {is<QTabWidget>, u"SSTab"},
    {is<QCheckBox>, u"CheckBox"},
    {is<QRadioButton>, u"OptionButton"},
    {is<QAbstractButton>, u"CommandButton"},
    {is<QLineEdit>, u"TextBox"},
    {is<QComboBox>, u"ComboBox"},
    {is<QGroupBox>, u"Frame"},
};

}  // namespace

String nameOf(const QWidget& widget) { return fromQt(widget.objectName()); }

String typeNameOf(const QWidget& widget) {
  if (const auto* own = dynamic_cast<const FormControl*>(&widget)) return own->typeName();
  for (const TypeRow& row : kTypes)
    if (row.matches(widget)) return row.name;
  return fromQt(QString::fromLatin1(widget.metaObject()->className()));
}

QWidget* containerOf(const QWidget& widget) {
  if (isForm(&widget)) return nullptr;
  QWidget* container = widget.parentWidget();
  while (!isForm(container) && container->objectName().startsWith(QLatin1String("qt_")))
    container = container->parentWidget();
  return container;
}

namespace {

/// The position in the container; for a form, the one on the screen.
QPoint placeOf(const QWidget& widget) {
  if (widget.isWindow()) return widget.pos();
  if (QWidget* container = containerOf(widget)) return widget.mapTo(container, QPoint());
  return widget.mapToGlobal(QPoint());
}

}  // namespace

Long leftOf(const QWidget& widget) { return twipsX(placeOf(widget).x(), widget); }
Long topOf(const QWidget& widget) { return twipsY(placeOf(widget).y(), widget); }
Long heightOf(const QWidget& widget) { return twipsY(widget.height(), widget); }

}  // namespace tessaria::qt
