#include "hosts/qt/program/application.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/boundary/held_input.h"
#include "hosts/qt/boundary/operator_action.h"
#include "hosts/qt/boundary/window_in_front.h"
#include "hosts/qt/conversion/picture.h"
#include "hosts/qt/program/input_box.h"
#include "hosts/qt/program/message_box.h"
#include "tessaria/error.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr Long kInvalidPicture = 481;

}  // namespace

String Application::Path() const { return fromQt(QCoreApplication::applicationDirPath()); }

// Qt's own paths have "/" on every system.
char16_t Application::PathSeparator() const { return u'/'; }

bool Application::FileExists(const String& path) const { return QFileInfo(toQt(path)).isFile(); }

std::shared_ptr<host::Picture> Application::LoadPicture(const String& path) {
  const QString file = toQt(path);
  if (!FileExists(path)) throw HostError(errors::FileNotFound);
  QImageReader reader(file);
  reader.setDecideFormatFromContent(true);
  QIcon icon;
  for (QImage image; reader.read(&image); image = QImage())
    icon.addPixmap(QPixmap::fromImage(image));
  if (icon.isNull()) throw HostError(kInvalidPicture);
  return std::make_shared<Picture>(icon);
}

void Application::Beep() {
  QApplication::beep();
  guarded(QApplication::activeWindow(), [this] { listener_.beeped(); });
}

// The core processes events in the middle of its work on a text. A key that ran there would find
// the text half changed: it waits until the work is done.
void Application::DoEvents() {
  const HeldInput held;
  const DuringAction background(0);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

Long Application::ShowMessageBox(Long owner, const String& text, Long style, const String& title) {
  QWidget* window = widgetOf(owner);
  window = window ? window->window() : windowInFront();
  tellOfBox(window, toQt(text), toQt(title), style);
  return showMessageBox(window, toQt(text), style, toQt(title));
}

String Application::ShowInputBox(const String& prompt, const String& title, const String& offered) {
  return fromQt(showInputBox(windowInFront(), toQt(prompt), toQt(title), toQt(offered)));
}

std::vector<String> Application::DataSourceNames() const {
  std::vector<String> names;
  if (layer_.DataSourceNames) names = layer_.DataSourceNames();
  std::stable_sort(names.begin(), names.end(), [](const String& a, const String& b) {
    return toQt(a).compare(toQt(b), Qt::CaseInsensitive) < 0;
  });
  return names;
}

std::shared_ptr<host::Connection> Application::NewConnection() {
  return layer_.NewConnection ? layer_.NewConnection() : nullptr;
}

/// A handler that fails causes one more box, which is not reported to the handler.
void Application::tellOfBox(QWidget* window, const QString& text, const QString& title,
                            Long style) {
  if (telling_) return;
  telling_ = true;
  guarded(window, [&] { listener_.boxShown(text, title, style); });
  telling_ = false;
}

}  // namespace tessaria::qt
