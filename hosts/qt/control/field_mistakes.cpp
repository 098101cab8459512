#include "hosts/qt/control/field_mistakes.h"

#include <QAction>
#include <QLabel>
#include <QLoggingCategory>

#include "hosts/qt/form/widget_tree.h"
#include "tessaria/browse_definition.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

Q_LOGGING_CATEGORY(fields, "tessaria.fields")

void warn(TsText& field, const QString& text) {
  qCWarning(fields).noquote() << QStringLiteral("field '%1': %2").arg(field.objectName(), text);
}

/// The control or action of that name; null for none.
template <class Kind>
Kind* named(TsText& field, const QString& name) {
  for (Kind* each : formOf(&field)->findChildren<Kind*>())
    if (each->objectName().compare(name, Qt::CaseInsensitive) == 0) return each;
  return nullptr;
}

template <class Kind>
void checkName(TsText& field, const char* property, const QString& name) {
  if (name.trimmed().isEmpty() || named<Kind>(field, name)) return;
  const bool isOfOtherKind = named<QWidget>(field, name) != nullptr;
  warn(field, QStringLiteral("%1 '%2' is %3")
                  .arg(QLatin1String(property), name,
                       isOfOtherKind ? QStringLiteral("a control of another kind")
                                     : QStringLiteral("not on this form")));
}

bool looksUp(TsText& field) {
  return field.tipoControle() == TsText::Browse || field.tipoControle() == TsText::Descricao;
}

void checkLookup(TsText& field) {
  if (!looksUp(field) || field.browseTable().isEmpty()) return;
  if (field.browseDefinition()->BrowseTable().empty())
    warn(field, QStringLiteral("BrowseTable '%1' is given in the flat text only, and the lookup "
                               "reads its definition")
                    .arg(field.browseTable()));
}

void checkPair(TsText& key) {
  const auto* sibling =
      key.tipoControle() == TsText::Browse ? named<TsText>(key, key.txtIrmao()) : nullptr;
  if (!sibling || sibling->tipoControle() != TsText::Descricao) return;
  const String own = key.browseDefinition()->BrwCampo();
  const String theirs = sibling->browseDefinition()->BrwCampoIrmao();
  if (own.empty() || theirs.empty() || EqualNoCase(own, theirs)) return;
  warn(key, QStringLiteral("its column '%1' is not the sibling column '%2' of '%3': the columns of "
                           "a pair are swapped")
                .arg(toQt(own), toQt(theirs), sibling->objectName()));
}

}  // namespace

void warnOfUnknownSettings(TsText& field, const std::vector<String>& keys) {
  for (const String& key : keys)
    warn(field, QStringLiteral("there is no setting '%1'").arg(toQt(key)));
}

void warnOfMistakes(TsText& field) {
  checkName<QLabel>(field, "LabelAssociado", field.labelAssociado());
  checkName<TsText>(field, "TxtIrmao", field.txtIrmao());
  const QString cancel = field.objetoCancelar();
  if (!named<QAction>(field, cancel)) checkName<QWidget>(field, "ObjetoCancelar", cancel);
  checkLookup(field);
  checkPair(field);
}

}  // namespace tessaria::qt
