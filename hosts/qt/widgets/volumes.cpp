#include "hosts/qt/widgets/volumes.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>
#include <algorithm>
#include <iterator>
#include <utility>

#include "tessaria/error.h"

namespace tessaria::qt {
namespace {

/// File systems that hold only what the system itself needs.
constexpr const char* kOwnTypes[] = {"autofs", "devtmpfs", "efivarfs", "proc",
                                     "ramfs",  "squashfs", "sysfs",    "tmpfs"};

QList<Volume> mountedVolumes() {
  QList<Volume> volumes;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (volume.isValid())
      volumes << Volume{volume.rootPath(), volume.name(), volume.fileSystemType(),
                        volume.isReady()};
  return volumes;
}

/// The state of a thread's volumes.
struct Known {
  VolumeSource source = mountedVolumes;
  QSet<QString> listed;  ///< the roots
};

Known& known() {
  static thread_local Known instance;
  return instance;
}

bool liesIn(const QString& path, const QString& root) {
  if (!path.startsWith(root)) return false;
  return root.endsWith(QLatin1Char('/')) || path.size() == root.size() ||
         path[root.size()] == QLatin1Char('/');
}

bool isSystems(const Volume& volume) { return volume.root == QDir::rootPath(); }

/// A container also mounts single files.
bool isOfPeople(const Volume& volume) {
  if (isSystems(volume)) return true;
  if (!QFileInfo(volume.root).isDir() || liesIn(volume.root, QStringLiteral("/boot"))) return false;
  return std::none_of(std::begin(kOwnTypes), std::end(kOwnTypes),
                      [&](const char* type) { return volume.fileSystem == type; });
}

}  // namespace

VolumeSource exchangeVolumeSource(VolumeSource source) {
  return std::exchange(known().source, std::move(source));
}

QList<Volume> listVolumes() {
  QList<Volume> volumes;
  for (const Volume& volume : known().source())
    if (isOfPeople(volume)) volumes << volume;
  std::stable_partition(volumes.begin(), volumes.end(), isSystems);
  for (const Volume& volume : std::as_const(volumes)) known().listed << volume.root;
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
  const bool wasListed = known().listed.contains(root);
  for (const Volume& volume : listVolumes())
    if (volume.root == root) return volume.isReady && QFileInfo(root).isReadable();
  if (!wasListed) throw HostError(errors::DeviceUnavailable);
  return false;
}

}  // namespace tessaria::qt
