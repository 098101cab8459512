// What every widget of a memory dialog has.
#pragma once

#include <memory>
#include <utility>

#include "tessaria/export.h"
#include "tessaria/host/dialog.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/keys.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// A widget as its dialog keeps it.
class TESSARIA_MEMORY_API DialogItem {
 public:
  explicit DialogItem(std::shared_ptr<memory::Part> part) : part_(std::move(part)) {}
  DialogItem(const DialogItem&) = delete;
  DialogItem& operator=(const DialogItem&) = delete;
  virtual ~DialogItem() = default;

  virtual host::DialogWidget& Port() = 0;
  /// What the widget does with a key that all handlers left alone.
  virtual void OwnKey(const Stroke&) {}

  const std::shared_ptr<memory::Part>& Part() const { return part_; }
  /// Whether the operator can reach the widget.
  bool CanBeWorked() const { return part_->Settings().Visible && part_->Settings().Enabled; }

 protected:
  memory::Part::State& Place() { return part_->Settings(); }
  const memory::Part::State& Place() const { return part_->Settings(); }

 private:
  std::shared_ptr<memory::Part> part_;
};

/// A widget of the given port: what all of them share.
template <class PortType>
class TESSARIA_MEMORY_API DialogItemOf : public PortType, public DialogItem {
 public:
  using DialogItem::DialogItem;

  host::DialogWidget& Port() override { return *this; }

  Long Left() const override { return Place().Left; }
  void Left(Long twips) override { Place().Left = twips; }
  Long Top() const override { return Place().Top; }
  void Top(Long twips) override { Place().Top = twips; }
  Long Width() const override { return Place().Width; }
  void Width(Long twips) override { Place().Width = twips; }
  Long Height() const override { return Place().Height; }
  void Height(Long twips) override { Place().Height = twips; }
  bool Visible() const override { return Place().Visible; }
  void Visible(bool visible) override { Place().Visible = visible; }
  bool Enabled() const override { return Place().Enabled; }
  void Enabled(bool enabled) override { Place().Enabled = enabled; }
  bool TabStop() const override { return Place().TabStop; }
  void TabStop(bool stop) override { Place().TabStop = stop; }
  void SetFocus() override {
    if (const auto form = Part()->OwnerForm()) form->MoveFocusTo(Part());
  }
};

}  // namespace tessaria::memory
