// Enters hostile texts into every kind of field on a real server: none becomes a command, and none
// is stored as a different text.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/dialogs/desktop.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/attack/hostile_texts.h"
#include "tests/attack/library_shapes.h"
#include "tests/attack/server_log.h"
#include "tests/support/postgres_cluster.h"
#include "tests/support/printers.h"

namespace tessaria::attack {
namespace {

using test::PostgresCluster;

enum class Way { Typed, Pasted, Assigned, PutIntoTheBox };
constexpr Way kWays[] = {Way::Typed, Way::Pasted, Way::Assigned, Way::PutIntoTheBox};
constexpr const char* kWayNames[] = {"typed", "pasted", "assigned", "put into the box"};
constexpr Long kKinds = 6;
// "" leaves the field unbound.
constexpr const char16_t* kColumns[] = {u"",       u"nome", u"curto", u"inteiro",
                                        u"numero", u"dia",  u"ativo"};
constexpr const char16_t* kMasks[] = {u"CCCCCCCCCC", u"aaa-0000", u"dd/mm/yyyy", u"$$$$.$$",
                                      u"XXXXXXXX",   u"N00A",     u"#####"};
// The places where a condition takes the value of another field.
constexpr const char16_t* kWheres[] = {u"uf <> '@pai@'", u"codigo <> @pai@",
                                       u"nome not like '@pai@'", u"\"@pai@\" is not null"};
// The number of kinds of fields, without a mask and with one; as many fields in a row cover all.
constexpr long long kKindsOfFields = 2 * kKinds;
// More characters than an operator would type one by one.
constexpr std::size_t kMostTyped = 60;
constexpr const char16_t* kRow =
    u"update ficha set nome = 'Ana', curto = 'abc', inteiro = 7, numero = 1.5, dia = '2017-12-25',"
    u" ativo = true where id = 1";

/// One field, and how a text is entered into it.
struct Setting {
  TipoControle Kind;
  String Column, Mask, Where;
  bool PromptInclude, ChecksRelation, ByNumber;
  Way How;
};

// The kind of field and whether it has a mask follow from the number; the rest is random.
Setting RandomSetting(Random& random, long long number) {
  const bool hasMask = number / kKinds % 2 != 0;
  return {static_cast<TipoControle>(number % kKinds),
          random.OneOf(kColumns),
          hasMask ? random.OneOf(kMasks) : u"",
          random.OneOf(kWheres),
          random.Chance(50),
          random.Chance(30),
          random.Chance(50),
          random.OneOf(kWays)};
}

std::string Told(const Setting& setting, const String& text) {
  return "kind " + std::to_string(static_cast<int>(setting.Kind)) + " column \"" +
         ToUtf8(setting.Column) + "\" mask \"" + ToUtf8(setting.Mask) + "\" where " +
         ToUtf8(setting.Where) + " " + (setting.PromptInclude ? "PromptInclude " : "") +
         (setting.ChecksRelation ? "with relation " : "") +
         (setting.ByNumber ? "to a number, " : "to a text, ") +
         kWayNames[static_cast<int>(setting.How)] + ": " +
         testing::PrintToString(ToUtf8(text.substr(0, 200)));
}

// Compares the text as the field shows it: case and blanks count.
bool IsText(const Variant& stored, const String& text) {
  return stored.IsNull() ? text.empty() : CStr(stored) == text;
}

/// A form with a parent field, a field under attack, its sibling and a field to move on to.
/// Used once.
class Try {
 public:
  Try(const host::ConnectionPtr& connection, const Setting& setting, const String& text)
      : connection_(connection), setting_(setting), text_(text) {
    desktop_.WillShowOthers([this](memory::Dialog& window) { WorkWindow(window); });
    form_->DbForm(connection);
    const auto data = form_->Add<memory::DataControl>(u"dtcDados");
    data->Connect(connection, u"select * from ficha where id = 1");
    form_->Add<memory::TsText>(u"pai");
    field_ = form_->Add<memory::TsText>(u"campo");
    form_->Add<memory::TsText>(u"irmao");
    form_->Add<memory::TsText>(u"outro");
    SetUp();
    form_->Show();
    rows_ = data->RecordSet();
    program_.TakeBoxes();
  }
  ~Try() {
    form_->Close();
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }
  Try(const Try&) = delete;
  Try& operator=(const Try&) = delete;

  void Run() {
    form_->Focus(u"campo");
    Enter();
    typed_ = (**field_).Text();
    form_->Focus(u"outro");
    if (rows_) form_->RunEvent([&] { rows_->Update(); });
    hadError_ = !program_.Boxes().empty() || program_.Beeps() > 0;
    OpenList();
    AttackParent();
  }

