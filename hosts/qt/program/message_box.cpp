#include "hosts/qt/program/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "tessaria/host/application.h"

namespace tessaria::qt {
namespace {

constexpr Long kIconBits = 0xF0;

QMessageBox::Icon iconOf(Long style) {
  switch (style & kIconBits) {
    case host::box::Stop:
      return QMessageBox::Critical;
    case host::box::Question:
      return QMessageBox::Question;
    case host::box::Exclamation:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

bool asksYesNo(Long style) { return (style & host::box::YesNo) != 0; }

bool belongsTo(const QWidget* window, const QWidget* owner) {
  while (window && window != owner) window = window->parentWidget();
  return window && owner;
}

/// The window that the operator is working in: the owner, or the modal one that blocks it.
QWidget* windowInFront(QWidget* owner) {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal || belongsTo(owner, modal)) return owner;
  const bool blocks = modal->windowModality() == Qt::ApplicationModal || belongsTo(modal, owner);
  return blocks ? modal : owner;
}

/// Closes the box when a window that it belongs to is hidden or destroyed.
class OwnerWatch final : public QObject {
 public:
  explicit OwnerWatch(QMessageBox* box) : QObject(box), box_(box) {}
  void watch(QWidget* window) {
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, box_, &QDialog::reject);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide && !event->spontaneous()) box_->reject();
    return false;
  }

 private:
  QMessageBox* box_;
};

QPushButton* addButton(QMessageBox& box, const QString& text, QMessageBox::ButtonRole role) {
  QPushButton* button = box.addButton(text, role);
  button->setObjectName(QString(text).remove(QLatin1Char('&')));
  return button;
}

/// Adds the buttons; returns the one that means yes, if there is one.
QAbstractButton* addButtons(QMessageBox& box, Long style) {
  if (!asksYesNo(style)) {
    box.setDefaultButton(addButton(box, QStringLiteral("OK"), QMessageBox::AcceptRole));
    return nullptr;
  }
  QPushButton* yes = addButton(box, QStringLiteral("&Sim"), QMessageBox::YesRole);
  QPushButton* no = addButton(box, QStringLiteral("&Não"), QMessageBox::NoRole);
  box.setDefaultButton((style & host::box::DefaultNo) != 0 ? no : yes);
  box.setEscapeButton(no);
  return yes;
}

/// A lone carriage return is a line break too.
QString lines(QString text) {
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace

Long showMessageBox(QWidget* owner, const QString& text, Long style, const QString& title) {
  const QPointer<QWidget> window(windowInFront(owner));
  // On the heap: the window may be destroyed under the box, and the box with it.
  const QPointer<QMessageBox> box(
      new QMessageBox(iconOf(style), title, {}, QMessageBox::NoButton, window));
  box->setTextFormat(Qt::PlainText);
  box->setText(lines(text));
  const QAbstractButton* yes = addButtons(*box, style);
  auto* watch = new OwnerWatch(box);
  if (owner) watch->watch(owner);
  if (window && window != owner) watch->watch(window);
  box->exec();
  const bool saidYes = box && yes && box->clickedButton() == yes;
  delete box;
  // Not every window system returns the focus by itself.
  if (window && window->isVisible()) window->activateWindow();
  if (!asksYesNo(style)) return host::answer::Ok;
  return saidYes ? host::answer::Yes : host::answer::No;
}

}  // namespace tessaria::qt
