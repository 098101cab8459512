// Every signal of the host's widgets with a handler that throws: the program continues.
#include <QApplication>
#include <QMetaMethod>
#include <QTest>
#include <QTimer>
#include <map>
#include <stdexcept>

#include "tessaria/host/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/host.h"
#include "tessaria/thread_state.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// Closes whatever is modal, including boxes that are not reported.
class Closer final : public QObject {
 public:
  Closer() { startTimer(1); }
  int closed = 0;

 protected:
  void timerEvent(QTimerEvent*) override {
    if (QWidget* modal = QApplication::activeModalWidget()) ++closed, modal->close();
  }
};

struct Thrower {
  const char* name;
  void (*throws)();
};
void PrintTo(const Thrower& row, std::ostream* out) { *out << row.name; }

class Signals : public testing::TestWithParam<Thrower> {
 protected:
  Signals() {
    auto connection = memory::Connection::CreateOpen();
    connection->AddTable(u"Cliente", {{.Name = u"Nome", .DefinedSize = 30}},
                         {{u"Ana"}, {u"Bia"}, {u"Caio"}});
    auto* layout = new QVBoxLayout(&window_);
    field_->setObjectName(QStringLiteral("txtNome"));
    field_->setUsaChecaRelacao(false);
    field_->setDataSource(QStringLiteral("dcCliente"));
    field_->setDataField(QStringLiteral("Nome"));
    data_->setObjectName(QStringLiteral("dcCliente"));
    connection->ConnectionString(u"DSN=Memoria");
    data_->setConnection(connection);
    data_->setRecordSource(QStringLiteral("Cliente"));
    layout->addWidget(field_);
    layout->addWidget(data_);
    showActive(window_);
    field_->setFocus();
    settleEvents();
    closer_.closed = 0;
  }
  QString nameInRow() {
    const auto value = data_->recordSet()->Fields().Item(u"Nome")->Value();
    return QString::fromStdU16String(*value.TryGet<String>());
  }
  /// Causes every signal of the class once while its handler throws.
  template <class Sender>
  void check(Sender* sender, const std::map<QByteArray, std::function<void()>>& causes) {
    const QMetaObject& meta = Sender::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
      const QMetaMethod method = meta.method(i);
      if (method.methodType() != QMetaMethod::Signal) continue;
      const auto cause = causes.find(method.name());
      ASSERT_NE(cause, causes.end()) << "nothing causes " << method.name().toStdString();
      Slot slot(GetParam().throws);
      const auto link = QObject::connect(sender, method, &slot, slot.method());
      ASSERT_TRUE(link);
      closer_.closed = 0;
      cause->second();
      QObject::disconnect(link);
      EXPECT_GT(slot.calls, 0) << method.name().toStdString();
      EXPECT_GT(closer_.closed, 0) << "nothing was said of " << method.name().toStdString();
      settleEvents();
    }
  }
  /// A slot without arguments, which any signal can be connected to.
  class Slot final : public QTimer {
   public:
    explicit Slot(void (*throws)()) : throws_(throws) {}
    int calls = 0;
    QMetaMethod method() const {
      return QTimer::staticMetaObject.method(QTimer::staticMetaObject.indexOfSlot("stop()"));
    }
    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override {
      if (call != QMetaObject::InvokeMetaMethod) return QTimer::qt_metacall(call, id, arguments);
      ++calls;
      throws_();
      return -1;
    }

   private:
    void (*throws_)();
  };

  Closer closer_;
  QWidget window_;
  TsText* const field_ = new TsText;
  Adodc* const data_ = new Adodc;
};

