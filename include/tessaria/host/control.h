// What one control needs from its surroundings.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/host/form.h"
#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria::host {

/// Stored settings by key, compared without regard to case.
class TESSARIA_CORE_API PropertyBag {
 public:
  PropertyBag() = default;
  PropertyBag(const PropertyBag&) = delete;
  PropertyBag& operator=(const PropertyBag&) = delete;
  virtual ~PropertyBag() = default;

  /// The stored value, or `byDefault` when the key is not there.
  /// Error 13 when what is stored cannot be read.
  virtual Variant ReadProperty(const String& name, const Variant& byDefault) const = 0;
  /// Stores the value unless it equals `byDefault`. A missing default means that no default
  /// is known: a value that equals Empty is then not stored.
  virtual void WriteProperty(const String& name, const Variant& value,
                             const Variant& byDefault) = 0;
};

/// An object that a property bag can hold.
class TESSARIA_CORE_API Persistent : public Object {
 public:
  /// The name by which the bag's reader recreates the object.
  virtual String ClassName() const = 0;
  /// Replaces the object's settings by those of the bag.
  virtual void ReadProperties(const PropertyBag& bag) = 0;
  /// Writes the object's settings to the bag.
  virtual void WriteProperties(PropertyBag& bag) const = 0;
};

/// Thrown by a control's ports when a handler has closed its form: the core abandons what it was
/// still about to do for the control. It is not a run-time error, so it passes every trap; the
/// host's event ends there, without a message to the operator.
struct TESSARIA_CORE_API ControlGone {};

/// The surroundings of one control: its ambient, its place on the form, its surface.
/// Owned by the host; lives as long as the control.
class TESSARIA_CORE_API ControlSite {
 public:
  ControlSite() = default;
  ControlSite(const ControlSite&) = delete;
  ControlSite& operator=(const ControlSite&) = delete;
  virtual ~ControlSite() = default;

  /// True when the form runs, false in the designer.
  virtual bool UserMode() const = 0;
  /// The control's name on its form.
  virtual String DisplayName() const = 0;
  virtual Font AmbientFont() const = 0;

  /// The form. Error 91 when the control is on none.
  virtual FormPtr Parent() const = 0;
  /// The control as its form sees it: position, height, container.
  virtual WidgetPtr Extender() const = 0;
  virtual bool TabStop() const = 0;
  virtual void TabStop(bool stop) = 0;

  /// A 32-bit token for the surface's window; 0 when it has none.
  virtual Long hWnd() const = 0;
  /// The surface, in twips.
  virtual Long Width() const = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  /// Colours the surface behind the box.
  virtual void BackColor(Colour colour) = 0;
  /// "txtEdit" or "btnBrowse". Error 91 when no inner widget is active.
  virtual String ActiveControlName() const = 0;

  /// A property of the control was assigned: the host tells its listeners, and a designer that the
  /// form is modified.
  virtual void PropertyChanged(const String& name) = 0;
};

}  // namespace tessaria::host
