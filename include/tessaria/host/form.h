// A form and the controls on it, as a control finds them at run time.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/variant.h"

namespace tessaria {
class _tsText;
}

namespace tessaria::host {

class Widget;
using WidgetPtr = std::shared_ptr<Widget>;

/// A control, a container or a form, as its form sees it. The object stands for the widget and
/// may outlive it: when the widget is gone every member raises 91.
/// Positions and sizes are in twips, relative to the container.
class TESSARIA_CORE_API Widget : public Object {
 public:
  virtual String Name() const = 0;
  /// The run-time type: "tsText", "Label", "CommandButton", "SSTab", "Adodc", "Form", ...
  virtual String TypeName() const = 0;
  virtual Long Left() const = 0;
  virtual Long Top() const = 0;
  virtual Long Height() const = 0;
  /// What the widget is on; outermost is the form. Null for a form.
  virtual WidgetPtr Container() const = 0;
  /// A property by name, without regard to case. Error 438 when there is none.
  virtual Variant Get(const String& property) const = 0;
  /// Errors: 438 no such property, 13 a value that it cannot take, 383 read-only.
  virtual void Let(const String& property, const Variant& value) = 0;
};

/// The caption of a field.
class TESSARIA_CORE_API Label : public Widget {
 public:
  virtual String Caption() const = 0;
  virtual Colour ForeColor() const = 0;
  virtual void ForeColor(Colour colour) = 0;
  virtual bool FontBold() const = 0;
  virtual void FontBold(bool bold) = 0;
};

/// Pages with tabs, numbered from 0.
class TESSARIA_CORE_API TabStrip : public Widget {
 public:
  virtual Integer Tab() const = 0;
  virtual void Tab(Integer number) = 0;
  /// Error 380 if there is no tab with that number.
  virtual bool TabVisible(Integer number) const = 0;
};

/// A data control: names its rows and holds them.
class TESSARIA_CORE_API DataControl : public Widget {
 public:
  virtual String ConnectionString() const = 0;
  virtual String RecordSource() const = 0;
  /// The rows; null before the first Refresh.
  virtual RecordsetPtr RecordSet() const = 0;
  /// Reopens the rows.
  virtual void Refresh() = 0;
};

/// A control of this library on a form. `Control` is the control itself; the reference is valid
/// until host events are processed.
class TESSARIA_CORE_API TsTextWidget : public Widget {
 public:
  virtual _tsText& Control() const = 0;
};

/// A form as its controls see it.
class TESSARIA_CORE_API Form : public Widget {
 public:
  /// False before the first show and after the form is closed.
  virtual bool Visible() const = 0;
  /// By name, without regard to case. Error 730 when there is none.
  virtual WidgetPtr Controls(const String& name) const = 0;
  /// All controls, in order of creation.
  virtual std::vector<WidgetPtr> Controls() const = 0;
  /// The control that has the focus, or has just taken it; null when none has.
  virtual WidgetPtr ActiveControl() const = 0;
};

using FormPtr = std::shared_ptr<Form>;

}  // namespace tessaria::host
