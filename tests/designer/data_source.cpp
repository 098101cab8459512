#include "tests/designer/data_source.h"

#include <QFile>
#include <QTextStream>
#include <stdexcept>

#include "tessaria/qt/text.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {

void addSource(const QString& path, const QString& name, const String& connectionString) {
  QString source = qt::toQt(connectionString);
  source.remove(u'{')
      .remove(u'}')
      .replace(u';', u'\n')
      .replace(QLatin1String("Uid"), QLatin1String("Username"));
  QFile file(path);
  if (!file.open(QIODevice::Append)) throw std::runtime_error("no data source");
  QTextStream(&file) << '[' << name << "]\n" << source << '\n';
}

void nameSource(const QString& path) {
  addSource(path, QStringLiteral("loja"), test::PostgresCluster::Shared().ConnectionString());
  qputenv("ODBCINI", path.toUtf8());
}

}  // namespace tessaria::tests
