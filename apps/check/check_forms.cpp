#include "apps/check/check_forms.h"

#include <QFile>
#include <algorithm>
#include <ostream>

#include "apps/check/database_rules.h"
#include "apps/check/rules.h"
#include "apps/check/settings_reader.h"
#include "tessaria/error.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"

namespace tessaria::formcheck {
namespace {

host::ConnectionPtr Connect(const Options& options) {
  if (options.connection.empty()) return nullptr;
  auto connection =
      options.driver == "odbc" ? odbc::CreateConnection() : postgres::CreateConnection();
  connection->ConnectionString(FromUtf8(options.connection));
  connection->Open();
  return connection;
}

Findings CheckForm(QIODevice& file, host::Connection* connection) {
  Findings findings;
  CheckedForm form;
  if (!ReadForm(file, form.file, findings)) return findings;
  CheckClasses(form.file, findings);
  for (const FormWidget& widget : form.file.widgets)
    if (form.file.IsField(widget)) form.fields.push_back(ReadSettings(widget, findings));
  for (const Field& field : form.fields) {
    CheckMasks(field, findings);
    CheckNames(form, field, findings);
    CheckLookup(field, findings);
    CheckPair(form, field, findings);
    CheckParameters(form, field, findings);
  }
  if (connection) CheckDatabase(form, *connection, findings);
  return findings;
}

/// Returns whether there was any.
bool Tell(const Options& options, const std::string& file, const Findings& findings,
          std::ostream& out) {
  bool any = false;
  for (const Finding& finding : findings.InOrder()) {
    if (finding.severity == Severity::Warning && !options.warnings) continue;
    any = true;
    out << (options.json ? AsJson(file, finding) : AsText(file, finding)) << "\n";
  }
  return any;
}

}  // namespace

const Field* CheckedForm::FieldNamed(StringView name) const {
  const FormWidget* const widget = file.Named(name);
  // Fields and widgets have the same order.
  const auto found = std::lower_bound(
      fields.begin(), fields.end(), widget,
      [](const Field& field, const FormWidget* wanted) { return field.widget < wanted; });
  return widget && found != fields.end() && found->widget == widget ? &*found : nullptr;
}

int CheckForms(const Options& options, std::ostream& out, std::ostream& error) {
  int code = 0;
  try {
    const host::ConnectionPtr connection = Connect(options);
    for (const std::string& path : options.files) {
      QFile file(QString::fromStdString(path));
      if (!file.open(QIODevice::ReadOnly)) {
        error << "tessaria-check: " << path << ": " << file.errorString().toStdString() << "\n";
        code = 2;
      } else if (Tell(options, path, CheckForm(file, connection.get()), out) && code == 0) {
        code = 1;
      }
    }
    return code;
  } catch (const HostError& failure) {
    error << "tessaria-check: the database cannot be asked: " << failure.what() << "\n";
    return 2;
  }
}

}  // namespace tessaria::formcheck
