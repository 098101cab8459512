// The desktop of a program without a screen: scripts operate its windows.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog.h"
#include "tessaria/memory/dialogs/surface.h"

namespace tessaria::memory {

/// While it exists it is the desktop of its thread; its destructor restores the former one.
class TESSARIA_MEMORY_API Desktop final : public host::Desktop {
 public:
  /// `onFault` is called for everything that the scripts did not expect: a test fails in it.
  explicit Desktop(ModalScript::FaultHandler onFault);
  /// A script for which no window opened is a fault.
  ~Desktop() override;

  Long ScreenWidth() const override { return screenWidth_; }
  Long ScreenHeight() const override { return screenHeight_; }
  Date Today() const override { return today_; }
  host::DialogPtr MakeDialog(const host::DialogDescription& description) override;
  /// A hidden surface for somebody else's frame; the description must outlive it.
  std::shared_ptr<Surface> MakeSurface(const host::DialogDescription& description);
  void Busy(bool busy) override { busy_ += busy ? 1 : -1; }
  void ClipboardText(const String& text) override { clipboard_ = text; }
  String Dir(const String& pattern) const override { return world_->Files->Dir(pattern); }
  bool DriveReady(const String& drive) const override { return world_->Files->DriveReady(drive); }

  // --- The surroundings ------------------------------------------------------------------------
  /// Twips, as the sizes below.
  void ScreenSize(Long width, Long height);
  /// Sets what counts as today.
  void Today(Date day) { today_ = day; }
  /// The size of the windows to be made.
  void DialogSize(Long width, Long height);
  FileSystem& Files() { return *world_->Files; }
  /// Whether the wait pointer is shown.
  bool IsBusy() const { return busy_ > 0; }
  /// No value until a text is put there.
  const std::optional<String>& Clipboard() const { return clipboard_; }

  // --- The script ------------------------------------------------------------------------------
  /// Queues the script for the next window that opens, which must have this name. The window is
  /// hidden when the script has returned.
  void WillShow(StringView name, ModalScript::Script script) {
    world_->Script.WillShow(name, std::move(script));
  }
  /// Sets the script for every window that no queued script expects; with an empty one such a
  /// window is a fault.
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
