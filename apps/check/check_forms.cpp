#include "apps/check/check_forms.h"

#include <algorithm>
#include <vector>

#include "apps/check/checks.h"

#include <tessaria/error.h>
#include <tessaria/odbc/connection.h>
#include <tessaria/postgres/connection.h>
#include <tessaria/utf8.h>

namespace tessaria::formcheck {
namespace {

constexpr int kNothing = 0;
constexpr int kFindings = 1;
constexpr int kFailed = 2;

/// Null without a connection string. Raises the errors of the provider.
host::ConnectionPtr Connect(const Options& options) {
  if (options.connection.empty()) return nullptr;
  const auto connection =
      options.driver == "odbc" ? odbc::CreateConnection() : postgres::CreateConnection();
  connection->ConnectionString(FromUtf8(options.connection));
  connection->Open();
  return connection;
}

std::vector<Finding> FindingsIn(FormFile file, host::Connection* connection) {
  std::vector<Finding> findings;
  Form form{std::move(file), {}};
  for (const Widget& widget : form.file.widgets) {
    if (widget.className != kFieldClass) continue;
    form.fields.emplace_back(widget);
    form.fields.back().Read(findings);
  }
  Check check(form, findings);
  check.Masks();
  check.Names();
  check.Lookups();
  check.Parameters();
  if (connection != nullptr) check.Database(*connection);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
  return findings;
}

int CheckFile(const std::string& path, const Options& options, host::Connection* connection,
              std::ostream& out) {
  std::vector<Finding> findings;
  try {
    findings = FindingsIn(ReadForm(path), connection);
  } catch (const NoForm& reason) {
    findings = {{{}, reason.line, {}, "form", Severity::Mistake, reason.what()}};
  }
  for (Finding& finding : findings) {
    finding.file = path;
    options.json ? WriteJson(finding, out) : WriteText(finding, out);
  }
  return findings.empty() ? kNothing : kFindings;
}

}  // namespace

int CheckForms(const Options& options, std::ostream& out, std::ostream& error) {
  host::ConnectionPtr connection;
  try {
    connection = Connect(options);
  } catch (const HostError& failure) {
    error << "tessaria-check: the database cannot be reached: " << failure.what() << "\n";
    return kFailed;
  }
  int code = kNothing;
  for (const std::string& path : options.files) {
    try {
      code = std::max(code, CheckFile(path, options, connection.get(), out));
    } catch (const Unreadable& reason) {
      error << "tessaria-check: " << path << ": " << reason.what() << "\n";
      code = kFailed;
    }
  }
  return code;
}

}  // namespace tessaria::formcheck
