#include "hosts/qt/widgets/folders.h"

#include <QDir>
#include <QFileInfo>

#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr QDir::SortFlags kByName = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;

QDir::Filters withHidden(QDir::Filters filters, Hidden hidden) {
  return hidden == Hidden::Listed ? filters | QDir::Hidden : filters;
}

/// The pattern for Qt, where an unescaped "[" would begin a set of characters.
QString nameFilter(QString pattern) {
  if (pattern == QLatin1String("*.*")) return QStringLiteral("*");
  return pattern.replace(QLatin1Char('['), QLatin1String("[[]"));
}

QStringList matching(const QString& folder, const QStringList& filters, Hidden hidden) {
  return QDir(folder).entryList(filters, withHidden(QDir::Files, hidden), kByName);
}

}  // namespace

QString whyUnreadable(const QString& folder) {
  const QFileInfo info(folder);
  if (!info.exists()) return QStringLiteral("A pasta %1 não existe.").arg(folder);
  if (!info.isDir()) return QStringLiteral("%1 não é uma pasta.").arg(folder);
  if (!info.isReadable() || !info.isExecutable())
    return QStringLiteral("Sem permissão para ler a pasta %1.").arg(folder);
  return {};
}

QString requireFolder(const QString& path) {
  if (const QString reason = whyUnreadable(path); !reason.isEmpty())
    throw HostError(errors::PathNotFound, fromQt(reason));
  return QDir::cleanPath(path);
}

QStringList foldersIn(const QString& folder, Hidden hidden) {
  return QDir(folder).entryList(withHidden(QDir::Dirs | QDir::NoDotAndDotDot, hidden), kByName);
}

QStringList filesIn(const QString& folder, const QString& patterns, Hidden hidden) {
  QStringList filters;
  for (const QString& pattern : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts))
    filters << nameFilter(pattern.trimmed());
  return filters.isEmpty() ? QStringList() : matching(folder, filters, hidden);
}

QString firstFile(const QString& pattern) {
  const qsizetype end = pattern.lastIndexOf(QLatin1Char('/'));
  const QString folder = end < 0 ? QStringLiteral(".") : pattern.left(end + 1);
  const QString name = pattern.mid(end + 1);
  // A name may contain characters that are special in a pattern.
  if (!name.isEmpty() && QFileInfo(pattern).isFile()) return name;
  const auto hidden = name.startsWith(QLatin1Char('.')) ? Hidden::Listed : Hidden::Skipped;
  const QString filter = name.isEmpty() ? QStringLiteral("*") : nameFilter(name);
  return matching(folder, {filter}, hidden).value(0);
}

QString rootOf(const QString& path) {
  const QLatin1Char separator('/');
  if (!path.startsWith(QLatin1String("//"))) {
    const qsizetype first = path.indexOf(separator);
    return first < 0 ? path + separator : path.left(first + 1);
  }
  const qsizetype server = path.indexOf(separator, 2);
  const qsizetype share = server < 0 ? -1 : path.indexOf(separator, server + 1);
  return share < 0 ? path : path.left(share);
}

}  // namespace tessaria::qt
