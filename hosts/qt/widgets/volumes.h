// The volumes that the system has mounted.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <functional>

namespace tessaria::qt {

struct Volume {
  QString root;                ///< the folder that it is mounted on
  QString label = {};          ///< what the operator calls it; may be empty
  QByteArray fileSystem = {};  ///< the type of its file system, as the system names it
  bool isReady = true;
};

/// Returns all that is mounted, including what the system mounts for itself.
using VolumeSource = std::function<QList<Volume>()>;
/// Replaces the source of this thread and returns the former one; the initial one asks the system.
VolumeSource exchangeVolumeSource(VolumeSource source);

/// The volumes that hold users' files: disks, shares and sticks, the system's disk first. They
/// count as listed from then on.
QList<Volume> listVolumes();
/// The root of the volume that a path is on; empty if it is on none of them.
QString volumeOf(const QString& path, const QList<Volume>& volumes);
/// Whether the volume with that root can be read; false for one that was listed and is gone. Error
/// 68 if it is not a volume.
bool isReady(const QString& root);

}  // namespace tessaria::qt
