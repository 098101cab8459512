#include "apps/check/finding.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace tessaria::formcheck {
namespace {

const char* NameOf(Severity severity) {
  return severity == Severity::Mistake ? "error" : "warning";
}

}  // namespace

void WriteText(const Finding& finding, std::ostream& out) {
  out << finding.file << ':';
  if (finding.line > 0) out << finding.line << ':';
  out << ' ' << NameOf(finding.severity) << ": ";
  if (!finding.field.empty()) out << finding.field << ": ";
  out << finding.message << " [" << finding.kind << "]\n";
}

void WriteJson(const Finding& finding, std::ostream& out) {
  const QJsonObject object{{QStringLiteral("file"), QString::fromStdString(finding.file)},
                           {QStringLiteral("line"), finding.line},
                           {QStringLiteral("field"), QString::fromStdString(finding.field)},
                           {QStringLiteral("kind"), QString::fromStdString(finding.kind)},
                           {QStringLiteral("severity"), QLatin1String(NameOf(finding.severity))},
                           {QStringLiteral("message"), QString::fromStdString(finding.message)}};
  out << QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() << "\n";
}

}  // namespace tessaria::formcheck
