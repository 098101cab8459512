// A whole control on a memory form: surface, box, button and what they drive.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/memory/command_button.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/part.h"
#include "tessaria/memory/text_box.h"

namespace tessaria {
class tsText;
struct FieldSettings;
}  // namespace tessaria

namespace tessaria::memory {

/// An event that a control raised.
struct TESSARIA_MEMORY_API ControlEvent {
  enum class Kind { Show, Change, KeyDown, KeyPress, KeyUp, BrowseReturn };
  Kind What;
  Integer Code = 0;   ///< key events
  Integer Shift = 0;  ///< key-down and key-up
  bool HouveAlteracao = false;
  Variant LastValue = {};  ///< BrowseReturn
};

/// A control as a form holds it. Each step of a key goes to the surface and then to the box. The
/// control itself exists until the form ends; its widget raises 91 from the moment that the form
/// closes.
class TESSARIA_MEMORY_API TsText final : public PartWith<host::TsTextWidget> {
 public:
  /// A newly placed control.
  explicit TsText(String name);
  /// A control loaded from what was stored.
  TsText(String name, const host::PropertyBag& stored);
  /// A control with these settings, loaded without side effects.
  explicit TsText(const FieldSettings& settings);
  ~TsText() override;

  _tsText& Control() const override;
  /// The same with all its properties. Error 91 when the form has ended.
  tsText& operator*() const;
  tsText* operator->() const { return &**this; }

  TextBox& txtEdit() { return box_; }
  CommandButton& btnBrowse() { return button_; }
  /// Presses the button on the surface, which takes the focus first.
  void ClickButton();
  /// A new size for the surface, in twips.
  void Resize(Long width, Long height);

  // --- What happened -----------------------------------------------------------------------------
  const std::vector<ControlEvent>& Events() const { return log_; }
  /// The events of one kind.
  std::vector<ControlEvent> Events(ControlEvent::Kind kind) const;
  void ForgetEvents() { log_.clear(); }
  /// Names of the properties that were reported as changed, in order.
  const std::vector<String>& ChangedProperties() const { return changed_; }
  Colour SurfaceColour() const { return surfaceColour_; }

  // --- The application's handlers ----------------------------------------------------------------
  /// The first show at run time is complete.
  std::function<void()> OnShow;
  /// The text in the box has changed.
  std::function<void()> OnChange;
  /// A key went down in the field. Code 0 swallows it.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  /// A key gives a character. Code 0 swallows it.
  std::function<void(Integer& KeyAscii)> OnKeyPress;
  /// A key was released.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyUp;
  /// The field was settled; the second argument is the previous value.
  std::function<void(bool& HouveAlteracao, Variant& LastValue)> OnBrowseReturn;

  Variant Get(const String& property) const override;
  void Let(const String& property, const Variant& value) override;

  void FirstShow() override;
  ShowRank Rank() const override;
  bool TakesFocus() const override;
  void Enter() override;
  ExitVerdict Leave() override;
  bool HasToSettle(const String& action) const override;
  ExitVerdict Settle() override;
  void Hold(const Stroke& stroke) override;
  void Release(const Stroke& stroke) override;
  void Terminate() override;

 private:
  class Site;
  class EventSink;
  enum class Inner { Box, Button };

  /// What the constructors share, before the control's own start values.
  void Create();
  void LoadFrom(const host::PropertyBag& stored);
  bool HasFocus() const;
  ExitVerdict Exit();
  void FocusInner(Inner inner);
  void ShowInnerFocus();

  TextBox box_;
  CommandButton button_;
  std::unique_ptr<Site> site_;
  std::unique_ptr<EventSink> sink_;
  std::unique_ptr<tsText> core_;
  std::unique_ptr<tsText> retired_;  ///< the control of a closed form, kept to the end
  Inner inner_ = Inner::Box;         ///< where the focus is when the surface has it
  bool entered_ = false;
  std::vector<ControlEvent> log_;
  std::vector<String> changed_;
  Colour surfaceColour_ = host::colour::ButtonFace;
};

}  // namespace tessaria::memory
