// What the operator reads about a row that is saved, undone, deleted or left.
#pragma once

#include <QString>

namespace tessaria::qt {

/// Portuguese sentences about "o cliente" or "a nota": the article decides their endings.
class RecordTexts {
 public:
  explicit RecordTexts(const QString& nameWithArticle = QStringLiteral("o registro"));

  QString dropQuestion() const;
  QString closeQuestion() const;
  /// `description` may be empty.
  QString deleteQuestion(const QString& description) const;
  /// Whether to save once more although the last transaction may have been stored.
  QString unknownQuestion() const;

  /// Why the row was not saved: one line without a full stop, and what the database says, which
  /// may be empty.
  QString refusal(const QString& cause, const QString& details) const;
  QString refusalLine(const QString& cause) const;
  /// `isLookedFor` says that the next save finds out whether the row was stored.
  QString inDoubt(const QString& details, bool isLookedFor) const;
  QString inDoubtLine() const;

  QString conflictTitle() const;
  QString conflictIntroduction() const;
  /// The same when no field shows a difference.
  QString otherChangesIntroduction() const;
  QString conflictLine() const;
  QString deletedQuestion() const;
  QString deletedLine() const;
  QString saveAsNewAnswer() const;

 private:
  /// "o cliente", and at the start of a sentence "O cliente".
  const QString& the() const { return name_; }
  QString The() const;
  QString noun() const;
  /// "salvo" or "salva".
  QString ending(const char* stem) const;
  QString pronoun() const;

  QString name_;
  bool isFeminine_;
};

}  // namespace tessaria::qt
