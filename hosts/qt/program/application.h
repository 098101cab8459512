// The application port over QApplication.
#pragma once

#include <QIcon>

#include "tessaria/host/application.h"

namespace tessaria::qt {

class Host;

/// A picture file as Qt loads it, in all the sizes that it holds.
class Picture final : public host::Picture {
 public:
  explicit Picture(QIcon icon) : icon_(std::move(icon)) {}
  const QIcon& icon() const { return icon_; }

 private:
  QIcon icon_;
};

class Application final : public host::Application {
 public:
  explicit Application(Host& host) : host_(host) {}

  String Path() const override;
  char16_t PathSeparator() const override;
  bool FileExists(const String& path) const override;
  std::shared_ptr<host::Picture> LoadPicture(const String& path) override;
  void Beep() override;
  /// Serves all but what the operator types and clicks, which comes later.
  void DoEvents() override;
  /// A handle that stands for no widget gives the active window as owner.
  Long ShowMessageBox(Long owner, const String& text, Long style, const String& title) override;

 private:
  void tellOfBox(QWidget* window, const QString& text, const QString& title, Long style);

  Host& host_;
  bool telling_ = false;
};

}  // namespace tessaria::qt
