#include "tessaria/memory/dialogs/file_lists.h"

namespace tessaria::memory {

DriveList::DriveList(std::shared_ptr<memory::Part> part, FileSystemPtr files)
    : DialogItemOf(std::move(part)), files_(std::move(files)) {
  const auto drives = files_->Drives();
  if (!drives.empty()) drive_ = drives.front();
}

void DriveList::Drive(const String& path) {
  const auto entry = files_->DriveOf(path);
  if (!entry) throw HostError(errors::DeviceUnavailable);
  drive_ = *entry;
}

FolderList::FolderList(std::shared_ptr<memory::Part> part, FileSystemPtr files)
    : DialogItemOf(std::move(part)), files_(std::move(files)) {}

void FolderList::Path(const String& path) {
  const String folder = files_->RequireFolder(path);
  if (folder == path_) return;
  path_ = folder;
  if (const auto change = OnChange) change();
}

FileList::FileList(std::shared_ptr<memory::Part> part, FileSystemPtr files)
    : DialogItemOf(std::move(part)), files_(std::move(files)) {}

void FileList::Path(const String& path) {
  const String folder = files_->RequireFolder(path);
  if (folder == path_) return;
  path_ = folder;
  selected_.clear();
}

void FileList::Pattern(const String& pattern) {
  pattern_ = pattern;
  selected_.clear();
}

std::vector<String> FileList::List() const {
  return path_.empty() ? std::vector<String>() : files_->FilesIn(path_, pattern_);
}

void FileList::Select(Long position) {
  const auto names = List();
  if (position < 0 || static_cast<std::size_t>(position) >= names.size())
    throw HostError(errors::SubscriptOutOfRange);
  selected_ = names[static_cast<std::size_t>(position)];
}

}  // namespace tessaria::memory
