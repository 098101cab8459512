#include "hosts/qt/record/conflict.h"

#include "hosts/qt/conversion/label_text.h"
#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/qt/text.h"
#include "tessaria/stored_match.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {
namespace {

using Side = ConflictingColumn::Side;

bool isSame(const host::Field& field, const Variant& a, const Variant& b) {
  return IsStoredFrom(a, b, {field.Type(), field.DefinedSize(), field.NumericScale()});
}

TsText* fieldOf(const QList<TsText*>& fields, const QString& column) {
  for (TsText* field : fields)
    if (!field->dataSource().isEmpty() &&
        field->dataField().compare(column, Qt::CaseInsensitive) == 0)
      return field;
  return nullptr;
}

/// The caption without the colon that it may end with.
QString captionFor(const TsText* field, const QString& column) {
  QString caption = field ? field->focusProxy()->accessibleName().trimmed() : QString();
  while (caption.endsWith(QLatin1Char(':'))) caption.chop(1);
  return caption.isEmpty() ? column : caption;
}

/// A value as its field shows it.
QString textFor(TsText* field, const Variant& value) {
  String text;
  String typed;
  try {
    text = field ? field->control().TextOf(value) : value.IsNull() ? String() : CStr(value);
    typed = field ? mdlObjTxt::LimpaMascara(text, field->control().Mascara(),
                                            field->control().ItensMascara())
                  : text;
  } catch (const HostError& error) {
    return toQt(error.Description());
  }
  return Trim(typed).empty() ? QStringLiteral("(em branco)") : toQt(text);
}

/// A column that one user alone has changed is decided by that.
std::optional<Side> sideOf(bool mineChanged, bool theirsChanged) {
  if (mineChanged && theirsChanged) return {};
  return mineChanged ? Side::Mine : Side::Theirs;
}

/// What the view says of the column, which is compared already.
void show(ConflictingColumn& column, const host::Field& in, const Variant& former,
          const ConflictView& view) {
  const QString name = toQt(in.Name());
  TsText* const field = fieldOf(view.fields, name);
  const QString caption = view.captions.value(name.toLower());
  column.isShown = field || !caption.isEmpty() || column.isContested;
  column.caption = caption.isEmpty() ? captionFor(field, name) : caption;
  column.formerText = textFor(field, former);
  column.mineText = textFor(field, column.mine);
  column.theirsText = textFor(field, column.theirs);
  const bool isComputed = (in.Attributes() & host::attribute::Updatable) == 0;
  const bool isTheirs = isComputed || name.toLower() == view.versionColumn;
  if (!isTheirs && !view.hidden.contains(name.toLower())) return;
  column.isShown = false;
  if (isTheirs) column.stays = Side::Theirs;
  if (!column.stays) column.stays = Side::Mine;
}

}  // namespace

QList<ConflictingColumn> conflictOf(host::Recordset& rows, const host::StoredRow& stored,
                                    const ConflictView& view) {
  QList<ConflictingColumn> columns;
  for (Long i = 0; i < rows.Fields().Count(); ++i) {
    const host::FieldPtr field = rows.Fields().Item(i);
    const Variant former = rows.Recovery()->Former(i);
    ConflictingColumn column;
    column.ordinal = i;
    // Both have raised the version alike.
    column.mine = toQt(field->Name()).toLower() == view.versionColumn ? former : field->Value();
    column.theirs = stored.Value(i);
    if (isSame(*field, column.mine, column.theirs)) continue;
    column.stays =
        sideOf(!isSame(*field, column.mine, former), !isSame(*field, column.theirs, former));
    column.isContested = !column.stays;
    show(column, *field, former, view);
    columns << column;
  }
  return columns;
}

void takeChoice(host::Recordset& rows, const host::StoredRowPtr& stored,
                const QList<ConflictingColumn>& columns) {
  // What equals the stored row is no edit of it any more.
  for (const ConflictingColumn& column : columns) {
    const host::FieldPtr field = rows.Fields().Item(column.ordinal);
    const bool isEdited = !isSame(*field, field->Value(), rows.Recovery()->Former(column.ordinal));
    if (column.stays == Side::Theirs && isEdited) field->Value(column.theirs);
  }
  rows.Recovery()->Rebase(stored);
  for (const ConflictingColumn& column : columns)
    if (column.stays == Side::Mine) rows.Fields().Item(column.ordinal)->Value(column.mine);
}

}  // namespace tessaria::qt
