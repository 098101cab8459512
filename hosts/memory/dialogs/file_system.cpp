#include "tessaria/memory/dialogs/file_system.h"

#include <algorithm>

#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

constexpr StringView kSeparator = u"\\";

bool SameDrive(StringView a, StringView b) { return EqualNoCase(Left(a, 2), Left(b, 2)); }

/// A path without its last separator, except that of a root; a drive alone is its root.
String Normal(const String& path) {
  const bool isDrive = Mid(path, 2, 1) == u":" && (Len(path) == 2 || Mid(path, 3, 1) == u" ");
  if (isDrive) return Left(path, 2) + String(kSeparator);
  const bool isRoot = Len(path) == 3;
  return EndsWith(path, kSeparator) && !isRoot ? Left(path, Len(path) - 1) : path;
}

struct Split {
  String Folder;
  String Name;
};
Split SplitPath(const String& path) {
  const Long p = InStrRev(path, kSeparator);
  if (p == 0) return {u"", path};
  return {Normal(Left(path, p)), Mid(path, p + 1)};
}

bool Matches(StringView name, StringView pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == u'*') {
    return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
  }
  if (name.empty() || (pattern.front() != u'?' && pattern.front() != name.front())) return false;
  return Matches(name.substr(1), pattern.substr(1));
}

}  // namespace

bool MatchesPattern(StringView name, StringView pattern) {
  return pattern == u"*.*" || Matches(LCase(name), LCase(pattern));
}

void FileSystem::AddDrive(const String& entry, DriveState state) {
  const auto known = std::find_if(drives_.begin(), drives_.end(),
                                  [&](const auto& drive) { return SameDrive(drive.first, entry); });
  if (known != drives_.end()) {
    *known = {entry, state};
  } else {
    drives_.emplace_back(entry, state);
  }
  AddFolder(Left(entry, 2));
}

void FileSystem::AddFolder(const String& path) {
  const String normal = Normal(path);
  if (!folders_.try_emplace(LCase(normal), Folder{normal, {}}).second) return;
  const String above = SplitPath(normal).Folder;
  if (Len(above) >= 3 && above != normal) AddFolder(above);
}

void FileSystem::AddFile(const String& path) {
  const Split parts = SplitPath(path);
  AddFolder(parts.Folder);
  folders_.at(LCase(parts.Folder)).Files[LCase(parts.Name)] = parts.Name;
}

std::vector<String> FileSystem::Drives() const {
  std::vector<String> entries;
  for (const auto& drive : drives_) entries.push_back(drive.first);
  return entries;
}

std::optional<String> FileSystem::DriveOf(const String& path) const {
  for (const auto& drive : drives_) {
    if (SameDrive(drive.first, path)) return drive.first;
  }
  return std::nullopt;
}

void FileSystem::RemoveDrive(const String& entry) {
  std::erase_if(drives_, [&](const auto& drive) { return EqualNoCase(drive.first, entry); });
}

bool FileSystem::DriveReady(const String& drive) const {
  for (const auto& [entry, state] : drives_) {
    if (SameDrive(entry, drive)) return state == DriveState::Ready;
  }
  throw HostError(errors::DeviceUnavailable);
}

const FileSystem::Folder* FileSystem::Find(const String& path) const {
  const auto folder = folders_.find(LCase(Normal(path)));
  if (folder == folders_.end()) return nullptr;
  return DriveOf(path) && !DriveReady(path) ? nullptr : &folder->second;
}

String FileSystem::RequireFolder(const String& path) const {
  if (const auto* folder = Find(path)) return folder->Path;
  throw HostError(errors::PathNotFound);
}

std::vector<String> FileSystem::FoldersIn(const String& path) const {
  const String folder = RequireFolder(path);
  std::vector<String> names;
  for (const auto& [key, below] : folders_) {
    const Split parts = SplitPath(below.Path);
    if (!parts.Name.empty() && EqualNoCase(parts.Folder, folder)) names.push_back(parts.Name);
  }
  return names;
}

std::vector<String> FileSystem::FilesIn(const String& path, const String& patterns) const {
  const auto* folder = Find(path);
  if (folder == nullptr) throw HostError(errors::PathNotFound);
  std::vector<String> names;
  for (const auto& [key, name] : folder->Files) {
    String rest = patterns + u";";
    for (Long end; (end = InStr(rest, u";")) > 0; rest = Mid(rest, end + 1)) {
      if (!MatchesPattern(name, Trim(Left(rest, end - 1)))) continue;
      names.push_back(name);
      break;
    }
  }
  return names;
}

String FileSystem::Dir(const String& pattern) const {
  const Split parts = SplitPath(pattern);
  const auto* folder = Find(parts.Folder);
  if (folder == nullptr) return {};
  const StringView wanted = parts.Name.empty() ? u"*.*" : StringView(parts.Name);
  for (const auto& [key, name] : folder->Files) {
    if (MatchesPattern(name, wanted)) return name;
  }
  return {};
}

}  // namespace tessaria::memory
