// The dialogs of a field: opened by its button and by PageDown, placed below it, and closed.
#include <QAbstractButton>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include "tessaria/comforts.h"
#include "tessaria/memory/connection.h"
#include "tessaria/qt/metatypes.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// Sets comforts during its lifetime.
class ComfortsOf {
 public:
  explicit ComfortsOf(const Comforts& on) { setComforts(on); }
  ComfortsOf(const ComfortsOf&) = delete;
  ComfortsOf& operator=(const ComfortsOf&) = delete;
  ~ComfortsOf() { setComforts({}); }
};

class FieldDialogs : public DialogFixture {
 protected:
  FieldDialogs() {
    owner_->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
    owner_->move(100, 80);
    settleEvents();
  }
  ~FieldDialogs() override { State().dbConexao = nullptr; }

  QAbstractButton& button() { return *field_->findChild<QAbstractButton*>(); }
  void open(const char* name, ModalDriver::Script script) {
    driver_.willShow(QLatin1String(name), std::move(script));
  }
  /// Checks that the window is below the field.
  void expectBelow(const QDialog& window) {
    const QPoint below = field_->mapToGlobal(QPoint(0, field_->height()));
    EXPECT_GE(window.frameGeometry().top(), below.y());
    EXPECT_LE(window.frameGeometry().top(), below.y() + 100);
    EXPECT_NEAR(window.frameGeometry().left(), below.x(), 30);
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
};

TEST_F(FieldDialogs, TheCalculatorOpensByButtonAndByPageDown) {
  field_->setTipoControle(TsText::Calculadora);
  field_->setTipoDado(5);
  field_->setMascara(QStringLiteral("$$$$$$$.$$"));
  open("frmCalculadora", [this](QDialog& w) {
    expectBelow(w);
    strike(w, QStringLiteral("12,5*2="));
  });
  click(button());
  EXPECT_EQ(field_->text(), QStringLiteral("25,00"));
  open("frmCalculadora", [](QDialog& w) { strike(w, QStringLiteral("+1=")); });
  press(*owner_, Qt::Key_PageDown);
  EXPECT_EQ(field_->text(), QStringLiteral("26,00"));
}

TEST_F(FieldDialogs, TheCalendarOpensByButtonAndByPageDown) {
  field_->setTipoControle(TsText::Calendario);
  field_->setTipoDado(7);
  field_->setMascara(QStringLiteral("dd/mm/yyyy"));
  field_->setValue(QStringLiteral("31/12/2016"));
  open("frmCalendario", [this](QDialog& w) {
    expectBelow(w);
    press(w, Qt::Key_Left);
    press(w, Qt::Key_Return);
  });
  click(button());
  EXPECT_EQ(field_->text(), QStringLiteral("30/12/2016"));
  open("frmCalendario", [this](QDialog& w) {
    expectBelow(w);
    press(w, Qt::Key_Left);
    press(w, Qt::Key_Return);
  });
  press(*owner_, Qt::Key_PageDown);
  EXPECT_EQ(field_->text(), QStringLiteral("29/12/2016"));
}

TEST_F(FieldDialogs, WithTheComfortACancelledCalendarChangesNothing) {
  const ComfortsOf on({.CalendarCancels = true});
  field_->setTipoControle(TsText::Calendario);
  field_->setTipoDado(7);
  field_->setMascara(QStringLiteral("dd/mm/yyyy"));
  const ModalDriver::Script ways[] = {[](QDialog& w) { press(w, Qt::Key_Escape); },
                                      [](QDialog& w) { w.close(); }};
  for (const auto& leave : ways) {
    for (const QVariant& value : {QVariant(QDate(2016, 12, 31)), QVariant()}) {
      field_->setValue(value);
      const QString text = field_->text();
      const QVariant before = field_->value();
      open("frmCalendario", [&](QDialog& w) {
        press(w, Qt::Key_Left);
        leave(w);
      });
      press(*owner_, Qt::Key_PageDown);
      EXPECT_EQ(field_->text(), text);
      EXPECT_EQ(field_->value(), before);
    }
  }
  open("frmCalendario", [](QDialog& w) { press(w, Qt::Key_Return); });
  press(*owner_, Qt::Key_PageDown);
  EXPECT_EQ(field_->text(), QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
}

TEST_F(FieldDialogs, TheFolderPickerOpensByButtonAndByPageDown) {
  const QTemporaryDir folder;
  const QString notes = folder.filePath(QStringLiteral("nota.txt"));
  const QString sums = folder.filePath(QStringLiteral("soma.txt"));
  for (const QString& name : {notes, sums}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  field_->setTipoControle(TsText::Diretorio);
  field_->setDirVerArquivos(true);
  field_->setValue(notes);
  const auto choose = [this](int key) {
    return [this, key](QDialog& w) {
      expectBelow(w);
      at(w, QStringLiteral("fileDiretorio")).setFocus();
      press(w, key);
      press(w, Qt::Key_Return);
    };
  };
  open("frmDiretorio", choose(Qt::Key_Down));
  click(button());
  EXPECT_EQ(field_->text(), sums);
  open("frmDiretorio", choose(Qt::Key_Up));
  press(*owner_, Qt::Key_PageDown);
  EXPECT_EQ(field_->text(), notes);
}

TEST_F(FieldDialogs, EscapeReturnsToTheFieldOpenedByKeyboardOrByMouse) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("nota.txt")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  auto* next = new QLineEdit(owner_.get());
  owner_->layout()->addWidget(next);
  const struct {
    TsText::TipoControle kind;
    int type;
    const char* mask;
    QString value;
    const char* dialog;
  } kDialogs[] = {
      {TsText::Calculadora, 5, "$$$$$$$.$$", QStringLiteral("12,50"), "frmCalculadora"},
      {TsText::Calendario, 7, "dd/mm/yyyy", QStringLiteral("31/12/2016"), "frmCalendario"},
      {TsText::Diretorio, 10, "", folder.path(), "frmDiretorio"}};
  for (const auto& row : kDialogs) {
    SCOPED_TRACE(row.dialog);
    field_->setTipoControle(row.kind);
    field_->setTipoDado(row.type);
    field_->setMascara(QLatin1String(row.mask));
    field_->setValue(row.value);
    const auto leave = [](QDialog& w) { press(w, Qt::Key_Escape); };
    for (const bool byMouse : {false, true}) {
      SCOPED_TRACE(byMouse ? "by mouse" : "by keyboard");
      open(row.dialog, leave);
      byMouse ? click(button()) : press(*owner_, Qt::Key_PageDown);
      settleEvents();
      EXPECT_EQ(field_->text(), row.value);
      EXPECT_EQ(owner_->focusWidget(), editOf(*field_));
      open(row.dialog, leave);
      press(*owner_, Qt::Key_PageDown);
      press(*owner_, Qt::Key_Tab);
      settleEvents();
      EXPECT_EQ(owner_->focusWidget(), next);
      field_->setFocus();
      settleEvents();
    }
  }
}

TEST_F(FieldDialogs, TheListOpensByButtonAndByPageDown) {
  connection_->OnStatement = [](const String&) -> memory::Rows {
    return {{{u"codigo", host::type::Integer}, {u"nome"}}, {{Long{1}, u"Ana"}, {Long{2}, u"Bia"}}};
  };
  field_->setTipoControle(TsText::Browse);
  field_->setBrowseTable(QStringLiteral("clientes"));
  field_->setBrwCampo(QStringLiteral("codigo"));
  field_->setTipoDado(2);
  field_->refresh();
  open("frmBrowse", [this](QDialog& w) {
    expectBelow(w);
    press(w, Qt::Key_Down);
    press(w, Qt::Key_Return);
  });
  click(button());
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
  open("frmBrowse", [this](QDialog& w) {
    expectBelow(w);
    press(w, Qt::Key_Up);
    press(w, Qt::Key_Return);
  });
  press(*owner_, Qt::Key_PageDown);
  EXPECT_EQ(field_->text(), QStringLiteral("1"));
}

TEST_F(FieldDialogs, TheFormMayBeDestroyedUnderEachOfThem) {
  const struct {
    TsText::TipoControle kind;
    const char* dialog;
  } kDialogs[] = {{TsText::Calculadora, "frmCalculadora"},
                  {TsText::Calendario, "frmCalendario"},
                  {TsText::Diretorio, "frmDiretorio"},
                  {TsText::Browse, "frmBrowse"}};
  connection_->OnStatement = [](const String&) -> memory::Rows {
    return {{{u"codigo", host::type::Integer}}, {{Long{1}}}};
  };
  for (const auto& dialog : kDialogs) {
    auto window = std::make_unique<QWidget>();
    window->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
    auto* field = new TsText(window.get());
    field->setObjectName(QStringLiteral("txtOutro"));
    field->setTipoControle(dialog.kind);
    field->setBrowseTable(QStringLiteral("t"));
    field->setBrwCampo(QStringLiteral("codigo"));
    showActive(*window);
    field->setFocus();
    settleEvents();
    open(dialog.dialog, [&](QDialog& w) {
      window.reset();
      EXPECT_FALSE(w.isVisible());
    });
    press(*window, Qt::Key_PageDown);
    EXPECT_FALSE(window) << dialog.dialog;
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

}  // namespace
}  // namespace tessaria::qt::tests
