// A form without a screen: its controls, the focus, the keys.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/form.h"
#include "tessaria/memory/keys.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// A form that an operator, or a test in that role, works on.
///
/// The events of a focus change come in the order of a real form: the new control is already the
/// active one when the old one's surface is left; then the new surface is entered. When a control
/// takes the focus back while it is being left, the other one receives neither event, and the first
/// is entered again. A key-up belongs to the box that got the key-down.
///
/// Every action of the operator is an event: an error that leaves a handler is shown in a box and
/// kept in `UnhandledErrors`, and the form continues. A form closed by a handler is hidden and its
/// widgets raise 91 at once; its controls end when the outermost event has returned.
class TESSARIA_MEMORY_API Form final : public host::Form,
                                       public std::enable_shared_from_this<Form> {
 public:
  enum class Mode { Run, Design };
  /// A hidden form without controls.
  static std::shared_ptr<Form> Create(String name, Mode mode = Mode::Run);
  ~Form() override;

  String Name() const override;
  String TypeName() const override { return u"Form"; }
  Long Left() const override { return left_; }
  void Left(Long twips) { left_ = twips; }
  Long Top() const override { return top_; }
  void Top(Long twips) { top_ = twips; }
  Long Height() const override { return height_; }
  host::WidgetPtr Container() const override { return nullptr; }
  Variant Get(const String& property) const override;
  void Let(const String& property, const Variant& value) override;
  bool Visible() const override { return visible_; }
  host::WidgetPtr Controls(const String& name) const override;
  std::vector<host::WidgetPtr> Controls() const override;
  host::WidgetPtr ActiveControl() const override;

  // --- Building ------------------------------------------------------------------------------
  bool UserMode() const { return mode_ == Mode::Run; }
  /// Properties by name, `dbForm` among them once it is set.
  LateBound& Properties() { return properties_; }
  /// Sets the value of `dbForm`; Empty for a form that has the property but no connection in it.
  void DbForm(const Variant& connection) { properties_.AddValue(u"dbForm", connection); }
  /// Creates a control; on a form that is already shown it shows at once.
  template <class T, class... Arguments>
  std::shared_ptr<T> Add(Arguments&&... arguments) {
    auto part = std::make_shared<T>(std::forward<Arguments>(arguments)...);
    Place(part);
    return part;
  }
  /// Removes a control, as a program does while the form runs. Error 730 when there is none.
  void Remove(const String& name);

  // --- The life of the form --------------------------------------------------------------------
  /// The first call loads the data controls, then gives every control its first show (unbound ones
  /// first, then keys, the rest, descriptions), then focuses the first control that takes the
  /// focus.
  void Show();
  void Hide() { visible_ = false; }
  void Close();
  bool IsClosed() const { return closed_; }

  // --- Operator input ---------------------------------------------------------------------------
  /// Types each character with its key, or keys, wherever the focus is.
  void Type(StringView text);
  /// Tab and Shift+Tab move the focus and reach no control. Enter and Escape press the default and
  /// the cancel button when there is one, and otherwise go to the active control.
  void Press(Key key, Integer shift = modifier::None);
  /// Moves the focus to the control, if it takes the focus, and then presses it, unless the control
  /// that was left has taken the focus back. Error 730 when there is no control of that name.
  void Click(const String& name);
  /// Moves the focus to the control, if it takes the focus. Error 730 as above.
  void Focus(const String& name);
  /// Triggers a tool button, a menu entry or a shortcut of that name, which takes no focus: the
  /// control in focus is settled first, with a command button of the name as the active control.
  /// When that control refuses, the action does not run; a control whose `ObjetoCancelar` is the
  /// name is left alone.
  void RunAction(const String& name, const std::function<void()>& action);
  /// Closes the form by its frame: settles the control in focus, and stays open when that refuses.
  void CloseByFrame();
  /// `Hold` presses a key down; `Release` releases it wherever the focus is by then.
  void Hold(const Stroke& stroke);
  /// Releases a key that `Hold` has pressed.
  void Release(const Stroke& stroke);

  /// The errors that left the handlers of events.
  const std::vector<HostError>& UnhandledErrors() const { return unhandled_; }

  // --- What its parts call -----------------------------------------------------------------------
  /// Runs one event: reports an error that leaves it, and ends a closed form afterwards.
  void RunEvent(const std::function<void()>& event);
  /// Moves the focus; events follow at once, or when the running change of focus is done.
  void MoveFocusTo(const std::shared_ptr<Part>& part);
  /// Moves the focus on when the control that has it can no longer be used.
  void LeaveUnusable();
  /// Whether the control has the focus, or has just taken it.
  bool IsActive(const Part& part) const { return active_.get() == &part; }

 private:
  class Event;
  using PartPtr = std::shared_ptr<Part>;

  Form(String name, Mode mode);
  void RequireLife() const;
  void Place(const PartPtr& part);
  PartPtr Find(const String& name) const;
  PartPtr Require(const String& name) const;
  void Strike(const Stroke& stroke);
  bool Settle(const String& name);
  void MoveByTab(bool backwards);
  bool PressButton(bool(IsWanted)(const Part&));
  void ClickPart(const PartPtr& part);
  void DeliverFocus();
  void RaiseSlot(const std::function<void()>& slot);
  void FirstShow();
  void Report(const HostError& error);
  void End();

  String name_;
  Mode mode_;
  Long left_ = 0;
  Long top_ = 0;
  Long height_ = 6000;
  LateBound properties_;
  std::vector<PartPtr> parts_;    ///< in order of creation
  std::vector<PartPtr> removed_;  ///< taken away while an event runs
  PartPtr active_;                ///< has the focus, or has just taken it
  PartPtr entered_;               ///< was notified last that it has the focus
  bool delivering_ = false;
  host::WidgetPtr action_;  ///< counts as the active control
  bool visible_ = false;
  bool shown_ = false;
  bool closed_ = false;
  int eventDepth_ = 0;
  std::vector<HostError> unhandled_;
};

}  // namespace tessaria::memory
