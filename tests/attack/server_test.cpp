// Runs a working session on a real server that is killed at each of its steps: no typed text is
// lost from the screen, nothing is stored twice, and every step ends.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <map>

#include "tessaria/conversion.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/text.h"
#include "tests/attack/run.h"
#include "tests/qt/operator.h"
#include "tests/qt/watched_connection.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::attack {
namespace {

using qt::Adodc;
using qt::TsText;
using qt::tests::WatchedConnection;
using test::PostgresCluster;

constexpr double kLongestStep = 30;  // seconds
constexpr int kMostAttempts = 4;
constexpr int kModalLook = 5;  // milliseconds

QString s(const char* text) { return QString::fromUtf8(text); }

enum class Kill { Session, Server, SessionInsideTheStep };
constexpr const char* kKillNames[] = {"session ended before", "server stopped before",
                                      "session ended inside"};

host::ConnectionPtr Open() {
  auto connection = odbc::CreateConnection();
  connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
  connection->Open();
  return connection;
}

Long Ask(const String& statement) {
  return CLng(Open()->Execute(statement)->Fields().Item(0)->Value());
}

void EndSessions() {
  Open()->Execute(
      u"select pg_terminate_backend(pid) from pg_stat_activity"
      u" where pid <> pg_backend_pid() and backend_type = 'client backend'");
}

// Only letters and digits: a mask adds and removes only other characters.
QString essence(const QString& text) {
  QString kept;
  for (const QChar c : text)
    if (c.isLetterOrNumber()) kept += c.toLower();
  return kept;
}

/// The window of the session, with an operator who takes the first row of every list.
class Desk {
 public:
  Desk() : window_(std::make_unique<QWidget>()) {
    window_->setObjectName(s("frmClientes"));
    window_->setProperty("dbForm", QVariant::fromValue(host::ConnectionPtr(connection_)));
    auto* layout = new QVBoxLayout(window_.get());
    rows_ = new Adodc;
    rows_->setObjectName(s("dados"));
    rows_->setConnection(connection_);
    rows_->setRecordSource(s("select * from clientes order by id"));
    layout->addWidget(rows_);
    AddFields(*layout);
    QObject::connect(&modals_, &QTimer::timeout, [this] { WorkModal(); });
    modals_.start(kModalLook);
    qt::tests::showActive(*window_);
  }

  TsText& Field(const char* name) { return *window_->findChild<TsText*>(s(name)); }
  Adodc& Rows() { return *rows_; }
  WatchedConnection& Connection() { return *connection_; }
  int Boxes() const { return static_cast<int>(boxes_.boxes().size()); }
  QString LastBox() const {
    return boxes_.boxes().empty() ? QString() : boxes_.boxes().back().text;
  }

  /// Types a text over what the field holds, and leaves the field. Returns false when the focus was
  /// refused.
  bool Fill(const char* name, const QString& text) {
    TsText& field = Field(name);
    if (!Enter(field)) return false;
    typed_.erase(field.txtIrmao());
    typed_[s(name)] = essence(text);
    qt::tests::editOf(field)->selectAll();
    qt::tests::type(*window_, text);
    return Enter(Field("repouso"));
  }
  bool Shows(const char* name, const QString& text) { return Field(name).text() == text; }
  /// Opens the field's list and takes its first row.
  bool PickFromList(const char* name) {
    if (!Enter(Field(name))) return false;
    qt::tests::press(*window_, Qt::Key_PageDown);
    qt::tests::settleEvents();
    typed_.erase(s(name));
    return Enter(Field("repouso"));
  }
  /// After a move to another row, forgets what was typed. Returns whether it moved.
  bool Moved(bool moved) {
    if (moved) typed_.clear();
    return moved;
  }
  /// Saves the new row. When it is unknown whether the row was stored, the operator reads the rows
  /// again, as the box says, and cancels the new row when it is there.
  bool SaveNewRow() {
    if (!rows_->recordSet()->IsInDoubt()) return rows_->saveRow();
    const auto boxes = boxes_.boxes().size();
    if (Moved(rows_->refresh())) return true;
    if (boxes_.boxes().size() == boxes || rows_->recordSet()->IsInDoubt()) return false;
    const bool isThere = LastBox().contains(s("Se for ele, cancele o novo"));
    if (!isThere) return rows_->saveRow();
    return Moved(rows_->cancelRow()) && Moved(rows_->refresh()) && Moved(rows_->moveLast());
  }
  /// What the fields show, and which has the focus.
  std::string Screen() const {
    std::string told;
    for (TsText* field : window_->findChildren<TsText*>())
      told += "\n    " + field->objectName().toStdString() + " \"" + field->text().toStdString() +
              (field->isAncestorOf(window_->focusWidget()) ? "\" <" : "\"");
    return told;
  }
  /// The fields that no longer show what was typed into them.
  std::string Lost() {
    std::string lost;
    for (const auto& [name, text] : typed_) {
      const QString shown = window_->findChild<TsText*>(name)->text();
      if (!essence(shown).contains(text))
        lost += name.toStdString() + " shows \"" + shown.toStdString() + "\" in place of \"" +
                text.toStdString() + "\"; ";
    }
    return lost;
  }

