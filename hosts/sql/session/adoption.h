// What a session on a connection of the program knows of the program's own work there.
#pragma once

#include <vector>

#include "hosts/sql/session/first_row.h"
#include "tessaria/string.h"

namespace tessaria::sql {

/// The texts that surround a statement on an adopted connection, so that the program's transaction
/// and settings stay as they are. PostgreSQL only. Bounds are in seconds, 0 for none.
class Adoption {
 public:
  /// Asks for the transaction that is open and for the settings that hold in it. Takes part in an
  /// open transaction, and begins none.
  static String Question();
  /// What the server has answered. `isOpen`: a transaction was known to be open before. Returns
  /// false when another session answers than before: the program has connected again.
  bool Learn(const TextRow& answer, bool isOpen);
  /// The driver knows, without a question, that no transaction is open.
  void LearnNoTransaction() { began_.clear(); }

  bool InTransaction() const { return !began_.empty(); }
  /// The open transaction is one that this layer has begun for the program.
  void NoteOwn() { own_ = began_; }
  /// Comes after the begin of such a one, and undoes it. The second fails in every other one and
  /// changes nothing there: of a transaction that has failed the server does not tell whose it is.
  static StringView MarkOwn();
  static StringView UndoOwn();
  bool IsOwn() const { return InTransaction() && own_ == began_; }

  /// Settings of this layer up to the end of the transaction, ready for a statement after them.
  static String Settings(Long command, Long lock);
  /// The number of statements in it.
  static int SettingCount();
  /// Before a statement inside the open transaction.
  static String Enter(Long command, Long lock);
  /// After it: nothing is left, and the program's settings hold again.
  String Leave() const;
  /// After it has failed.
  static String Undo();
  /// Comes first in the text of a statement between `Enter` and `Leave`, as one statement more. The
  /// ODBC driver keeps out of texts that begin so; after a syntax error in any other it may undo
  /// the whole transaction.
  static StringView Lead();

 private:
  String began_;                  // when the open transaction began, which no other shares
  String process_;                // of the server, for this session
  String own_;                    // that of this layer
  std::vector<String> settings_;  // as the program has them, in the order of the table
};

}  // namespace tessaria::sql
