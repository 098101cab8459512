// The application port over QApplication.
#pragma once

#include <QString>
#include <functional>
#include <utility>

#include "tessaria/host/application.h"
#include "tessaria/qt/data_layer.h"

class QWidget;

namespace tessaria::qt {

class Application final : public host::Application {
 public:
  /// Called before a box is shown or a beep sounds. Errors are shown as unhandled ones.
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
  /// Processes all events except the operator's input, which is delivered later.
  void DoEvents() override;
  /// If the handle is that of no widget, the active window is the owner.
  Long ShowMessageBox(Long owner, const String& text, Long style, const String& title) override;
  /// Over the window that the operator is working in.
  String ShowInputBox(const String& prompt, const String& title, const String& offered) override;
  std::vector<String> DataSourceNames() const override;
  std::shared_ptr<host::Connection> NewConnection() override;

  void setDataLayer(DataLayer layer) { layer_ = std::move(layer); }

 private:
  void tellOfBox(QWidget* window, const QString& text, const QString& title, Long style);

  const Listener listener_;
  DataLayer layer_;
  bool telling_ = false;
};

}  // namespace tessaria::qt
