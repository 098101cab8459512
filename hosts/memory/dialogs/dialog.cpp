#include "tessaria/memory/dialogs/dialog.h"

#include <utility>

namespace tessaria::memory {

host::DialogPtr Dialog::Make(std::shared_ptr<DialogWorld> world,
                             const host::DialogDescription& description) {
  const std::shared_ptr<Dialog> dialog(new Dialog(std::move(world), description));
  dialog->Build();
  // The handle is separate from the window, which outlives it inside its modal loop.
  return {dialog.get(), [dialog](host::Dialog*) { dialog->Abandon(); }};
}

Dialog::Dialog(std::shared_ptr<DialogWorld> world, const host::DialogDescription& description)
    : SurfaceOf(std::move(world), description),
      caption_(description.Caption),
      width_(World().DialogWidth),
      height_(World().DialogHeight) {}

void Dialog::ShowModal() {
  const auto alive = shared_from_this();
  const bool isFirst = !std::exchange(wasShown_, true);
  ShowWidgets();
  TheForm().RunEvent([&] {
    if (isFirst) Raise(OnResize);
    Raise(OnActivate);
  });
  WorkInFront();
  if (Dialog* below = World().Script.InFront(); below && below->IsShown()) below->Reactivate();
}

/// Keeps a window in front until its script ends, even with an exception.
class Dialog::InFront {
 public:
  explicit InFront(Dialog& dialog) : dialog_(dialog) {
    dialog.World().Script.Opened(dialog, String(dialog.Name()));
  }
  InFront(const InFront&) = delete;
  InFront& operator=(const InFront&) = delete;
  ~InFront() {
    dialog_.Hide();
    dialog_.World().Script.Closed();
  }

 private:
  Dialog& dialog_;
};

void Dialog::WorkInFront() {
  const InFront inFront(*this);
  const String name(Name());
  const auto script = World().Script.Take(name);
  if (!script) return;
  script(*this);
  if (IsShown()) World().Script.Fault(u"The script left the window " + name + u" open");
}

void Dialog::Size(Long width, Long height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  if (IsShown()) Raise(OnResize);
}

// --- The operator -------------------------------------------------------------------------------

void Dialog::Resize(Long width, Long height) {
  Act([&] { Size(width, height); });
}

void Dialog::CloseWindow() {
  Act([&] { OnCloseRequest ? Raise(OnCloseRequest) : Hide(); });
}

void Dialog::Reactivate() {
  Act([&] { Raise(OnActivate); });
}

}  // namespace tessaria::memory
