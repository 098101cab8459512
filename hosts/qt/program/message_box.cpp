#include "hosts/qt/program/message_box.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include "hosts/qt/program/modal_box.h"
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

/// A text that is too high for the screen, such as a statement of many fields, scrolls: the buttons
/// stay in reach. Qt makes the box as high as its text.
void boundText(QMessageBox& box) {
  auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  const QSize most = box.screen()->availableSize() / 2;
  if (!text || text->sizeHint().height() <= most.height()) return;
  auto* area = new QScrollArea(&box);
  const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize wanted = text->sizeHint().grownBy({0, 0, 2 * bar, 0});
  area->setMinimumSize(wanted.boundedTo(most));
  // Qt would show the bar for a text that has room enough.
  if (wanted.width() <= most.width()) area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidgetResizable(true);
  delete box.layout()->replaceWidget(text, area);
  area->setWidget(text);
}

}  // namespace

Long showMessageBox(QWidget* owner, const QString& text, Long style, const QString& title) {
  // On the heap: the window may be destroyed under the box, and the box with it.
  const QPointer<QMessageBox> box(
      new QMessageBox(iconOf(style), title, {}, QMessageBox::NoButton, windowOfBox(owner)));
  box->setTextFormat(Qt::PlainText);
  box->setText(withLineEnds(text));
  const QAbstractButton* yes = addButtons(*box, style);
  boundText(*box);
  const QPointer<QWidget> window(runBox(*box, owner));
  const bool saidYes = box && yes && box->clickedButton() == yes;
  delete box;
  returnTo(window);
  if (!asksYesNo(style)) return host::answer::Ok;
  return saidYes ? host::answer::Yes : host::answer::No;
}

}  // namespace tessaria::qt
