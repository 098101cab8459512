#include "hosts/qt/dialogs/volumes.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>
#include <iterator>

#include "tessaria/error.h"

namespace tessaria::qt {
namespace {

/// File systems that hold what the system itself needs.
constexpr const char* kOwnTypes[] = {"autofs", "devtmpfs", "efivarfs", "proc",
                                     "ramfs",  "squashfs", "sysfs",    "tmpfs"};

bool isOfPeople(const QStorageInfo& volume) {
  if (!volume.isValid() || !QFileInfo(volume.rootPath()).isDir()) return false;
  if (volume.isRoot()) return true;
  if (volume.rootPath().startsWith(QLatin1String("/boot"))) return false;
  return std::none_of(std::begin(kOwnTypes), std::end(kOwnTypes),
                      [&](const char* type) { return volume.fileSystemType() == type; });
}

bool liesIn(const QString& path, const QString& root) {
  if (!path.startsWith(root)) return false;
  return root.endsWith(QLatin1Char('/')) || path.size() == root.size() ||
         path[root.size()] == QLatin1Char('/');
}

}  // namespace

QList<Volume> mountedVolumes() {
  QList<Volume> volumes;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (isOfPeople(volume)) volumes << Volume{volume.rootPath(), volume.name()};
  const QString system = QStorageInfo::root().rootPath();
  std::stable_partition(volumes.begin(), volumes.end(),
                        [&](const Volume& volume) { return volume.root == system; });
  return volumes;
}

QString volumeOf(const QString& path, const QList<Volume>& volumes) {
  const QString clean = QDir::cleanPath(path);
  QString found;
  for (const Volume& volume : volumes)
    if (liesIn(clean, volume.root) && volume.root.size() > found.size()) found = volume.root;
  return found;
}

bool isReady(const QString& root) {
  const QStorageInfo volume(root);
  if (!volume.isValid() || volume.rootPath() != QDir::cleanPath(root))
    throw HostError(errors::DeviceUnavailable);
  return volume.isReady() && QFileInfo(root).isReadable();
}

}  // namespace tessaria::qt
