// A push button whose caption and face have colours of their own.
#pragma once

#include <QPushButton>
#include <optional>

#include "tessaria/host/widgets.h"

namespace tessaria::qt {

/// With a colour the caption is written as it stands, and sinks by a pixel with the pressed
/// button. Without one it is a push button like any other: "&" marks the mnemonic.
class ColouredButton final : public QPushButton {
  Q_OBJECT

 public:
  ColouredButton(const QString& caption, QWidget* parent);

  const QString& caption() const { return caption_; }
  std::optional<Colour> textColour() const { return colour_; }
  void setTextColour(Colour colour);
  Colour backColour() const { return backColour_; }
  void setBackColour(Colour colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor penColour() const;

  QString caption_;
  std::optional<Colour> colour_;
  Colour backColour_ = host::colour::ButtonFace;
};

}  // namespace tessaria::qt
