// Each mistake that the check of form files finds, planted by itself into a form without one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "apps/check/check_forms.h"
#include "tessaria/utf8.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::formcheck::test {
namespace {

using tessaria::test::PostgresCluster;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string TextOfFile(const std::string& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

struct Report {
  int code = 0;
  std::string out, error;
};

Report Checked(const Options& options) {
  std::ostringstream out, error;
  const int code = CheckForms(options, out, error);
  return {code, out.str(), error.str()};
}

/// What stands in the form instead of a text, and what is told then.
struct Planted {
  std::string text, instead;
  std::string at;  ///< a text in the line that is told, after the change
  std::string finding;
};

void PrintTo(const Planted& planted, std::ostream* out) { *out << planted.instead; }

class CheckFormsTest : public ::testing::Test {
 protected:
  CheckFormsTest() {
    const std::string pattern = (std::filesystem::temp_directory_path() / "formXXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back(0);
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name.data();
  }
  ~CheckFormsTest() override { std::filesystem::remove_all(folder_); }

  std::string Write(const std::string& text, const std::string& name = "form.ui") const {
    const std::string path = folder_ + "/" + name;
    std::ofstream(path) << text;
    return path;
  }
  std::string With(const Planted& planted) const {
    std::string text = TextOfFile(CLEAN_FORM);
    const std::size_t place = text.find(planted.text);
    if (place == std::string::npos) throw std::runtime_error("not there: " + planted.text);
    return text.replace(place, planted.text.size(), planted.instead);
  }
  static int LineOf(const std::string& text, const std::string& part) {
    const auto place = text.begin() + static_cast<std::ptrdiff_t>(text.find(part));
    return 1 + static_cast<int>(std::count(text.begin(), place, '\n'));
  }
  void ExpectFound(const Planted& planted, Options options = {}) const {
    const std::string text = With(planted);
    const std::string path = Write(text);
    options.files = {path};
    const Report report = Checked(options);
    EXPECT_EQ(report.code, 1);
    EXPECT_EQ(report.error, "");
    const std::string start = path + ":" + std::to_string(LineOf(text, planted.at)) + ": ";
    EXPECT_THAT(report.out, StartsWith(start));
    EXPECT_THAT(report.out, HasSubstr(planted.finding));
    EXPECT_EQ(std::count(report.out.begin(), report.out.end(), '\n'), 1) << report.out;
  }

  std::string folder_;
};

TEST_F(CheckFormsTest, AFormWithoutAMistakeHasNoFinding) {
  Options options;
  options.files = {CLEAN_FORM};
  const Report report = Checked(options);
  EXPECT_EQ(report.out + report.error, "");
  EXPECT_EQ(report.code, 0);
}

TEST_F(CheckFormsTest, TheFormsOfTheDemoAreClean) {
  Options options;
  for (const char* name : {"/customer_form.ui", "/order_form.ui", "/main_window.ui"})
    options.files.push_back(std::string(DEMO_FORMS) + name);
  const Report report = Checked(options);
  EXPECT_EQ(report.out + report.error, "");
  EXPECT_EQ(report.code, 0);
}

class PlantedMistake : public CheckFormsTest, public ::testing::WithParamInterface<Planted> {};

TEST_P(PlantedMistake, IsToldWithItsPlace) { ExpectFound(GetParam()); }

const Planted kMistakes[] = {
    // Settings
    {"PodeSerBranco=Boolean:False", "PodeSerBrnco=Boolean:False", "PodeSerBrnco",
     "error: cidade: there is no setting \"PodeSerBrnco\"; did you mean PodeSerBranco? "
     "[unknown-setting]"},
    {"PodeSerBranco=Boolean:False", "Xyzzy=Boolean:False", "Xyzzy",
     "there is no setting \"Xyzzy\" [unknown-setting]"},
    {"Browse.BrwCampoOutros", "Browse.BrwCampoOutra", "BrwCampoOutra",
     "\"Browse.BrwCampoOutra\"; did you mean Browse.BrwCampoOutros?"},
    {"PodeSerBranco=Boolean:False", "PodeSerBranco=String:talvez", "talvez",
     "the value of PodeSerBranco, \"talvez\", is neither true nor false [value]"},
    {"TipoDado=Long:4", "TipoDado=String:cinco", "cinco",
     "error: prazo: the value of TipoDado, \"cinco\", is no number [value]"},
    {"TipoDado=Long:4", "TipoDado=Long:muito", "muito", "cannot be read [value]"},
    {"PodeSerBranco=Boolean:False", "PodeSerBranco", "PodeSerBranco<",
     "\"PodeSerBranco\" cannot be read [settings]"},
    {"tessaria 1</string>\n       <string>TipoDado=Long:4",
     "tessaria 9</string>\n       <string>TipoDado=Long:4", "tessaria 9",
     "the settings do not begin with \"tessaria 1\" [settings]"},
    // Masks
    {"AA</string>\n       <string>ItensMascara=String:_",
     "LA</string>\n       <string>ItensMascara=String:_L", "Mascara=String:LA",
     "warning: uf: \"L\" in the mask \"LA\" is no slot; the box shows it as it is [mask]"},
    {"ItensMascara=String:_</string>\n       <string>Browse",
     "eSocial=Boolean:True</string>\n       "
     "<string>Browse",
     "Mascara=String:00000", "the line \"ItensMascara=String:_\" is missing [mask-items]"},
    {"Mascara=String:AA", "Mascara=String:A/A", "Mascara=String:A/A", "ItensMascara=String:_/"},
    // Names
    {"LabelAssociado=String:lblCidade", "LabelAssociado=String:lblCidadde", "lblCidadde",
     "error: cidade: the label \"lblCidadde\" is not on the form [name]"},
    {"ObjetoCancelar=String:btnCancelar", "ObjetoCancelar=String:btnSair", "btnSair",
     "the cancel button \"btnSair\" is not on the form [name]"},
    {"DataSource=String:dados", "DataSource=String:linhas", "linhas",
     "warning: cidade: the data control \"linhas\" is not on the form [name]"},
    {"DataSource=String:dados", "DataSource=String:lblCidade", "DataSource=String:lblCidade",
     "\"lblCidade\" is no data control [name]"},
    {"TxtIrmao=String:nomeCidade", "TxtIrmao=String:nome", "TxtIrmao=String:nome<",
     "the sibling \"nome\" is not on the form [name]"},
    // Pairs and lookups
    {"TxtIrmao=String:cidade", "TxtIrmao=String:uf", "TxtIrmao=String:uf",
     "error: nomeCidade: the sibling should be \"cidade\", whose sibling this field is [pair]"},
    {"       <string>TxtIrmao=String:cidade</string>\n", "", "TipoControle=Long:3",
     "a description needs its key as sibling (TxtIrmao) [pair]"},
    {"Browse.BrowseTable=String:cidades</string>\n       <string>Browse.BrwCampo=String:codigo",
     "Browse.BrwTitulo=String:Cidades</string>\n       <string>Browse.BrwCampo=String:codigo",
     "Browse=Object:Browse", "the lookup has no table (BrowseTable) [lookup]"},
    {"TipoDado=Long:4", "BrwCampo=String:codigo", "BrwCampo=String:codigo",
     "error: prazo: the lookup is given in single settings only"},
    {"TipoDado=Long:4", "PesqCampo=String:codigo", "PesqCampo=String:codigo",
     "error: prazo: the searches are given in single settings only"},
    // Parameters
    {"'@uf@'", "'@estado@'", "@estado@", "names \"estado\", which is not on the form [parameter]"},
    {"'@uf@'", "@uf@", "= @uf@",
     "error: cidade: @uf@ stands without apostrophes, and \"uf\" holds a text [parameter]"},
    {"&gt; @distancia@", "&gt; @distancia", "@distancia<", "is not closed [parameter]"},
};

INSTANTIATE_TEST_SUITE_P(Of, PlantedMistake, ::testing::ValuesIn(kMistakes));

TEST_F(CheckFormsTest, APairWhoseColumnsAreNotSwappedIsTold) {
  ExpectFound({"BrwCampo=String:cidades.nome", "BrwCampo=String:sigla",
               "Browse=Object:Browse</string>\n       <string>Browse.BrowseTable=String:cidades"
               "</string>\n       <string>Browse.BrwCampo=String:sigla",
               "BrwCampo should be \"nome\" and BrwCampoIrmao \"codigo\" [pair]"});
}

TEST_F(CheckFormsTest, ABoundFieldWithoutApostrophesIsADoubt) {
  std::string text = With({"'@uf@'", "@uf@", "", ""});
  const std::string mask = "       <string>Mascara=String:AA</string>\n";
  text.insert(text.find(mask), "       <string>DataField=String:uf</string>\n");
  Options options;
  options.files = {Write(text)};
  EXPECT_THAT(Checked(options).out,
              HasSubstr("warning: cidade: @uf@ stands without apostrophes, and "
                        "works only when its column is a number"));
}

TEST_F(CheckFormsTest, WhatIsNoFormIsTold) {
  Options options;
  options.files = {Write("<ui><widget class='QWidget'"), Write("<html/>", "page.ui")};
  const Report report = Checked(options);
  EXPECT_EQ(report.code, 1);
  EXPECT_THAT(report.out, HasSubstr("form.ui:1: error: "));
  EXPECT_THAT(report.out, HasSubstr("page.ui:1: error: this is no form of Qt Designer [form]"));
}

TEST_F(CheckFormsTest, AFileThatIsNotThereEndsWithTwoAndTheOthersAreChecked) {
  Options options;
  options.files = {folder_ + "/missing.ui", Write(With({"'@uf@'", "'@x@'", "", ""}))};
  const Report report = Checked(options);
  EXPECT_EQ(report.code, 2);
  EXPECT_THAT(report.error, HasSubstr("missing.ui: "));
  EXPECT_THAT(report.out, HasSubstr("[parameter]"));
}

TEST_F(CheckFormsTest, AFindingInJsonIsOneObjectInALine) {
  Options options;
  options.json = true;
  options.files = {
      Write(With({"LabelAssociado=String:lblCidade", "LabelAssociado=String:ção\"", "", ""}))};
  const Report report = Checked(options);
  EXPECT_EQ(report.code, 1);
  EXPECT_EQ(std::count(report.out.begin(), report.out.end(), '\n'), 1);
  EXPECT_EQ(report.out,
            R"({"field":"cidade","file":")" + options.files.front() + R"(","kind":"name","line":)" +
                std::to_string(LineOf(TextOfFile(CLEAN_FORM), "LabelAssociado")) +
                R"(,"message":"the label \"ção\"\" is not on the form","severity":"error"})"
                "\n");
}

TEST(CheckFormsOptions, AreReadAndRefused) {
  const Options options =
      ParseOptions({"--json", "--driver=postgres", "--connection=host=a", "a.ui", "b.ui"});
  EXPECT_TRUE(options.json);
  EXPECT_EQ(options.driver, "postgres");
  EXPECT_EQ(options.connection, "host=a");
  EXPECT_EQ(options.files, (std::vector<std::string>{"a.ui", "b.ui"}));
  EXPECT_TRUE(ParseOptions({"--help"}).help);
  EXPECT_TRUE(ParseOptions({"--version"}).version);
  EXPECT_THROW(ParseOptions({}), std::invalid_argument);
  EXPECT_THROW(ParseOptions({"--wrong", "a.ui"}), std::invalid_argument);
  EXPECT_THROW(ParseOptions({"--driver=x", "a.ui"}), std::invalid_argument);
}

// --- With a database

class CheckFormsOnAServer : public CheckFormsTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    auto& cluster = PostgresCluster::Shared();
    cluster.Run(
        "set client_min_messages = warning; drop table if exists pedidos, cidades;"
        "create table cidades (codigo text primary key, nome text, uf char(2), ddd int);"
        "create table pedidos (numero int primary key, cidade text)");
    const char* const driver = std::getenv("TESSARIA_DRIVER");
    options_.driver = driver == nullptr ? "odbc" : driver;
    options_.connection = ToUtf8(cluster.ConnectionString());
  }
  Options options_;
};

