#include "hosts/qt/keys/paste_refusal.h"

#include <QAccessible>
#include <QToolTip>

#include "hosts/qt/keys/line_edit.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

constexpr int kShownFor = 5000;  // milliseconds

}  // namespace

void tellRefusedPaste(LineEdit& edit) {
  const QString text = QStringLiteral("O texto não cabe neste campo e não foi colado.");
  App().Beep();
  edit.describeUntilChange(text);
  QAccessibleEvent alert(&edit, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  QToolTip::showText(edit.mapToGlobal(QPoint(0, edit.height())), text, &edit, {}, kShownFor);
}

}  // namespace tessaria::qt
