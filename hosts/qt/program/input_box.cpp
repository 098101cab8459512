#include "hosts/qt/program/input_box.h"

#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

#include "hosts/qt/program/modal_box.h"

namespace tessaria::qt {
namespace {

/// Average characters that the line has room for at least.
constexpr int kCharacters = 40;

/// The prompt is shown literally, and names the line for screen readers.
void dress(QInputDialog& box, const QString& prompt) {
  auto* line = box.findChild<QLineEdit*>();
  line->setAccessibleName(prompt);
  line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kCharacters);
  for (QLabel* label : box.findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
}

}  // namespace

QString showInputBox(QWidget* owner, const QString& prompt, const QString& title,
                     const QString& offered) {
  const QString text = withLineEnds(prompt);
  // On the heap: the window may be destroyed under the box, and the box with it.
  const QPointer<QInputDialog> box(new QInputDialog(windowOfBox(owner)));
  box->setObjectName(QStringLiteral("InputBox"));
  box->setWindowTitle(title.isEmpty() ? QGuiApplication::applicationDisplayName() : title);
  box->setInputMode(QInputDialog::TextInput);
  box->setLabelText(QString(text).replace(QLatin1Char('&'), QLatin1String("&&")));
  box->setTextValue(offered);
  box->setOkButtonText(QStringLiteral("OK"));
  box->setCancelButtonText(QStringLiteral("Cancelar"));
  dress(*box, text);
  const QPointer<QWidget> window(runBox(*box, owner));
  const QString answer = box && box->result() == QDialog::Accepted ? box->textValue() : QString();
  delete box;
  returnTo(window);
  return answer;
}

}  // namespace tessaria::qt