 private:
  TsText* Add(QVBoxLayout& layout, const char* name, const char* column, const char* mask = "") {
    auto* field = new TsText;
    field->setObjectName(s(name));
    layout.addWidget(field);
    field->setUsaChecaRelacao(false);
    if (*column != 0) {
      field->setDataSource(s("dados"));
      field->setDataField(s(column));
    }
    field->setMascara(s(mask));
    return field;
  }
  void AddFields(QVBoxLayout& layout) {
    Add(layout, "codigo", "codigo", "00000");
    Add(layout, "nome", "nome");
    TsText* city = Add(layout, "cidade", "cidade", "00000");
    TsText* cityName = Add(layout, "nomeCidade", "");
    SetLookup(*city, TsText::Browse, "codigo", "nome", "nomeCidade");
    SetLookup(*cityName, TsText::Descricao, "nome", "codigo", "cidade");
    city->setUsaChecaRelacao(true);
    Add(layout, "limite", "limite", "$$$$$$$$.$$")->setMaxLength(14);
    Add(layout, "nascimento", "nascimento", "dd/mm/yyyy");
    Add(layout, "observacao", "observacao");
    Add(layout, "repouso", "");
  }
  static void SetLookup(TsText& field, TsText::TipoControle kind, const char* column,
                        const char* other, const char* sibling) {
    field.setTipoControle(kind);
    field.setBrowseTable(s("cidades"));
    field.setBrwCampo(s(column));
    field.setBrwCampoIrmao(s(other));
    field.setTxtIrmao(s(sibling));
  }

  bool Enter(TsText& field) {
    QLineEdit* edit = qt::tests::editOf(field);
    if (window_->focusWidget() != edit) field.setFocus(Qt::TabFocusReason);
    qt::tests::settleEvents();
    return window_->focusWidget() == edit;
  }
  void WorkModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal->objectName() == s("frmBrowse") && modal->isVisible())
      qt::tests::press(*modal, Qt::Key_Return);
  }

  qt::tests::BoxKeeper boxes_;
  std::shared_ptr<WatchedConnection> connection_ = std::make_shared<WatchedConnection>(Open());
  std::unique_ptr<QWidget> window_;
  Adodc* rows_ = nullptr;
  QTimer modals_;
  std::map<QString, QString> typed_;  ///< the essence of what the operator typed into each field
};

struct Step {
  const char* Name;
  bool (*Do)(Desk&);
};

// Each step can be repeated after it failed.
const Step kSession[] = {
    {"next row", [](Desk& d) { return d.Moved(d.Rows().moveNext()); }},
    {"another name", [](Desk& d) { return d.Fill("nome", s("Maria da Silva")); }},
    {"save the change", [](Desk& d) { return d.Rows().saveRow(); }},
    {"new row", [](Desk& d) { return d.Moved(d.Rows().addRow()); }},
    {"code", [](Desk& d) { return d.Fill("codigo", s("00003")); }},
    {"name", [](Desk& d) { return d.Fill("nome", s("José Araújo")); }},
    {"city by its name",
     [](Desk& d) { return d.Fill("nomeCidade", s("Santos")) && d.Shows("cidade", s("00020")); }},
    {"city by its code",
     [](Desk& d) { return d.Fill("cidade", s("00010")) && d.Shows("nomeCidade", s("Campinas")); }},
    {"credit", [](Desk& d) { return d.Fill("limite", s("1234,56")); }},
    {"birthday", [](Desk& d) { return d.Fill("nascimento", s("25122001")); }},
    {"city from the list", [](Desk& d) { return d.PickFromList("cidade"); }},
    {"remark", [](Desk& d) { return d.Fill("observacao", s("pagou em dia")); }},
    {"save the new row", [](Desk& d) { return d.SaveNewRow(); }},
    {"previous row", [](Desk& d) { return d.Moved(d.Rows().movePrevious()); }},
    {"last row", [](Desk& d) { return d.Moved(d.Rows().moveLast()); }},
    {"another remark", [](Desk& d) { return d.Fill("observacao", s("pagou adiantado")); }},
    {"first row, which saves", [](Desk& d) { return d.Moved(d.Rows().moveFirst()); }},
    {"read again", [](Desk& d) { return d.Moved(d.Rows().refresh()); }},
    {"delete",
     [](Desk& d) {
       return d.Moved(d.Rows().findRow(s("codigo = '00001'")) && d.Rows().deleteRow());
     }},
};