TEST_F(CheckFormsOnAServer, TheCleanFormIsAccepted) {
  options_.files = {CLEAN_FORM};
  const Report report = Checked(options_);
  EXPECT_EQ(report.out + report.error, "");
  EXPECT_EQ(report.code, 0);
}

TEST_F(CheckFormsOnAServer, WhatTheDatabaseRefusesIsTold) {
  const Planted mistakes[] = {
      {"from pedidos", "from pedido", "from pedido ", "refuses the record source: "},
      {"DataField=String:cidade", "DataField=String:municipio", "municipio",
       "the rows of \"dados\" have no column \"municipio\" [column]"},
      {"BrwCampoOutros=String:ddd", "BrwCampoOutros=String:populacao", "Browse=Object:Browse",
       "the database refuses BrwCampoOutros: "},
      {"uf = '@uf@'", "estado = '@uf@'", "Browse=Object:Browse", "the database refuses BrwWhere: "},
      {"Pesquisa1Campo=String:nome", "Pesquisa1Campo=String:apelido", "Pesquisa=Object:Pesquisa",
       "the database refuses the search \"Nome\": "},
      {"BrowseTable=String:cidades", "BrowseTable=String:municipios", "Browse=Object:Browse",
       "the database refuses the tables of the lookup: "}};
  for (const Planted& planted : mistakes) {
    SCOPED_TRACE(planted.instead);
    ExpectFound(planted, options_);
  }
}

TEST_F(CheckFormsOnAServer, NothingIsChangedThere) {
  PostgresCluster::Shared().Run("insert into pedidos values (1, '00001')");
  ExpectFound({"select numero, cidade from pedidos order by numero",
               "(delete from pedidos returning numero, cidade)", "delete from pedidos",
               "refuses the record source: "},
              options_);
  EXPECT_NO_THROW(PostgresCluster::Shared().Run(
      "do $$ begin assert (select count(*) from pedidos) = 1; end $$"));
}

TEST_F(CheckFormsOnAServer, AServerThatIsNotThereEndsWithTwo) {
  options_.connection = "Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;Database=x;UID=x";
  options_.files = {CLEAN_FORM};
  const Report report = Checked(options_);
  EXPECT_EQ(report.code, 2);
  EXPECT_EQ(report.out, "");
  EXPECT_THAT(report.error, StartsWith("tessaria-check: the database cannot be reached: "));
}

}  // namespace
}  // namespace tessaria::formcheck::test
