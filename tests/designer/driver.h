// The real Qt Designer, as a test inside it sees and drives it.
#pragma once

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormEditorPluginInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>

#include <QMessageBox>
#include <QPoint>
#include <QPointer>
#include <QStringList>
#include <QUndoStack>
#include <QWidget>
#include <functional>
#include <utility>

#include "tessaria/qt/tstext.h"
#include "tests/qt/printers.h"

namespace tessaria::tests {

QDesignerFormEditorInterface& designer();

/// The open form whose file has that name; the test fails without one.
QDesignerFormWindowInterface* openForm(const QString& file);
qt::TsText* fieldOf(QDesignerFormWindowInterface& form, const QString& name);

/// Brings the form to the front, with one widget selected.
void select(QDesignerFormWindowInterface& form, QWidget& widget);

/// Changes a property of the selected widget as Designer's property editor does.
void edit(QDesignerFormWindowInterface& form, const QString& property, const QVariant& value);

/// Runs xdotool, which moves the real mouse and presses real keys, and waits for it.
void operate(const QStringList& command);
void dragTo(const QPoint& from, const QPoint& to);

/// Waits until the condition holds; false after some seconds.
bool waitFor(const std::function<bool()>& condition);

/// What Qt and Designer have printed since the last call.
QStringList takeMessages();

/// The boxes that are shown meanwhile, which it answers.
class BoxWatch final : public QObject {
 public:
  BoxWatch();
  ~BoxWatch() override;
  QStringList takeTexts() { return std::exchange(texts_, {}); }
  /// The names of the windows that the window system keeps the boxes in front of.
  QStringList takeOwners() { return std::exchange(owners_, {}); }
  bool eventFilter(QObject* object, QEvent* event) override;

  /// Answers a box that is in front. Without it boxes are closed at once.
  std::function<void()> answer;

 private:
  void note(QMessageBox& box);

  QStringList texts_, owners_;
};

/// Runs all tests once Designer has shown its forms, and ends Designer with their result.
class Driver final : public QObject, public QDesignerFormEditorPluginInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerFormEditorPluginInterface")
  Q_INTERFACES(QDesignerFormEditorPluginInterface)

 public:
  bool isInitialized() const override { return core_ != nullptr; }
  void initialize(QDesignerFormEditorInterface* core) override;
  QAction* action() const override { return nullptr; }
  QDesignerFormEditorInterface* core() const override { return core_; }

 private:
  void start();
  void run();

  QPointer<QDesignerFormEditorInterface> core_;
};

}  // namespace tessaria::tests
