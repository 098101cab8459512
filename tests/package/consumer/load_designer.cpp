// The installed plugin for Qt Designer, from where its program tells Designer to look for it.
#include <QCoreApplication>
#include <QDir>
#include <QPluginLoader>
#include <cstdio>

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QString folders = qEnvironmentVariable("QT_PLUGIN_PATH");
  int loaded = 0;
  for (const QString& folder : folders.split(QDir::listSeparator(), Qt::SkipEmptyParts)) {
    const QDir plugins(folder + QStringLiteral("/designer"));
    for (const QString& file : plugins.entryList({QStringLiteral("*TessariaDesigner*")})) {
      QPluginLoader plugin(plugins.filePath(file));
      if (plugin.instance())
        ++loaded;
      else
        std::fprintf(stderr, "%s\n", qPrintable(plugin.errorString()));
    }
  }
  if (loaded == 1) return 0;
  std::fprintf(stderr, "%d plugins in %s\n", loaded, qPrintable(folders));
  return 1;
}
