// The command itself: files, options, exit codes, JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <algorithm>
#include <stdexcept>
#include <string>

#include "tests/check/planted_form.h"

namespace tessaria::formcheck::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

Report RunProgram(const QStringList& arguments) {
  QProcess program;
  program.start(QStringLiteral(TESSARIA_CHECK), arguments);
  program.waitForFinished();
  return {program.exitCode(), program.readAllStandardOutput().toStdString(),
          program.readAllStandardError().toStdString()};
}

TEST(CheckFormsTest, CleanFormHasNoFinding) {
  Options options;
  options.files = {CleanPath()};
  const Report report = Check(options);
  EXPECT_EQ(report.out, "");
  EXPECT_EQ(report.code, 0);
}

TEST(CheckFormsTest, FormsOfTheDemoHaveNoFinding) {
  const std::string folder = TESSARIA_DEMO_FORMS;
  Options options;
  options.files = {folder + "/customer_form.ui", folder + "/order_form.ui",
                   folder + "/main_window.ui"};
  const Report report = Check(options);
  EXPECT_EQ(report.out, "");
  EXPECT_EQ(report.code, 0);
}

TEST(CheckFormsTest, BrokenXmlIsFoundAtItsLine) {
  const PlantedForm form("<widget class=\"QLineEdit\" name=\"livre\"/>",
                         "<widget class=\"QLineEdit\" name=\"livre\">");
  const Report report = Check(form);
  const int line = form.LineOf("<widget class=\"QLineEdit\" name=\"livre\">") + 1;
  EXPECT_THAT(report.out,
              StartsWith(form.Path() + ":" + std::to_string(line) + ": error: broken XML: "));
  EXPECT_EQ(report.code, 1);
}

TEST(CheckFormsTest, FileWithoutFormIsFound) {
  for (const char* contents : {"<ui version=\"4.0\"><class>A</class></ui>", "<html/>"}) {
    const PlantedForm form{std::string(contents)};
    const Report report = Check(form);
    EXPECT_EQ(report.out, form.Path() + ":1: error: there is no form in this file [no-form]\n");
    EXPECT_EQ(report.code, 1);
  }
}

/// Contents that are no form, and what is told.
struct BadFile {
  const char* name;
  std::string contents;
  const char* finding;
};
void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }

std::string Nested(int depth) {
  std::string form = "<ui>";
  for (int i = 0; i < depth; ++i) form += "<widget class=\"QWidget\" name=\"a\">";
  return form;
}

class BadFileTest : public ::testing::TestWithParam<BadFile> {};

