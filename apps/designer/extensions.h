// Makes what Designer asks for about a field.
#pragma once

#include <QtDesigner/QExtensionFactory>
#include <QtDesigner/QExtensionManager>

#include "apps/designer/page.h"

class QDesignerFormEditorInterface;

namespace tessaria::designer {

class FieldExtensions final : public QExtensionFactory {
  Q_OBJECT

 public:
  /// Registers itself with the core; `page` outlives it.
  FieldExtensions(QDesignerFormEditorInterface& core, const PageFactory& page);

  QObject* extension(QObject* object, const QString& iid) const override;

 protected:
  QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;

 private:
  QObject* sheetOf(QObject* object, const QString& iid, QObject* parent) const;

  QDesignerFormEditorInterface& core_;
  const PageFactory& page_;
  mutable bool asksDesigner_ = false;
};

}  // namespace tessaria::designer
