// What a form and the focus need from a control that is made of several widgets.
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "tessaria/export.h"
#include "tessaria/host/form.h"
#include "tessaria/tstext_interface.h"

class QLabel;
class QWidget;

namespace tessaria::qt {

/// A control of the library on a form, whatever widgets it is made of. Implemented by the widgets
/// themselves, and found from any widget by `dynamic_cast`. Only the library's own modules call the
/// members; unless stated otherwise, they do not throw.
class TESSARIA_QT_API FormControl {
 public:
  FormControl() = default;
  FormControl(const FormControl&) = delete;
  FormControl& operator=(const FormControl&) = delete;

  /// The control itself.
  virtual QWidget& widget() = 0;
  /// As `host::Widget::TypeName`.
  virtual String typeName() const = 0;
  /// Stands for the control on its form, and may outlive it.
  virtual host::WidgetPtr makePort() = 0;
  /// A property of the control's own, without regard to case; no value for a name that all widgets
  /// have, or that none has. Raises the errors of the property's getter.
  virtual std::optional<Variant> ownProperty(const String& name) const = 0;
  /// Returns false for any other name. Raises the errors of the property's setter.
  virtual bool letOwnProperty(const String& name, const Variant& value) = 0;
  /// The form shows for the first time.
  virtual void formShown() = 0;
  /// Whether the actions of the control's shortcuts settle the field in focus themselves.
  virtual bool settlesByItself() const = 0;

 protected:
  ~FormControl() = default;
};

/// The order in which the fields of a form are loaded.
enum class LoadOrder { Unbound, Key, Bound, Description };

/// A field: the operator enters it and leaves it as a whole.
class TESSARIA_QT_API Surface : public FormControl {
 public:
  /// When the field is loaded among those of its form.
  virtual LoadOrder loadOrder() const = 0;
  /// Name of the data control whose rows the field shows; empty for an unbound field.
  virtual QString dataSource() const = 0;
  /// Name of the control that can take the focus without validation.
  virtual QString objetoCancelar() const = 0;
  /// Names the field for screen readers after its caption, one of the labels of its form.
  virtual void nameByCaption(const QList<QLabel*>& labels) = 0;
  /// Loads the current row.
  virtual void refresh() = 0;

  /// The focus has come into the field.
  virtual void entered() = 0;
  /// The focus has left the field, which settles its text.
  virtual ExitVerdict left() = 0;
  /// Whether the field, which holds the focus, has something to settle.
  virtual bool hasToSettle() const = 0;

 protected:
  ~Surface() = default;
};

}  // namespace tessaria::qt