TEST_P(BadFileTest, IsToldAsAFinding) {
  const PlantedForm form(GetParam().contents);
  const Report report = Check(form);
  EXPECT_EQ(report.out, form.Path() + GetParam().finding + "\n");
  EXPECT_EQ(report.error, "");
  EXPECT_EQ(report.code, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Of, BadFileTest,
    ::testing::Values(
        BadFile{"Empty", "", ":1: error: broken XML: Premature end of document. [xml]"},
        BadFile{"NoXml", "texto", ":1: error: broken XML: Start tag expected. [xml]"},
        BadFile{"Cut", "<ui>\n<widget class=\"QWidget\" name=\"a",
                ":2: error: broken XML: Premature end of document. [xml]"},
        BadFile{"NotUtf8",
                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui><widget name=\"\xe7\"/></ui>",
                ":1: error: broken XML: Encountered incorrectly encoded content. [xml]"},
        BadFile{"NestedTooDeeply", Nested(100'000),
                ":1: error: broken XML: widgets are nested too deeply [xml]"}),
    [](const auto& file) { return std::string(file.param.name); });

TEST(CheckFormsTest, FolderIsNoFile) {
  Options options;
  options.files = {TESSARIA_CHECK_FORMS};
  const Report report = Check(options);
  EXPECT_THAT(report.error, StartsWith("tessaria-check: " TESSARIA_CHECK_FORMS ": "));
  EXPECT_EQ(report.out, "");
  EXPECT_EQ(report.code, 2);
}

TEST(CheckFormsTest, FormWithoutFieldsHasNoFinding) {
  const PlantedForm form("<ui version=\"4.0\"><widget class=\"QWidget\" name=\"a\"/></ui>");
  EXPECT_EQ(Check(form).out, "");
  EXPECT_EQ(Check(form).code, 0);
}

// Ten megabytes. Each field has a sibling, but the last, and a label that is not there.
TEST(CheckFormsTest, LargeFormIsRead) {
  constexpr int kFields = 45'000;
  std::string text = "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"form\">\n";
  for (int i = 0; i < kFields; ++i)
    text += "<widget class=\"tessaria::qt::TsText\" name=\"c" + std::to_string(i) +
            "\"><property name=\"settings\"><stringlist><string>tessaria 1</string>"
            "<string>LabelAssociado=String:lbl</string><string>TxtIrmao=String:c" +
            std::to_string(i + 1) + "</string></stringlist></property></widget>\n";
  const PlantedForm form(text + "</widget></ui>\n");
  const Report report = Check(form);
  EXPECT_THAT(report.out, HasSubstr(":2: error: c0: LabelAssociado 'lbl' is not on this form"));
  EXPECT_THAT(report.out, HasSubstr("c44999: TxtIrmao 'c45000' is not on this form [name]\n"));
  EXPECT_EQ(report.code, 1);
}

TEST(CheckFormsTest, FindingWithALineEndIsOneLine) {
  const PlantedForm form("LabelAssociado=String:lblCodigo",
                         "LabelAssociado=String:a&#10;&quot;\\b");
  const Report report = Check(form);
  EXPECT_THAT(report.out, HasSubstr("codigo: 'String:a \"\\b' is no stored value [value]\n"));
  EXPECT_EQ(std::count(report.out.begin(), report.out.end(), '\n'), 1);
  Options options;
  options.files = {form.Path()};
  options.json = true;
  const QByteArray out = QByteArray::fromStdString(Check(options).out);
  ASSERT_EQ(out.count('\n'), 1);
  EXPECT_EQ(QJsonDocument::fromJson(out).object().value("message").toString(),
            QStringLiteral("'String:a\n\"\\b' is no stored value"));
}

TEST(CheckFormsTest, MissingFileDoesNotHideTheOthers) {
  const PlantedForm form("MaxLength=Integer:40", "MaxLength=Integer:-1");
  Options options;
  options.files = {"/nowhere/a.ui", form.Path()};
  const Report report = Check(options);
  EXPECT_THAT(report.error, HasSubstr("/nowhere/a.ui: "));
  EXPECT_THAT(report.out, HasSubstr("MaxLength is at least 0"));
  EXPECT_EQ(report.code, 2);
}

TEST(CheckFormsTest, WarningsCanBeLeftOut) {
  const PlantedForm form("<string>PromptInclude=Boolean:True</string>", "");
  Options options;
  options.files = {form.Path()};
  EXPECT_EQ(Check(options).code, 1);
  options.warnings = false;
  EXPECT_EQ(Check(options).out, "");
  EXPECT_EQ(Check(options).code, 0);
}

TEST(CheckFormsTest, JsonIsReadBack) {
  const PlantedForm form("PodeSerBranco=Boolean:False</string>",
                         "PodeSerBranco=Boolean:False</string><string>\"ação\"=Long:1</string>");
  Options options;
  options.files = {form.Path()};
  options.json = true;
  const QByteArray out = QByteArray::fromStdString(Check(options).out);
  ASSERT_EQ(out.count('\n'), 1);
  const QJsonObject finding = QJsonDocument::fromJson(out).object();
  EXPECT_EQ(finding.value("file").toString().toStdString(), form.Path());
  EXPECT_EQ(finding.value("line").toInt(), form.LineOf("\"ação\""));
  EXPECT_EQ(finding.value("field").toString(), "codigo");
  EXPECT_EQ(finding.value("severity").toString(), "error");
  EXPECT_EQ(finding.value("kind").toString(), "unknown-setting");
  EXPECT_EQ(finding.value("message").toString(),
            QString::fromUtf8("there is no setting '\"ação\"'"));
}

TEST(CheckFormsTest, ActionOfAToolButtonCanCancel) {
  const PlantedForm form("<widget class=\"QLineEdit\" name=\"livre\"/>",
                         "<widget class=\"QLineEdit\" name=\"livre\"/></item>"
                         "<item><widget class=\"QToolBar\" name=\"barra\">"
                         "<action name=\"acaoVoltar\"/></widget>");
  EXPECT_EQ(Check(form).code, 0);
}

TEST(CheckProgramTest, ExitCodesAreThoseOfItsUsage) {
  const QString clean = QString::fromStdString(CleanPath());
  const PlantedForm form("MaxLength=Integer:40", "MaxLength=Integer:-1");
  EXPECT_EQ(RunProgram({clean}).code, 0);
  EXPECT_EQ(RunProgram({clean, QString::fromStdString(form.Path())}).code, 1);
  EXPECT_EQ(RunProgram({QStringLiteral("/nowhere/a.ui")}).code, 2);
  EXPECT_EQ(RunProgram({}).code, 2);
  EXPECT_EQ(RunProgram({QStringLiteral("--fast"), clean}).code, 2);
}

TEST(CheckProgramTest, HelpAndVersionNeedNoFile) {
  const Report help = RunProgram({QStringLiteral("--help")});
  EXPECT_EQ(help.code, 0);
  EXPECT_THAT(help.out, StartsWith("Usage: tessaria-check "));
  const Report version = RunProgram({QStringLiteral("--version")});
  EXPECT_EQ(version.code, 0);
  EXPECT_THAT(version.out, StartsWith("tessaria-check 0."));
}

TEST(CheckOptionsTest, AreRead) {
  const Options options = ParseOptions({"--json", "--no-warnings", "--driver=postgres",
                                        "--connection", "host=a", "a.ui", "--", "-b"});
  EXPECT_TRUE(options.json);
  EXPECT_FALSE(options.warnings);
  EXPECT_EQ(options.driver, "postgres");
  EXPECT_EQ(options.connection, "host=a");
  EXPECT_EQ(options.files, (std::vector<std::string>{"a.ui", "-b"}));
}

TEST(CheckOptionsTest, MistakesAreTold) {
  const std::vector<std::vector<std::string>> mistakes = {{},
                                                          {"--json"},
                                                          {"--fast", "a.ui"},
                                                          {"--driver=oci", "a.ui"},
                                                          {"a.ui", "--connection"},
                                                          {"--connection=", "a.ui"}};
  for (const auto& arguments : mistakes)
    EXPECT_THROW(ParseOptions(arguments), std::invalid_argument);
}

}  // namespace
}  // namespace tessaria::formcheck::test
