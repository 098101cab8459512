// The lists of drives, folders and files of memory dialogs.
#pragma once

#include "tessaria/export.h"
#include "tessaria/memory/dialogs/dialog_item.h"
#include "tessaria/memory/dialogs/file_system.h"

namespace tessaria::memory {

using FileSystemPtr = std::shared_ptr<const FileSystem>;

/// Starts on the first drive.
class TESSARIA_MEMORY_API DriveList final : public DialogItemOf<host::DriveList> {
 public:
  DriveList(std::shared_ptr<memory::Part> part, FileSystemPtr files);

  String Drive() const override { return drive_; }
  void Drive(const String& path) override;
  std::vector<String> List() const override { return files_->Drives(); }

 private:
  FileSystemPtr files_;
  String drive_;
};

/// The folders of a `FileSystem`.
class TESSARIA_MEMORY_API FolderList final : public DialogItemOf<host::FolderList> {
 public:
  FolderList(std::shared_ptr<memory::Part> part, FileSystemPtr files);

  String Path() const override { return path_; }
  void Path(const String& path) override;
  /// The folders that can be opened from here.
  std::vector<String> Folders() const { return files_->FoldersIn(path_); }

 private:
  FileSystemPtr files_;
  String path_;
};

/// The files of a `FileSystem`.
class TESSARIA_MEMORY_API FileList final : public DialogItemOf<host::FileList> {
 public:
  FileList(std::shared_ptr<memory::Part> part, FileSystemPtr files);

  String Path() const override { return path_; }
  void Path(const String& path) override;
  String Pattern() const override { return pattern_; }
  void Pattern(const String& pattern) override;
  std::vector<String> List() const override;
  String FileName() const override { return selected_; }
  void Select(Long position) override;

 private:
  FileSystemPtr files_;
  String path_;
  String pattern_ = u"*.*";
  String selected_;
};

}  // namespace tessaria::memory