class Server : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
  }

  static void FillTables() {
    PostgresCluster::Shared().EnsureRunning();
    const auto connection = Open();
    for (const auto* statement :
         {u"drop schema public cascade", u"create schema public",
          u"create table cidades (codigo varchar(5) primary key, nome text)",
          u"insert into cidades values ('00010', 'Campinas'), ('00020', 'Santos')",
          // NOLINTNEXTLINE(bugprone-suspicious-missing-comma)
          u"create table clientes (id serial primary key, codigo varchar(5), nome text, cidade "
          u"varchar(5), limite numeric(11,2), nascimento date, observacao text)",
          u"insert into clientes (codigo, nome) values ('00001', 'Ana'), ('00002', 'Bia')"})
      connection->Execute(statement);
  }

  static void Strike(Kill kill, Desk& desk) {
    switch (kill) {
      case Kill::Session:
        return EndSessions();
      case Kill::Server:
        return PostgresCluster::Shared().Stop();
      case Kill::SessionInsideTheStep:
        desk.Connection().during = [&desk](const String&) {
          desk.Connection().during = nullptr;
          EndSessions();
        };
    }
  }

  void Play(std::size_t struck, Kill kill) {
    FillTables();
    Desk desk;
    for (std::size_t i = 0; i < std::size(kSession); ++i) {
      where_ = std::string(kKillNames[static_cast<int>(kill)]) + " \"" + kSession[struck].Name +
               "\", at \"" + kSession[i].Name + "\"";
      if (i == struck) Strike(kill, desk);
      if (!Do(kSession[i], desk)) return;
    }
    CheckTables();
    Count("sessions");
  }

  // Returns false when the step does not succeed in all attempts of the operator.
  bool Do(const Step& step, Desk& desk) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
      const int boxes = desk.Boxes();
      const Stopwatch watch;
      const bool done = step.Do(desk);
      if (watch.Seconds() > kLongestStep) Fault("a step takes too long", where_);
      if (const std::string lost = desk.Lost(); !lost.empty())
        return Fault("typed text is lost from the screen", where_ + ": " + lost + Told(desk)),
               false;
      if (!done && desk.Boxes() == boxes) Fault("a step fails without a message", where_);
      Recover(desk);
      CheckTwice();
      if (done) return true;
      Count("steps that were repeated");
    }
    Fault("a step cannot be repeated after the server is back", where_ + Told(desk));
    return false;
  }
  static std::string Told(const Desk& desk) {
    return "\n  last box: " + desk.LastBox().toStdString() + desk.Screen();
  }
  static void Recover(Desk& desk) {
    desk.Connection().during = nullptr;
    PostgresCluster::Shared().EnsureRunning();
    if (desk.Connection().State() == host::state::Closed) desk.Connection().Open();
  }
  void CheckTwice() {
    if (Ask(u"select count(*)::int - count(distinct codigo)::int from clientes") > 0)
      Fault("a row is stored twice", where_);
  }
  void CheckTables() {
    const Long right = Ask(
        u"select count(*)::int from clientes where (codigo, nome) = ('00002', 'Maria da Silva') or"
        u" (codigo, nome, cidade, limite, nascimento, observacao) = ('00003', 'José Araújo',"
        u" '00010', 1234.56, '2001-12-25', 'pagou adiantado')");
    if (right != 2 || Ask(u"select count(*)::int from clientes") != 2)
      Fault("the rows at the end are not those of the session", where_ + Rows());
  }

  static std::string Rows() {
    const auto rows = Open()->Execute(u"select clientes::text from clientes order by id");
    std::string told;
    for (; !rows->Eof(); rows->MoveNext())
      told += "\n    " + ToUtf8(CStr(rows->Fields().Item(0)->Value()));
    return told;
  }

  std::string where_;
};

TEST_F(Server, MayDieAtEachStepOfASession) {
  for (std::size_t step = 0; step < std::size(kSession); ++step) {
    if (TheSettings().Long || step % 4 == 0) Play(step, Kill::Server);
    Play(step, Kill::Session);
    if (TheSettings().Long || step % 2 == 0) Play(step, Kill::SessionInsideTheStep);
  }
}

}  // namespace
}  // namespace tessaria::attack
