// A push button with its own colours for caption and face.
#pragma once

#include <QPushButton>
#include <optional>

#include "tessaria/host/widgets.h"

namespace tessaria::qt {

/// With a colour, the caption is drawn literally, and moves down by a pixel while the button is
/// pressed. Without one it is an ordinary push button: "&" marks the mnemonic. Enter presses the
/// button that has the focus in any window.
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
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor penColour() const;

  QString caption_;
  std::optional<Colour> colour_;
  Colour backColour_ = host::colour::ButtonFace;
};

}  // namespace tessaria::qt
