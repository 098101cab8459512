// Folders and files of the system, as dialogs list them.
#pragma once

#include <QString>
#include <QStringList>

namespace tessaria::qt {

enum class Hidden { Skipped, Listed };

/// Why a folder cannot be read, in a sentence for the operator; empty when it can.
QString whyUnreadable(const QString& folder);
/// The folder's path, with a separator behind only for a root. Error 76, with the reason, for
/// one that cannot be read.
QString requireFolder(const QString& path);

/// Names of the folders right below, in order of name.
QStringList foldersIn(const QString& folder, Hidden hidden);
/// Names of the files that match one of the patterns, which semicolons divide, in order of name.
/// "*.*" matches every name.
QStringList filesIn(const QString& folder, const QString& patterns, Hidden hidden);
/// The name of the first file that a path matches, in whose name "*" and "?" are wildcards; the
/// file of exactly that name comes before all. Empty for none. Hidden files match only a pattern
/// that begins with their dot.
QString firstFile(const QString& pattern);

/// The topmost folder above a path: "/", or what names the drive or the share.
QString rootOf(const QString& path);

}  // namespace tessaria::qt
