#include "hosts/qt/focus/stand_in.h"

#include <QAction>
#include <QPointer>
#include <QToolButton>

#include "hosts/qt/form/widget_tree.h"
#include "tessaria/error.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// A widget that has only a name and a place on the form.
class ActionPort final : public host::Widget {
 public:
  ActionPort(const QString& name, QWidget& form) : name_(fromQt(name)), form_(&form) {}

  String Name() const override { return name_; }
  String TypeName() const override { return u"CommandButton"; }
  Long Left() const override { return 0; }
  Long Top() const override { return 0; }
  Long Height() const override { return 0; }
  host::WidgetPtr Container() const override {
    if (!form_) throw HostError(errors::ObjectNotSet);
    return makeForm(*form_);
  }
  Variant Get(const String& property) const override {
    if (EqualNoCase(property, u"Name")) return name_;
    throw HostError(errors::NoSuchMember);
  }
  void Let(const String& property, const Variant&) override {
    throw HostError(EqualNoCase(property, u"Name") ? errors::PropertyIsReadOnly
                                                   : errors::NoSuchMember);
  }

 private:
  const String name_;
  const QPointer<QWidget> form_;
};

/// The names by which a program knows a button: that of its action, then its own.
QStringList namesOf(const QWidget& widget) {
  QStringList names;
  const auto* tool = qobject_cast<const QToolButton*>(&widget);
  if (tool && tool->defaultAction()) names << tool->defaultAction()->objectName();
  names << widget.objectName();
  names.removeAll(QString());
  return names;
}

}  // namespace

host::WidgetPtr makeActionPort(const QString& name, QWidget& form) {
  return std::make_shared<ActionPort>(name, form);
}

StandIn standInOf(const QObject& action, QWidget& form) {
  QStringList names{action.objectName()};
  names.removeAll(QString());
  return {makeActionPort(action.objectName(), form), names};
}

StandIn standInOf(QWidget& widget) {
  const QStringList names = namesOf(widget);
  const host::WidgetPtr control = makeWidget(*controlOf(&widget));
  if (control->TypeName() != u"CommandButton" && !qobject_cast<QToolButton*>(&widget))
    return {control, names};
  return {makeActionPort(names.value(0), *formOf(&widget)), names};
}

}  // namespace tessaria::qt
