#include "apps/check/finding.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace tessaria::formcheck {
namespace {

const char* NameOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

}  // namespace

std::vector<Finding> Findings::InOrder() const {
  std::vector<Finding> list = list_;
  std::stable_sort(list.begin(), list.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
  return list;
}

std::string AsText(const std::string& file, const Finding& finding) {
  std::string text = file + ":" + std::to_string(finding.line) + ": " + NameOf(finding.severity);
  if (!finding.field.empty()) text += ": " + finding.field;
  return InOneLine(text + ": " + finding.message + " [" + finding.kind + "]");
}

std::string AsJson(const std::string& file, const Finding& finding) {
  const QJsonObject object{{QStringLiteral("file"), QString::fromStdString(file)},
                           {QStringLiteral("line"), finding.line},
                           {QStringLiteral("field"), QString::fromStdString(finding.field)},
                           {QStringLiteral("severity"), QLatin1String(NameOf(finding.severity))},
                           {QStringLiteral("kind"), QString::fromStdString(finding.kind)},
                           {QStringLiteral("message"), QString::fromStdString(finding.message)}};
  return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

std::string InOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
  return text;
}

std::string Quoted(StringView text) { return "'" + ToUtf8(text) + "'"; }

}  // namespace tessaria::formcheck
