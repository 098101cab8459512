// The functions for PostgreSQL that the wizard's statements call.
#include "tessaria/error.h"
#include "tests/support/printers.h"
#include "tests/wizard/server_connection.h"
#include "tests/wizard/session_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

/// A server with deliveries, and with the functions once they are added.
class FunctionsForTheWizard : public SessionTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    for (const auto* statement :
         {u"create table entregas (codigo integer primary key, nome text, peso numeric(9, 2),"
          u" dia date)",
          u"insert into entregas values (7, 'Caneta', 2.5, '2017-12-25'),"
          u" (8, 'Papel', 40, '2017-12-24')"})
      server->Execute(statement);
    app.OnNewConnection = [] { return std::make_shared<ServerConnection>(); };
  }
  /// The deliveries of one day, each with a text of two numbers and its name.
  void BuildLookup() {
    RunFromPage([&] {
      Choose(u"cmbSistema", u"Vendas");
      Click(u"btnConectar");
      Pick({u"entregas"});
      GoTo(Tab::Campos);
      Include(u"entregas", {u"codigo", u"nome"});
      AddLabel();
      GoTo(Tab::Grid);
      Click(u"btn4Retrieve");
      GoTo(Tab::Where);
      Search(u"entregas", u"dia", {u"=", u"desCliente", u"Data"});
      GoTo(Tab::Retorno);
      TakeField(u"codigo", u"btn7CmpChaveInc");
      TakeField(u"nome", u"btn7CmpIrmaoInc");
      Click(u"btnConfirma");
    });
    ExpectNoBox();
  }
  void AddLabel() {
    for (const auto* field : {u"codigo", u"peso"}) {
      AddPiece(u"entregas", field);
      Check(u"lst3Concatena", field);
    }
    Type(u"txt3ConcNome", u"rotulo");
    Click(u"btn3CriaConcatena");
  }
  /// The rows of the lookup, each in one text.
  Rows RowsOfTheDay(const String& day) {
    const String names = PageText(u"txtBrwCampo") + u", " + PageText(u"txtBrwCampoIrmao") + u", " +
                         PageText(u"txtBrwCampoOutros");
    const auto rows =
        server->Execute(u"Select " + names + u" From " + PageText(u"txtBrowseTable") + u" Where " +
                        Replace(PageText(u"txtBrwWhere"), u"@desCliente@", day));
    Rows texts;
    for (; !rows->Eof(); rows->MoveNext()) {
      String text;
      for (Long i = 0; i < rows->Fields().Count(); ++i)
        text += (i == 0 ? u"" : u" ") + CStr(rows->Fields().Item(i)->Value());
      texts.push_back(text);
    }
    return texts;
  }
  /// The value of an expression; "-" for Null.
  String ValueOf(const String& expression) {
    const auto rows = server->Execute(u"Select (" + expression + u")::text");
    const Variant value = rows->Fields().Item(Long{0})->Value();
    return value.IsNull() ? u"-" : CStr(value);
  }

  host::ConnectionPtr server;
};

TEST_F(FunctionsForTheWizard, LetALookupWithADateAndNumbersRun) {
  AddWizardFunctions();
  BuildLookup();
  EXPECT_EQ(PageText(u"txtBrwWhere"), u"entregas.dia=cDate('@desCliente@')");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"), u"Str(codigo) || Str(peso) as rotulo");
  EXPECT_EQ(RowsOfTheDay(u"25/12/2017"), (Rows{u"7 Caneta 72.50"}));
  EXPECT_EQ(RowsOfTheDay(u""), Rows{});
}

TEST_F(FunctionsForTheWizard, CanBeAddedTwice) {
  AddWizardFunctions();
  AddWizardFunctions();
  EXPECT_EQ(ValueOf(u"Str(1)"), u"1");
}

TEST_F(FunctionsForTheWizard, ReadADateWithItsDayFirst) {
  AddWizardFunctions();
  struct Date {
    const char16_t *text, *day;
  };
  for (const Date& date :
       {Date{u"'25/12/2017'", u"2017-12-25"}, Date{u"'02/01/2017'", u"2017-01-02"},
        Date{u"'5/1/2017'", u"2017-01-05"}, Date{u"' 25/12/2017 '", u"2017-12-25"},
        Date{u"'25/12/2017 18:30:00'", u"2017-12-25"}, Date{u"'25/12/17'", u"2017-12-25"},
        Date{u"'2017-12-25'", u"2017-12-25"}, Date{u"'29/02/2016'", u"2016-02-29"},
        Date{u"''", u"-"}, Date{u"' '", u"-"}, Date{u"Null", u"-"}})
    EXPECT_EQ(ValueOf(u"cDate(" + String(date.text) + u")"), date.day) << ToUtf8(date.text);
  for (const auto* text :
       {u"'12/25/2017'", u"'31/02/2017'", u"'25122017'", u"'__/__/____'", u"'amanhã'"})
    EXPECT_THROW(ValueOf(u"cDate(" + String(text) + u")"), HostError) << ToUtf8(text);
}

TEST_F(FunctionsForTheWizard, GiveANumberOfEveryTypeAsText) {
  AddWizardFunctions();
  struct Number {
    const char16_t *expression, *text;
  };
  for (const Number& number :
       {Number{u"7::smallint", u"7"}, Number{u"-7::integer", u"-7"},
        Number{u"9007199254740993::bigint", u"9007199254740993"},
        Number{u"2.50::numeric(9, 2)", u"2.50"}, Number{u"1234567.891", u"1234567.891"},
        Number{u"0.5::real", u"0.5"}, Number{u"0.1::double precision", u"0.1"},
        Number{u"Null::integer", u"-"}})
    EXPECT_EQ(ValueOf(u"Str(" + String(number.expression) + u")"), number.text)
        << ToUtf8(number.expression);
  EXPECT_THROW(ValueOf(u"Str('7'::varchar)"), HostError) << "a text is no number";
}

}  // namespace
}  // namespace tessaria::test
