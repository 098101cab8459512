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
  QByteArray fileSystem = {};  ///< the kind of its file system, as the system names it
  bool isReady = true;
};

/// Tells all that is mounted, what the system has for itself too.
using VolumeSource = std::function<QList<Volume>()>;
/// Puts a source in the place of the thread's, and gives that one back; the first asks the system.
VolumeSource exchangeVolumeSource(VolumeSource source);

/// Those that hold files of people: disks, shares and sticks, the system's first. They are listed
/// from then on.
QList<Volume> listVolumes();
/// The root of the volume that a path lies on; empty when it lies on none of them.
QString volumeOf(const QString& path, const QList<Volume>& volumes);
/// Whether the volume of that root can be read; false for one that was listed and is gone. Error
/// 68 for what is no volume.
bool isReady(const QString& root);

}  // namespace tessaria::qt
