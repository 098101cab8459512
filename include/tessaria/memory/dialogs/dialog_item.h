// What every widget of a memory surface has.
#pragma once

#include <memory>
#include <utility>

#include "tessaria/export.h"
#include "tessaria/host/dialog.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/keys.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// A widget as its surface keeps it.
class TESSARIA_MEMORY_API DialogItem {
 public:
  explicit DialogItem(std::shared_ptr<memory::Part> part) : part_(std::move(part)) {}
  DialogItem(const DialogItem&) = delete;
  DialogItem& operator=(const DialogItem&) = delete;
  virtual ~DialogItem() = default;

  virtual host::DialogWidget& Port() = 0;
  /// What the widget does with a key that all handlers left alone; false when it has no use for it.
  virtual bool OwnKey(const Stroke&) { return false; }
  /// A click of the mouse, or the mnemonic of the caption. The widget has the focus if it takes it.
  virtual void Click() {}
  /// The caption with the mnemonic that clicks the widget; "" for none.
  virtual String Mnemonic() const { return {}; }
  /// The surface is gone: no handler runs any more.
  virtual void Abandon() { abandoned_ = true; }

  const std::shared_ptr<memory::Part>& Part() const { return part_; }
  /// Whether the operator can reach the widget.
  bool CanBeWorked() const { return part_->CanBeUsed(); }

 protected:
  /// The slot is copied, since its owner may go away while it runs.
  template <class Slot, class... Arguments>
  void Raise(const Slot& slot, Arguments&&... arguments) const {
    if (abandoned_) return;
    if (const Slot copy = slot) copy(std::forward<Arguments>(arguments)...);
  }
  /// To be called when the widget, or what stands in it, may have become unusable.
  void LeaveUnusable() {
    if (const auto form = part_->OwnerForm()) form->LeaveUnusable();
  }
  memory::Part::State& Place() { return part_->Settings(); }
  const memory::Part::State& Place() const { return part_->Settings(); }

 private:
  std::shared_ptr<memory::Part> part_;
  bool abandoned_ = false;
};

/// A widget of the given port: what all of them share.
template <class PortType>
class TESSARIA_MEMORY_API DialogItemOf : public PortType, public DialogItem {
 public:
  explicit DialogItemOf(std::shared_ptr<memory::Part> part) : DialogItem(std::move(part)) {
    Part()->OnEntered = [this] { Raise(this->OnGotFocus); };
    Part()->OnLeft = [this] { Raise(this->OnLostFocus); };
  }

  host::DialogWidget& Port() override { return *this; }

  String Container() const override {
    const auto* around = dynamic_cast<const memory::Part*>(Place().Container.get());
    return around == nullptr ? String() : around->Settings().Name;
  }
  Long Page() const override { return Place().Page; }
  Long Left() const override { return Place().Left; }
  void Left(Long twips) override { Place().Left = twips; }
  Long Top() const override { return Place().Top; }
  void Top(Long twips) override { Place().Top = twips; }
  Long Width() const override { return Place().Width; }
  void Width(Long twips) override { Place().Width = twips; }
  Long Height() const override { return Place().Height; }
  void Height(Long twips) override { Place().Height = twips; }
  bool Visible() const override { return Place().Visible; }
  void Visible(bool visible) override {
    Place().Visible = visible;
    LeaveUnusable();
  }
  bool Enabled() const override { return Place().Enabled; }
  void Enabled(bool enabled) override {
    Place().Enabled = enabled;
    LeaveUnusable();
  }
  bool TabStop() const override { return Place().TabStop; }
  void TabStop(bool stop) override { Place().TabStop = stop; }
  void SetFocus() override {
    if (const auto form = Part()->OwnerForm()) form->MoveFocusTo(Part());
  }
};

}  // namespace tessaria::memory
