// The application port over QApplication.
#pragma once

#include <QString>
#include <functional>
#include <utility>

#include "tessaria/host/application.h"

class QWidget;

namespace tessaria::qt {

class Application final : public host::Application {
 public:
  /// Who hears of what the operator is about to see and hear. Errors are shown as unhandled ones.
  struct Listener {
    std::function<void(const QString& text, const QString& title, int style)> boxShown;
    std::function<void()> beeped;
  };
  explicit Application(Listener listener) : listener_(std::move(listener)) {}

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

  const Listener listener_;
  bool telling_ = false;
};

}  // namespace tessaria::qt
