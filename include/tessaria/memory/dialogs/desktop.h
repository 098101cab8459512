// The desktop of a program with no screen: its windows are worked by scripts.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog.h"

namespace tessaria::memory {

/// While it lives it is the desktop of its thread; at its end the former one is back.
class TESSARIA_MEMORY_API Desktop final : public host::Desktop {
 public:
  /// `onFault` hears of everything that the scripts did not foresee: a test fails in it.
  explicit Desktop(ModalScript::FaultHandler onFault);
  /// A script that no window came for is a fault.
  ~Desktop() override;

  Long ScreenWidth() const override { return screenWidth_; }
  Long ScreenHeight() const override { return screenHeight_; }
  Date Today() const override { return today_; }
  host::DialogPtr MakeDialog(const host::DialogDescription& description) override;
  void Busy(bool busy) override { busy_ += busy ? 1 : -1; }
  void ClipboardText(const String& text) override { clipboard_ = text; }
  String Dir(const String& pattern) const override { return world_->Files->Dir(pattern); }
  bool DriveReady(const String& drive) const override { return world_->Files->DriveReady(drive); }

  // --- The surroundings ------------------------------------------------------------------------
  /// Twips, as the sizes below.
  void ScreenSize(Long width, Long height);
  void Today(Date day) { today_ = day; }
  /// The size of the windows to be made.
  void DialogSize(Long width, Long height);
  FileSystem& Files() { return *world_->Files; }
  /// The pointer asks to wait.
  bool IsBusy() const { return busy_ > 0; }
  /// Nothing until something was put there.
  const std::optional<String>& Clipboard() const { return clipboard_; }

  // --- The script ------------------------------------------------------------------------------
  /// Queues who works the next window that opens, which must have this name. The script ends
  /// with the window hidden.
  void WillShow(StringView name, ModalScript::Script script) {
    world_->Script.WillShow(name, std::move(script));
  }
  /// Works every window that no script waits for; nothing makes such a window a fault.
  void WillShowOthers(ModalScript::Script script) { world_->Script.Unforeseen = std::move(script); }
  /// The names of the windows that were shown, in order.
  const std::vector<String>& Shown() const { return world_->Script.Shown(); }

 private:
  host::Desktop* former_;
  std::shared_ptr<DialogWorld> world_;
  Long screenWidth_ = 15360;
  Long screenHeight_ = 11520;
  Date today_;
  int busy_ = 0;
  std::optional<String> clipboard_;
};

}  // namespace tessaria::memory
