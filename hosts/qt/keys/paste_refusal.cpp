#include "hosts/qt/keys/paste_refusal.h"

#include <QAccessible>
#include <QToolTip>
#include <QWidget>

#include "hosts/qt/keys/text_edit.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

constexpr int kShownFor = 5000;  // milliseconds

}  // namespace

void tellRefusedPaste(TextEdit& edit) {
  const QString text = QStringLiteral("O texto não cabe neste campo e não foi colado.");
  App().Beep();
  QWidget& face = edit.widget();
  edit.describeUntilChange(text);
  QAccessibleEvent alert(&face, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  QToolTip::showText(face.mapToGlobal(QPoint(0, face.height())), text, &face, {}, kShownFor);
}

}  // namespace tessaria::qt
