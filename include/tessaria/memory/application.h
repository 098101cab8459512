// The hosting program without a screen: boxes are recorded and answered by a script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/application.h"

namespace tessaria::memory {

/// A picture, known by the file that it came from.
class TESSARIA_MEMORY_API Picture final : public host::Picture {
 public:
  explicit Picture(String path) : path_(std::move(path)) {}
  const String& Path() const { return path_; }

 private:
  String path_;
};

/// A message box that was shown.
struct TESSARIA_MEMORY_API MessageBoxRecord {
  Long Owner = 0;
  String Text;
  Long Style = 0;
  String Title;
  bool operator==(const MessageBoxRecord&) const = default;
};

/// A line of text that was asked for.
struct TESSARIA_MEMORY_API InputBoxRecord {
  String Prompt;
  String Title;
  String Offered;
  bool operator==(const InputBoxRecord&) const = default;
};

/// The services of a program that has no screen. While it exists it is the application of its
/// thread; its destructor restores the former one.
class TESSARIA_MEMORY_API Application final : public host::Application {
 public:
  Application();
  ~Application() override;

  String Path() const override { return path_; }
  void Path(const String& path) { path_ = path; }
  char16_t PathSeparator() const override { return u'\\'; }
  bool FileExists(const String& path) const override;
  std::shared_ptr<host::Picture> LoadPicture(const String& path) override;
  void Beep() override { ++beeps_; }
  /// Runs what was posted until now, then `OnDoEvents`.
  void DoEvents() override;
  /// Returns the next answer of the script; when there is none, the answer that closing the box
  /// gives: no for a yes/no box, OK for any other.
  Long ShowMessageBox(Long owner, const String& text, Long style, const String& title) override;

  /// Returns the next text of the script; when there is none, "" as for a box that is cancelled.
  String ShowInputBox(const String& prompt, const String& title, const String& offered) override;
  std::vector<String> DataSourceNames() const override;
  std::shared_ptr<host::Connection> NewConnection() override;

  // --- The script ------------------------------------------------------------------------------
  enum class FileKind { Other, Picture };
  /// Adds a file by its full path; names are compared without regard to case.
  void AddFile(const String& path, FileKind kind = FileKind::Other);
  /// Removes a file; one that is not there is no error.
  void RemoveFile(const String& path);
  /// Queues the answer to a later box.
  void WillAnswer(Long answer) { answers_.push_back(answer); }
  /// Queues the text that is entered into a later box that asks for one.
  void WillEnter(const String& text) { entries_.push_back(text); }
  /// Adds a name to those of the data sources.
  void AddDataSource(const String& name) { dataSources_.push_back(name); }
  /// Makes the new connections; without it the program has no data layer.
  std::function<std::shared_ptr<host::Connection>()> OnNewConnection;
  /// Queues work for the next `DoEvents`.
  void Post(std::function<void()> work) { posted_.push_back(std::move(work)); }
  /// Runs while a box is open, before its answer.
  std::function<void(const MessageBoxRecord&)> OnMessageBox;
  /// Runs in every `DoEvents`, after what was posted.
  std::function<void()> OnDoEvents;

  // --- What happened ---------------------------------------------------------------------------
  const std::vector<MessageBoxRecord>& Boxes() const { return boxes_; }
  /// The boxes since the last call.
  std::vector<MessageBoxRecord> TakeBoxes();
  const std::vector<InputBoxRecord>& InputBoxes() const { return inputBoxes_; }
  int Beeps() const { return beeps_; }
  int EventPumps() const { return eventPumps_; }

 private:
  host::Application* former_;
  String path_ = u"C:\\Programa";
  std::map<String, FileKind> files_;  ///< by path in lower case
  std::deque<Long> answers_;
  std::deque<String> entries_;
  std::vector<String> dataSources_;
  std::deque<std::function<void()>> posted_;
  std::vector<MessageBoxRecord> boxes_;
  std::vector<InputBoxRecord> inputBoxes_;
  int beeps_ = 0;
  int eventPumps_ = 0;
};

}  // namespace tessaria::memory
