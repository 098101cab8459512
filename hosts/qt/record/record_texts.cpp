#include "hosts/qt/record/record_texts.h"

namespace tessaria::qt {
namespace {

const QString kParagraph = QStringLiteral("\n\n");
const QString kStillThere = QStringLiteral("O que foi digitado continua na tela.");

}  // namespace

RecordTexts::RecordTexts(const QString& nameWithArticle)
    : name_(nameWithArticle.trimmed()),
      isFeminine_(name_.startsWith(QLatin1String("a "), Qt::CaseInsensitive)) {}

QString RecordTexts::The() const { return name_.left(1).toUpper() + name_.mid(1); }

QString RecordTexts::noun() const { return name_.section(QLatin1Char(' '), 1); }

QString RecordTexts::ending(const char* stem) const {
  return QString::fromUtf8(stem) + (isFeminine_ ? QLatin1Char('a') : QLatin1Char('o'));
}

QString RecordTexts::pronoun() const {
  return isFeminine_ ? QStringLiteral("ela") : QStringLiteral("ele");
}

QString RecordTexts::dropQuestion() const {
  return QStringLiteral("%1 não foi %2. Desfazer o que foi digitado?").arg(The(), ending("salv"));
}

QString RecordTexts::closeQuestion() const {
  return QStringLiteral("%1 não foi %2. Salvar antes de fechar?").arg(The(), ending("salv"));
}

QString RecordTexts::deleteQuestion(const QString& description) const {
  const QString which = description.isEmpty() ? QString() : QLatin1Char(' ') + description;
  return QStringLiteral("Excluir %1%2?").arg(the(), which);
}

QString RecordTexts::unknownQuestion() const {
  return QStringLiteral(
             "Não se sabe se %1 já foi %2 quando a conexão caiu. Confira antes: salvar outra vez "
             "pode gravar duas vezes. Salvar outra vez?")
      .arg(the(), ending("salv"));
}

QString RecordTexts::refusal(const QString& cause, const QString& details) const {
  const QString told = details.isEmpty() ? QString() : details + kParagraph;
  return QStringLiteral("%1 não foi %2: %3.").arg(The(), ending("salv"), cause) + kParagraph +
         told + kStillThere;
}

QString RecordTexts::refusalLine(const QString& cause) const {
  return QStringLiteral("Não %1: %2.").arg(ending("salv"), cause);
}

QString RecordTexts::inDoubt(const QString& details, bool isLookedFor) const {
  const QString text = inDoubtLine() + kParagraph + details + kParagraph + kStillThere;
  if (!isLookedFor) return text;
  return text + QStringLiteral(
                    " Salvar outra vez confere antes de gravar; desfazer mostra %1 como está no "
                    "banco de dados.")
                    .arg(the());
}

QString RecordTexts::inDoubtLine() const {
  return QStringLiteral("Não se sabe se %1 foi %2.").arg(the(), ending("salv"));
}

QString RecordTexts::conflictTitle() const {
  const QString name = noun();
  return QStringLiteral("%1 %2 por outro usuário")
      .arg(name.left(1).toUpper() + name.mid(1), ending("alterad"));
}

QString RecordTexts::conflictIntroduction() const {
  return QStringLiteral(
             "Outro usuário gravou %1 depois que %2 foi %3. Nada foi gravado por cima. Escolha o "
             "que fica em cada campo.")
      .arg(the(), pronoun(), ending("lid"));
}

QString RecordTexts::otherChangesIntroduction() const {
  return QStringLiteral(
             "Outro usuário gravou %1 depois que %2 foi %3. Nada foi gravado por cima.\n\n"
             "A diferença não está nestes campos. Gravar põe o que está na tela no lugar do que "
             "ele gravou.")
      .arg(the(), pronoun(), ending("lid"));
}

QString RecordTexts::conflictLine() const {
  return QStringLiteral("Não %1: outro usuário alterou %2.").arg(ending("salv"), the());
}

QString RecordTexts::deletedQuestion() const {
  return QStringLiteral(
             "Outro usuário excluiu %1 depois que %2 foi %3. O que foi digitado continua na tela."
             "\n\nGravar como %4?")
      .arg(the(), pronoun(), ending("lid"), ending("nov"));
}

QString RecordTexts::saveAsNewAnswer() const {
  return QStringLiteral("&Gravar como %1").arg(ending("nov"));
}

QString RecordTexts::deletedLine() const {
  return QStringLiteral("Não %1: outro usuário excluiu %2.").arg(ending("salv"), the());
}

}  // namespace tessaria::qt
