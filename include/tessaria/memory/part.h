// What a memory form knows about everything that is on it.
#pragma once

#include <functional>
#include <memory>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/form.h"
#include "tessaria/memory/keys.h"
#include "tessaria/memory/late_bound.h"
#include "tessaria/tstext_interface.h"

namespace tessaria::memory {

class Form;

/// One control of a form, as the form drives it. Plain state, in twips, for tests to set.
class TESSARIA_MEMORY_API Part : public std::enable_shared_from_this<Part> {
 public:
  /// What a control has on every form.
  struct State {
    String Name;
    String TypeName;
    Long Left = 0;
    Long Top = 0;
    Long Width = 1215;
    Long Height = 315;
    bool Visible = true;
    bool Enabled = true;
    bool TabStop = true;
    host::WidgetPtr Container;  ///< null: the form itself
    Long Page = -1;             ///< of a container with pages, from 0
  };

  Part(String name, String typeName);
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;
  virtual ~Part() = default;

  State& Settings() { return state_; }
  const State& Settings() const { return state_; }
  /// The properties by name; a test may add some.
  LateBound& Properties() { return properties_; }
  const LateBound& Properties() const { return properties_; }

  virtual host::WidgetPtr AsWidget() = 0;
  /// The form that the control is on; null when there is none, or when it is gone.
  std::shared_ptr<Form> OwnerForm() const { return owner_.lock(); }
  bool IsGone() const { return gone_; }
  /// Whether the operator can reach it: what it stands in counts too.
  bool CanBeUsed() const;
  /// Whether what stands on that page can be reached.
  virtual bool IsInFront(Long) const { return true; }

  // --- What the form calls -----------------------------------------------------------------------
  /// Both are the form, which the part does not keep alive.
  void PlaceOn(const std::shared_ptr<Form>& form, const host::WidgetPtr& asWidget) {
    owner_ = form;
    ownerWidget_ = asWidget;
  }
  /// The form is loading at run time: called before every first show.
  virtual void Load() {}
  virtual void FirstShow() {}
  /// Place in the order of the first shows; controls of the same rank keep the order of creation.
  enum class ShowRank { Unbound, Key, Bound, Description };
  virtual ShowRank Rank() const { return ShowRank::Unbound; }
  /// Whether the control can have the focus now.
  virtual bool TakesFocus() const { return false; }
  virtual void Enter() {}
  virtual ExitVerdict Leave() { return ExitVerdict::Left; }
  /// Whether an action of that name has something to settle here first.
  virtual bool HasToSettle(const String&) const { return false; }
  /// Checks and assigns as `Leave` does, while the focus stays.
  virtual ExitVerdict Settle() { return ExitVerdict::Left; }
  /// A key goes down while the control has the focus.
  virtual void Hold(const Stroke&) {}
  /// A key is released while the control has the focus.
  virtual void Release(const Stroke&) {}
  virtual void Click() {}
  /// From now on every call of the widget raises 91.
  void MarkGone() { gone_ = true; }
  virtual void Terminate() {}

  // --- What a surface connects: the form raises them when the change of focus is done ------------
  /// The control has been entered.
  std::function<void()> OnEntered;
  /// The control has been left.
  std::function<void()> OnLeft;

 protected:
  /// The form that the control is on, as a widget; null as for `OwnerForm`.
  host::WidgetPtr OwnerWidget() const { return ownerWidget_.lock(); }

 private:
  State state_;
  LateBound properties_;
  std::weak_ptr<Form> owner_;
  std::weak_ptr<host::Widget> ownerWidget_;
  bool gone_ = false;
};

/// A control that its form sees through the given port.
template <class Port>
class TESSARIA_MEMORY_API PartWith : public Port, public Part {
 public:
  using Part::Part;

  host::WidgetPtr AsWidget() override { return std::shared_ptr<Port>(shared_from_this(), this); }

  String Name() const override { return Live().Name; }
  String TypeName() const override { return Live().TypeName; }
  Long Left() const override { return Live().Left; }
  Long Top() const override { return Live().Top; }
  Long Height() const override { return Live().Height; }
  host::WidgetPtr Container() const override {
    return Live().Container ? Live().Container : OwnerWidget();
  }
  Variant Get(const String& property) const override {
    Live();
    return Properties().Get(property);
  }
  void Let(const String& property, const Variant& value) override {
    Live();
    Properties().Let(property, value);
  }

 protected:
  /// Error 91 when the widget is gone.
  const State& Live() const {
    if (IsGone()) throw HostError(errors::ObjectNotSet);
    return Settings();
  }
  State& Live() {
    if (IsGone()) throw HostError(errors::ObjectNotSet);
    return Settings();
  }
};

}  // namespace tessaria::memory
