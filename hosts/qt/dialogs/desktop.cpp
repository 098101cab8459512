#include "hosts/qt/dialogs/desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QScreen>
#include <cmath>

#include "hosts/qt/dialogs/dialog.h"
#include "hosts/qt/widgets/folders.h"
#include "hosts/qt/widgets/volumes.h"
#include "tessaria/conversion.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"

namespace tessaria::qt {
namespace {

const QScreen& screenInUse() {
  const QWidget* window = QApplication::activeWindow();
  return window ? *window->screen() : *QGuiApplication::primaryScreen();
}

Long twips(int pixels, qreal dotsPerInch) {
  return static_cast<Long>(std::lround(pixels * kTwipsPerInch / dotsPerInch));
}

}  // namespace

Long Desktop::ScreenWidth() const {
  const QScreen& screen = screenInUse();
  return twips(screen.availableGeometry().right() + 1, screen.logicalDotsPerInchX());
}

Long Desktop::ScreenHeight() const {
  const QScreen& screen = screenInUse();
  return twips(screen.availableGeometry().bottom() + 1, screen.logicalDotsPerInchY());
}

Date Desktop::Today() const { return CDate(toVariant(QDate::currentDate())); }

host::DialogPtr Desktop::MakeDialog(const host::DialogDescription& description) {
  return Dialog::make(description);
}

void Desktop::Busy(bool busy) {
  busy ? QGuiApplication::setOverrideCursor(Qt::WaitCursor)
       : QGuiApplication::restoreOverrideCursor();
}

void Desktop::ClipboardText(const String& text) {
  QGuiApplication::clipboard()->setText(toQt(text));
}

String Desktop::Dir(const String& pattern) const { return fromQt(firstFile(toQt(pattern))); }

bool Desktop::DriveReady(const String& drive) const { return isReady(toQt(drive)); }

}  // namespace tessaria::qt
