// The services that the library needs from the hosting program.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::host {

class Connection;

/// A picture that a host loaded and its own widgets can show. Opaque to the core.
class TESSARIA_CORE_API Picture : public Object {};

/// Styles of a message box, combined by addition.
namespace box {
inline constexpr Long Ok = 0;
inline constexpr Long YesNo = 4;
inline constexpr Long Stop = 16;
inline constexpr Long Question = 32;
inline constexpr Long Exclamation = 48;
inline constexpr Long DefaultNo = 256;  ///< with YesNo: Enter answers no
}  // namespace box

/// Answers of a message box.
namespace answer {
inline constexpr Long Ok = 1;
inline constexpr Long Yes = 6;
inline constexpr Long No = 7;
}  // namespace answer

/// The services of the hosting program. Owned by the host; one per thread (`State().application`).
class TESSARIA_CORE_API Application {
 public:
  Application() = default;
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  virtual ~Application() = default;

  /// The folder of the hosting program, without a separator at its end.
  virtual String Path() const = 0;
  /// The character between the parts of a path on this system.
  virtual char16_t PathSeparator() const = 0;
  /// Whether there is a file of that path.
  virtual bool FileExists(const String& path) const = 0;
  /// Loads a picture file. Errors: 53 when it is missing, 481 when it is not a picture.
  virtual std::shared_ptr<Picture> LoadPicture(const String& path) = 0;

  virtual void Beep() = 0;
  /// Processes the pending events once.
  virtual void DoEvents() = 0;
  /// Shows a modal box and waits for its answer. `owner` is a window handle as `ControlSite::hWnd`
  /// returns it, 0 for none; `style` is a sum of values of `box`. Returns 6 for yes, 7 for no, 1
  /// otherwise. Closing a yes/no box counts as no.
  virtual Long ShowMessageBox(Long owner, const String& text, Long style, const String& title) = 0;
  /// Asks for one line of text and waits for the answer; "" when the operator cancels. `title` ""
  /// stands for the program's name.
  virtual String ShowInputBox(const String& prompt, const String& title, const String& offered) = 0;
  /// The names of the data sources of this system, in alphabetical order; none where the program
  /// knows of no data layer.
  virtual std::vector<String> DataSourceNames() const = 0;
  /// A new closed connection that belongs to the caller; null where the program has no data layer.
  virtual std::shared_ptr<Connection> NewConnection() = 0;
};

}  // namespace tessaria::host
