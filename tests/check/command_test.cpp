// The command itself: files, options, exit codes, JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <stdexcept>

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
