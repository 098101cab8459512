#include "apps/designer/field_menu.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include "apps/designer/page_dialog.h"

namespace tessaria::designer {
namespace {

/// The selected fields, with the one that was clicked last.
QList<qt::TsText*> selectedFields(QDesignerFormWindowInterface& form, qt::TsText& clicked) {
  QList<qt::TsText*> fields;
  const QDesignerFormWindowCursorInterface* cursor = form.cursor();
  for (int i = 0; i < cursor->selectedWidgetCount(); ++i) {
    auto* field = qobject_cast<qt::TsText*>(cursor->selectedWidget(i));
    if (field && field != &clicked) fields << field;
  }
  return fields << &clicked;
}

}  // namespace

FieldMenu::FieldMenu(qt::TsText& field, const PageFactory& page, QObject* parent)
    : QObject(parent),
      field_(field),
      page_(page),
      action_(new QAction(QString::fromUtf8("Conexão..."), this)) {
  connect(action_, &QAction::triggered, this, &FieldMenu::openPage);
}

QList<QAction*> FieldMenu::taskActions() const {
  return page_ ? QList<QAction*>{action_} : QList<QAction*>();
}

QAction* FieldMenu::preferredEditAction() const { return page_ ? action_ : nullptr; }

void FieldMenu::openPage() {
  auto* form = QDesignerFormWindowInterface::findFormWindow(&field_);
  if (!form || !page_) return;
  (new PageDialog(*form, field_))->start(page_, selectedFields(*form, field_));
}

}  // namespace tessaria::designer
