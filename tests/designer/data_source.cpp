#include "tests/designer/data_source.h"

#include <QFile>
#include <QTextStream>
#include <stdexcept>

#include "tessaria/qt/text.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {

void nameSource(const QString& path) {
  QString source = qt::toQt(test::PostgresCluster::Shared().ConnectionString());
  source.remove(u'{')
      .remove(u'}')
      .replace(u';', u'\n')
      .replace(QLatin1String("Uid"), QLatin1String("Username"));
  QFile file(path);
  if (!file.open(QIODevice::Append)) throw std::runtime_error("no data source");
  QTextStream(&file) << "[loja]\n" << source << '\n';
  qputenv("ODBCINI", path.toUtf8());
}

}  // namespace tessaria::tests
