// Tells the widgets of a surface that the focus has come and gone.
#pragma once

#include <QObject>
#include <functional>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

/// Raises lost focus and got focus while Qt moves the focus, and so before the click that moves it.
/// Popups, boxes and other windows do not count, because the focus of the window stays where it
/// was.
class FocusRelay final : public QObject {
 public:
  using FindItem = std::function<DialogItem*(const QWidget* widget)>;
  FocusRelay(QWidget& face, const DialogGate& gate, FindItem find);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void moved(const QWidget* now);

  QWidget& face_;
  const DialogGate& gate_;
  FindItem find_;
  DialogItem* inside_ = nullptr;  ///< the widget that got the focus and has not lost it
};

}  // namespace tessaria::qt
