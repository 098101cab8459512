// What a program does while its thread waits for a database server.
#pragma once

#include <chrono>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::host {

/// What is waited for.
enum class Awaited {
  Answer,      ///< to a statement of the program
  Connection,  ///< also one that was lost, or that is opened for further rows
  Rows,        ///< that are read
  Count,       ///< of the rows
  LastRow,     ///< a move to it
  Match,       ///< a row that is looked for
  Order,       ///< the rows in another order
  Write,       ///< of an edit, a new row or a transaction
  Deletion     ///< of a row
};

/// One wait.
struct Wait {
  std::chrono::milliseconds Elapsed;  ///< since the server was asked
  Long Rows;                          ///< that have come so far, over all answers to one request
  Awaited What = Awaited::Answer;
};

/// Optional service of a thread (`ThreadState::waiting`). A wait that lasts longer than a moment is
/// passed in it, while another thread waits for the server. No rule runs meanwhile: a statement
/// that something else asks for is refused with error 3711.
class TESSARIA_CORE_API WaitView {
 public:
  WaitView() = default;
  WaitView(const WaitView&) = delete;
  WaitView& operator=(const WaitView&) = delete;
  virtual ~WaitView() = default;

  /// Lets windows repaint for a moment, at the most 20 milliseconds. Returns true when the operator
  /// asks to give the request up. Throws nothing.
  virtual bool Pass(const Wait& wait) = 0;
  /// The wait that was passed last is over.
  virtual void Over() = 0;
};

}  // namespace tessaria::host