TEST_P(Signals, OfTheDataControl) {
  const auto edit = [this] { field_->setValue(QStringLiteral("Nova")); };
  check(data_, {{"leavingRow",
                 [&] {
                   edit();
                   EXPECT_FALSE(data_->moveNext()) << "the handler has not let the row go";
                   EXPECT_TRUE(data_->isEditPending());
                   EXPECT_TRUE(data_->cancelRow());
                 }},
                {"moved",
                 [&] {
                   EXPECT_TRUE(data_->moveNext());
                   EXPECT_EQ(nameInRow(), QStringLiteral("Bia"));
                   EXPECT_EQ(field_->text(), QStringLiteral("Bia"));
                   EXPECT_TRUE(data_->refresh());
                   EXPECT_EQ(nameInRow(), QStringLiteral("Ana"));
                 }},
                {"rowAdded",
                 [&] {
                   EXPECT_TRUE(data_->addRow());
                   EXPECT_EQ(field_->text(), QString());
                 }},
                {"rowSaved",
                 [&] {
                   edit();
                   EXPECT_TRUE(data_->saveRow());
                   EXPECT_FALSE(data_->isEditPending());
                   EXPECT_EQ(nameInRow(), QStringLiteral("Nova"));
                 }},
                {"rowCancelled",
                 [&] {
                   field_->setValue(QStringLiteral("Outra"));
                   EXPECT_TRUE(data_->cancelRow());
                   EXPECT_EQ(field_->text(), QStringLiteral("Nova"));
                 }},
                {"rowDeleted",
                 [&] {
                   EXPECT_TRUE(data_->deleteRow());
                   EXPECT_NE(nameInRow(), QStringLiteral("Nova"));
                 }},
                {"error", [&] { EXPECT_FALSE(data_->findRow(QStringLiteral("?? nada"))); }}});
}

TEST_P(Signals, OfAField) {
  auto* other = new TsText;
  other->setUsaChecaRelacao(false);
  window_.layout()->addWidget(other);
  settleEvents();
  const auto typed = [this] {
    field_->setFocus();
    settleEvents();
    const int before = field_->text().size();
    editOf(*field_)->setCursorPosition(before);
    type(window_, QStringLiteral("x"));
    EXPECT_TRUE(field_->text().contains(QLatin1Char('x')));
  };
  check(field_, {{"changed", typed},
                 {"keyDown", typed},
                 {"keyPress", typed},
                 {"keyUp", typed},
                 {"propertyChanged", [&] { field_->setMaxLength(20); }},
                 {"valueChanged", [&] { field_->setValue(QStringLiteral("Zoe")); }},
                 {"textoChanged", [&] { field_->setTexto(QStringLiteral("Zeca")); }},
                 {"enabledChanged", [&] { field_->setEnabled(!field_->isFieldEnabled()); }},
                 {"lastValidaStatusChanged",
                  [&] { field_->setLastValidaStatus(!field_->lastValidaStatus()); }},
                 {"shown",
                  [&] {
                    // Raised once for each field: this one was already shown.
                    QWidget form;
                    auto* fresh = new TsText(&form);
                    QObject::connect(fresh, &TsText::shown, field_, &TsText::shown);
                    showActive(form);
                    EXPECT_TRUE(form.isVisible());
                  }},
                 {"browseReturn",
                  [&] {
                    typed();
                    const QString text = field_->text();
                    other->setFocus();
                    settleEvents();
                    EXPECT_EQ(nameInRow(), text);
                  }},
                 {"unhandledError", [&] { field_->setBrowse(QVariant(5)); }}});
}

TEST_P(Signals, OfTheProgramAsAHost) {
  check(&install(),
        {{"boxShown", [] { State().application->ShowMessageBox(0, u"Oi", 0, u"Alerta!"); }},
         {"beeped", [] { State().application->Beep(); }}});
}

INSTANTIATE_TEST_SUITE_P(
    Throwing, Signals,
    testing::Values(Thrower{"another exception", [] { throw std::runtime_error("nada feito"); }},
                    Thrower{"a run-time error", [] { throw HostError(errors::InvalidArgument); }}));

}  // namespace
}  // namespace tessaria::qt::tests
