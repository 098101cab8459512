// Folders and files of the file system, as dialogs list them.
#pragma once

#include <QString>
#include <QStringList>

namespace tessaria::qt {

enum class Hidden { Skipped, Listed };

/// Why a folder cannot be read, in a sentence for the operator; empty when it can.
QString whyUnreadable(const QString& folder);
/// The folder's path, with a trailing separator only for a root. Error 76, with the reason, if it
/// cannot be read.
QString requireFolder(const QString& path);

/// The names of the folders directly below, ordered by name.
QStringList foldersIn(const QString& folder, Hidden hidden);
/// The names of the files that match one of the patterns, ordered by name. Semicolons separate the
/// patterns; "*.*" matches every name.
QStringList filesIn(const QString& folder, const QString& patterns, Hidden hidden);
/// The name of the first file that matches a path, in whose name "*" and "?" are wildcards; a file
/// with exactly that name comes first. Empty if there is none. Hidden files match only a pattern
/// that begins with their dot.
QString firstFile(const QString& pattern);

/// The topmost folder above a path: "/", or what names the drive or the share.
QString rootOf(const QString& path);

}  // namespace tessaria::qt
