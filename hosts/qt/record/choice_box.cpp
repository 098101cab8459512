#include "hosts/qt/record/choice_box.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "hosts/qt/program/modal_box.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/host.h"

namespace tessaria::qt {

qsizetype chooseInBox(QWidget& owner, const QString& text, const QStringList& buttons) {
  QWidget* over = owner.window();
  const QString title = over->windowTitle();
  const int style = host::box::Question + host::box::YesNo;
  guarded(over, [&] { emit install().boxShown(text, title, style); });
  // On the heap: the window may be destroyed under the box, and the box with it.
  const QPointer<QMessageBox> box(
      new QMessageBox(QMessageBox::Question, title, {}, QMessageBox::NoButton, windowOfBox(over)));
  box->setTextFormat(Qt::PlainText);
  box->setText(text);
  QList<QAbstractButton*> answers;
  for (const QString& name : buttons) {
    QPushButton* button = box->addButton(name, QMessageBox::ActionRole);
    button->setObjectName(QString(name).remove(QLatin1Char('&')));
    box->setDefaultButton(button);
    box->setEscapeButton(button);
    answers << button;
  }
  const QPointer<QWidget> window(runBox(*box, over));
  const qsizetype answer = box ? answers.indexOf(box->clickedButton()) : -1;
  delete box;
  returnTo(window);
  return answer < 0 ? buttons.size() - 1 : answer;
}

}  // namespace tessaria::qt