  /// What the box held when the field was left.
  const String& Typed() const { return typed_; }
  /// Whether the operator was informed, by a box or a beep, before the list opened.
  bool HadError() const { return hadError_; }
  /// The exception, other than a run-time error, that left the library; empty when there was none.
  std::string Exception() const {
    for (const HostError& error : form_->UnhandledErrors())
      if (error.Number() == 0) return error.what();
    return {};
  }

 private:
  void SetUp() {
    form_->RunEvent([&] {
      tsText& control = **field_;
      control.TipoControle(setting_.Kind);
      control.PromptInclude(setting_.PromptInclude);
      control.UsaChecaRelacao(setting_.ChecksRelation);
      if (!setting_.Column.empty()) {
        control.DataSource(u"dtcDados");
        control.DataField(setting_.Column);
      }
      control.Mascara(setting_.Mask);
      control.BrowseTable(u"clientes");
      control.BrwCampo(setting_.ByNumber ? u"codigo" : u"nome");
      control.BrwCampoIrmao(setting_.ByNumber ? u"nome" : u"codigo");
      control.TxtIrmao(u"irmao");
      control.BrwWhere(setting_.Where);
      AddSearches(*control.Pesquisa());
    });
  }
  static void AddSearches(Pesquisa& searches) {
    const auto add = [&](const char16_t* caption, const char16_t* column, Long kind, Long like) {
      searches.Add(0, caption, column, kind, like, u"", 2000, 0, kind == 8, false, 0, 0, u"");
    };
    add(u"Nome", u"nome", 8, 3);
    add(u"Codigo", u"codigo", 2, 0);
    add(u"Nascimento", u"nascimento", 7, 5);
  }

  void Enter() {
    switch (setting_.How) {
      case Way::Typed:
        (**field_).SelStart(0);
        (**field_).SelLength(Len((**field_).Text()));
        return form_->Type(text_.substr(0, kMostTyped));
      case Way::Pasted:
        (**field_).SelStart(0);
        (**field_).SelLength(Len((**field_).Text()));
        return form_->RunEvent([&] { field_->txtEdit().Insert(text_); });
      case Way::Assigned:
        return form_->RunEvent([&] { (**field_).Value(text_); });
      case Way::PutIntoTheBox:
        return form_->RunEvent([&] { (**field_).Text(text_); });
    }
  }
  void OpenList() {
    form_->Focus(u"campo");
    form_->RunEvent([&] { field_->ClickButton(); });
  }
  // Uses the text as a value that the condition of another field takes in.
  void AttackParent() {
    const auto parent = std::dynamic_pointer_cast<memory::TsText>(form_->Controls(u"pai"));
    form_->RunEvent([&] { (**parent).Value(text_); });
    form_->Focus(u"campo");
    form_->RunEvent([&] { (**field_).Value(u"7"); });
    form_->RunEvent([&] { (**field_).AtualizaIrmao(); });
    form_->RunEvent([&] { (**field_).AcionaChecaRelacao(); });
    OpenList();
  }

  void WorkWindow(memory::Dialog& window) {
    if (window.Name() == u"frmBrowse") {
      for (Long entry = 1; entry <= 3; ++entry) window.ClickMenu(u"barBrowse", entry);
    } else if (window.Name() == u"frmTsPesquisa") {
      window.Field(u"editPesquisa").txtEdit().Insert(text_.substr(0, 500));
      window.Click(u"btnOk");
    }
    if (window.IsShown()) window.CloseWindow();
  }

  host::ConnectionPtr connection_;
  const Setting& setting_;
  const String& text_;
  memory::Application program_;
  memory::Desktop desktop_{[](const String&) {}};
  std::shared_ptr<memory::Form> form_ = memory::Form::Create(u"frmFicha");
  std::shared_ptr<memory::TsText> field_;
  host::RecordsetPtr rows_;
  String typed_;
  bool hadError_ = false;
};

class Texts : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    observer_ = Open();
    observer_->Execute(u"set log_statement = 'none'");
    observer_->Execute(u"drop schema public cascade");
    observer_->Execute(u"create schema public");
    observer_->Execute(u"create table alvo (x int)");
    observer_->Execute(u"insert into alvo values (42)");
    observer_->Execute(
        u"create table clientes (codigo int primary key, nome text, uf text, nascimento date)");
    observer_->Execute(
        u"insert into clientes values (7, 'Ana', 'SP', '1970-01-01'), (8, 'O''Brien', 'RJ', null)");
    observer_->Execute(
        u"create table ficha (id int primary key, nome text, curto varchar(10), inteiro int,"
        u" numero numeric(12,4), dia date, ativo boolean)");
    observer_->Execute(u"insert into ficha (id) values (1)");
    connection_ = Open();
  }

