// The volumes that the system has mounted.
#pragma once

#include <QList>
#include <QString>

namespace tessaria::qt {

struct Volume {
  QString root;   ///< the folder that it is mounted on
  QString label;  ///< what the operator calls it; may be empty
};

/// Those that hold files of people: disks, shares and sticks, the system's first.
QList<Volume> mountedVolumes();
/// The root of the volume that a path lies on; empty when it lies on none of them.
QString volumeOf(const QString& path, const QList<Volume>& volumes);
/// Whether the volume of that root can be read. Error 68 when it is none.
bool isReady(const QString& root);

}  // namespace tessaria::qt
