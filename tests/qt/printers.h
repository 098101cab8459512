// How failing tests print Qt's types.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
  *out << '[' << texts.join(QStringLiteral(" | ")).toStdString() << ']';
}
inline void PrintTo(const QVariant& value, std::ostream* out) {
  *out << (value.typeName() ? value.typeName() : "empty") << ' ' << value.toString().toStdString();
}
QT_END_NAMESPACE
