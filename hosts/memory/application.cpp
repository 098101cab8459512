#include "tessaria/memory/application.h"

#include <algorithm>
#include <utility>

#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::memory {
namespace {

constexpr Long kNoPicture = 481;
/// The bits of a box style that name its buttons.
constexpr Long kButtons = 0x0F;

}  // namespace

Application::Application() : former_(std::exchange(State().application, this)) {}

// The wizard's connection is one of the program's.
Application::~Application() {
  State().frmMontaSql = nullptr;
  State().application = former_;
}

void Application::AddFile(const String& path, FileKind kind) { files_[LCase(path)] = kind; }

void Application::RemoveFile(const String& path) { files_.erase(LCase(path)); }

bool Application::FileExists(const String& path) const { return files_.contains(LCase(path)); }

std::shared_ptr<host::Picture> Application::LoadPicture(const String& path) {
  const auto file = files_.find(LCase(path));
  if (file == files_.end()) throw HostError(errors::FileNotFound);
  if (file->second != FileKind::Picture) throw HostError(kNoPicture);
  return std::make_shared<Picture>(path);
}

void Application::DoEvents() {
  ++eventPumps_;
  const auto waiting = std::exchange(posted_, {});
  for (const auto& work : waiting) work();
  if (const auto handler = OnDoEvents) handler();
}

Long Application::ShowMessageBox(Long owner, const String& text, Long style, const String& title) {
  const MessageBoxRecord box{owner, text, style, title};
  boxes_.push_back(box);
  if (const auto handler = OnMessageBox) handler(box);
  if (!answers_.empty()) {
    const Long answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  return (style & kButtons) == host::box::YesNo ? host::answer::No : host::answer::Ok;
}

String Application::ShowInputBox(const String& prompt, const String& title, const String& offered) {
  inputBoxes_.push_back({prompt, title, offered});
  if (entries_.empty()) return {};
  const String entered = entries_.front();
  entries_.pop_front();
  return entered;
}

std::vector<String> Application::DataSourceNames() const {
  auto names = dataSources_;
  std::sort(names.begin(), names.end(),
            [](const String& a, const String& b) { return LCase(a) < LCase(b); });
  return names;
}

std::shared_ptr<host::Connection> Application::NewConnection() {
  return OnNewConnection ? OnNewConnection() : nullptr;
}

std::vector<MessageBoxRecord> Application::TakeBoxes() { return std::exchange(boxes_, {}); }

}  // namespace tessaria::memory