  static host::ConnectionPtr Open() {
    auto connection = odbc::CreateConnection();
    connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
    connection->Open();
    return connection;
  }
  Variant Ask(const String& statement) {
    return observer_->Execute(statement)->Fields().Item(0)->Value();
  }

  void Attack(const Setting& setting, const String& text, Backslash backslash, ServerLog& log) {
    observer_->Execute(kRow);
    Try one(connection_, setting, text);
    one.Run();
    const std::string told = Told(setting, text);
    if (const std::string what = one.Exception(); !what.empty())
      Fault("an exception that is no run-time error", told + "\n  " + what);
    CheckShapes(log, backslash, told);
    CheckStored(one, setting, told);
    if (connection_->State() == host::state::Closed) connection_->Open();
    Count("hostile texts entered");
  }

  void CheckShapes(ServerLog& log, Backslash backslash, const std::string& told) {
    for (const std::string& statement : log.TakeStatements()) {
      Count("statements on the server");
      const std::string shape = ShapeOf(statement, backslash);
      if (!IsExpected(shape))
        Fault("a text changes the shape of a statement", told + "\n  statement " +
                                                             statement.substr(0, 500) +
                                                             "\n  shape " + shape.substr(0, 300));
    }
  }

  // The same few shapes occur many times.
  bool IsExpected(const std::string& shape) {
    const auto [entry, isNew] = judged_.try_emplace(shape);
    if (isNew) entry->second = IsShapeOfTheLibrary(shape);
    return entry->second;
  }

  void CheckStored(const Try& one, const Setting& setting, const std::string& told) {
    if (one.HadError() || setting.Column.empty() || !setting.Mask.empty() || setting.ChecksRelation)
      return;
    const Variant stored = Ask(u"select " + setting.Column + u" from ficha where id = 1");
    if (setting.Column == u"nome" || setting.Column == u"curto") {
      Count("texts compared with the stored one");
      if (!IsText(stored, setting.Column == u"curto" ? CutToTen(one.Typed()) : one.Typed()))
        Fault("another text is stored than was typed",
              told + "\n  stored " + testing::PrintToString(stored));
    } else if (setting.Column == u"inteiro" || setting.Column == u"numero") {
      const double lastDigit = setting.Column == u"inteiro" ? 1 : 0.0001;
      CheckNumber(stored, one.Typed(), lastDigit, told);
    }
  }
  // The server cuts only blanks beyond the length of a column.
  static String CutToTen(String text) {
    const auto isHalf = [](char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; };
    const auto characters = [&] { return std::ssize(text) - std::ranges::count_if(text, isHalf); };
    while (characters() > 10 && text.back() == u' ') text.pop_back();
    return text;
  }

  // The server rounds to the column's last digit.
  static void CheckNumber(const Variant& stored, const String& typed, double lastDigit,
                          const std::string& told) {
    Count("numbers compared with the stored one");
    if (Trim(typed).empty()) return;
    constexpr double kHalf = 0.50001;
    const bool same = IsNumeric(Variant(typed)) && !stored.IsNull() &&
                      std::abs(CDbl(Variant(typed)) - CDbl(stored)) <= kHalf * lastDigit;
    if (!same)
      Fault("another number is stored than was typed",
            told + "\n  stored " + testing::PrintToString(stored));
  }

  void CheckCanary(const std::string& told) {
    const Variant tables = Ask(u"select count(*)::int from pg_tables where schemaname = 'public'");
    const bool lives = CLng(tables) == 3 && CLng(Ask(u"select sum(x)::int from alvo")) == 42;
    if (!lives) Fault("the canary is dead", told);
  }

  // Enters all the texts, each into that many fields.
  void AttackAll(std::size_t texts, long long fields, Backslash backslash, const char* part) {
    Random random(part);
    ServerLog log(PostgresCluster::Shared());
    if (backslash == Backslash::Escapes)
      connection_->Execute(u"set standard_conforming_strings = off");
    log.TakeStatements();
    long long number = 0;
    for (const String& text : HostileTexts(texts, random)) {
      for (long long i = 0; i < fields; ++i)
        Attack(RandomSetting(random, number++), text, backslash, log);
      CheckCanary(testing::PrintToString(ToUtf8(text.substr(0, 200))));
    }
  }

  host::ConnectionPtr observer_;
  host::ConnectionPtr connection_;
  std::map<std::string, bool> judged_;
};

TEST_F(Texts, AreValuesAndNothingElse) {
  AttackAll(2200, Amount(1, 4 * kKindsOfFields), Backslash::Plain, "texts");
}

TEST_F(Texts, AreValuesWhenTheServerReadsBackslashesAsEscapes) {
  AttackAll(300, Amount(1, 4 * kKindsOfFields), Backslash::Escapes, "texts with backslashes");
}

}  // namespace
}  // namespace tessaria::attack
