// What Designer offers in the context menu of a field, and on a double click.
#pragma once

#include <QtDesigner/QDesignerTaskMenuExtension>

#include <QAction>
#include <QObject>

#include <tessaria/qt/tstext.h>

#include "apps/designer/page.h"

namespace tessaria::designer {

class FieldMenu final : public QObject, public QDesignerTaskMenuExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerTaskMenuExtension)

 public:
  /// Both the field and the factory outlive the menu.
  FieldMenu(qt::TsText& field, const PageFactory& page, QObject* parent);

  /// "Conexão...", when there is a page.
  QList<QAction*> taskActions() const override;
  QAction* preferredEditAction() const override;

 private:
  void openPage();

  qt::TsText& field_;
  const PageFactory& page_;
  QAction* const action_;
};

}  // namespace tessaria::designer
