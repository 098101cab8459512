#include "tests/designer/operator_hands.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <stdexcept>

#include "tessaria/odbc/connection.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"

namespace tessaria::tests {

host::ConnectionPtr connect(const QString& text) {
  auto connection = odbc::CreateConnection();
  connection->ConnectionString(qt::fromQt(text));
  return connection;
}

qt::TsText& field(const QWidget& form, const char* name) {
  auto* found = form.findChild<qt::TsText*>(QLatin1String(name));
  if (!found) throw std::runtime_error(std::string("no field ") + name);
  return *found;
}

bool showForm(QWidget& form) {
  const auto connection = connect(QStringLiteral("DSN=loja"));
  connection->Open();
  form.setProperty("dbForm", QVariant::fromValue(connection));
  form.show();
  return QTest::qWaitForWindowActive(&form);
}

void type(const QString& text) {
  for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  QTest::qWait(50);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  QTest::qWait(50);
}

void inWindow(const char* name, std::function<void(QWidget& window)> work) {
  auto* untilOpen = new QTimer(qApp);
  QObject::connect(untilOpen, &QTimer::timeout, [=, work = std::move(work)] {
    QWidget* front = QApplication::activeModalWidget();
    if (!front || front->objectName() != QLatin1String(name)) return;
    untilOpen->stop();
    untilOpen->deleteLater();
    work(*front);
  });
  untilOpen->start(50);
}

Boxes::Boxes() { qApp->installEventFilter(this); }

bool Boxes::eventFilter(QObject* object, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(object);
  if (!box || event->type() != QEvent::Show) return false;
  std::printf("box: %s\n", qPrintable(box->text()));
  QTimer::singleShot(0, box, &QDialog::reject);
  return false;
}

}  // namespace tessaria::tests
