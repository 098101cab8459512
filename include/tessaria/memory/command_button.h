// The button inside a control, without a screen.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/widgets.h"

namespace tessaria::memory {

/// A push button that keeps what is assigned to it.
class TESSARIA_MEMORY_API CommandButton final : public host::CommandButton {
 public:
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override { visible_ = visible; }
  bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override { enabled_ = enabled; }
  Long Left() const override { return left_; }
  void Left(Long twips) override { left_ = twips; }
  Long Height() const override { return height_; }
  void Height(Long twips) override { height_ = twips; }
  std::shared_ptr<host::Picture> Picture() const override { return picture_; }
  void Picture(std::shared_ptr<host::Picture> picture) override { picture_ = std::move(picture); }

  bool CanBePressed() const { return visible_ && enabled_; }
  /// A press by the operator: nothing happens to a hidden or disabled button.
  void Press() {
    if (!CanBePressed()) return;
    if (const auto click = OnClick) click();
  }

 private:
  bool visible_ = true;
  bool enabled_ = true;
  Long left_ = 0;
  Long height_ = 255;
  std::shared_ptr<host::Picture> picture_;
};

}  // namespace tessaria::memory
