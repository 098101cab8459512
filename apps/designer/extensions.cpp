#include "apps/designer/extensions.h"

#include <QtDesigner/QDesignerFormEditorInterface>

#include <QScopedValueRollback>

#include "apps/designer/field_menu.h"
#include "apps/designer/field_sheet.h"

namespace tessaria::designer {
namespace {

const QString kSheet = Q_TYPEID(QDesignerPropertySheetExtension);
const QString kMenu = Q_TYPEID(QDesignerTaskMenuExtension);

}  // namespace

FieldExtensions::FieldExtensions(QDesignerFormEditorInterface& core, const PageFactory& page)
    : QExtensionFactory(core.extensionManager()), core_(core), page_(page) {
  for (const QString& iid : {kSheet, kMenu}) core.extensionManager()->registerExtensions(this, iid);
}

QObject* FieldExtensions::extension(QObject* object, const QString& iid) const {
  if (asksDesigner_ || !qobject_cast<qt::TsText*>(object)) return nullptr;
  return QExtensionFactory::extension(object, iid);
}

QObject* FieldExtensions::createExtension(QObject* object, const QString& iid,
                                          QObject* parent) const {
  if (iid == kSheet) return sheetOf(object, iid, parent);
  if (iid == kMenu) return new FieldMenu(*qobject_cast<qt::TsText*>(object), page_, parent);
  return nullptr;
}

/// Around Designer's own sheet, which the factories behind this one make.
QObject* FieldExtensions::sheetOf(QObject* object, const QString& iid, QObject* parent) const {
  const QScopedValueRollback<bool> asks(asksDesigner_, true);
  auto* own =
      qobject_cast<QDesignerPropertySheetExtension*>(extensionManager()->extension(object, iid));
  return own ? new FieldSheet(core_, *qobject_cast<qt::TsText*>(object), *own, parent) : nullptr;
}

}  // namespace tessaria::designer
