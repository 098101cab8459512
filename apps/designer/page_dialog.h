// The dialog around the property page in Designer.
#pragma once

#include <QtDesigner/QDesignerFormWindowInterface>

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <tessaria/qt/tstext.h>

#include "apps/designer/page.h"

class QPushButton;

namespace tessaria::designer {

/// Modal, and deletes itself when it is closed or its field is gone.
///
/// The page edits the live field, which the form shows soon after each change. "OK" and "Aplicar"
/// make one step of Designer's undo of it, none when the settings are as before; "Cancelar" and the
/// frame restore the settings last applied.
class PageDialog final : public QDialog {
  Q_OBJECT

 public:
  /// The field is on the form window.
  PageDialog(QDesignerFormWindowInterface& form, qt::TsText& field);
  /// Makes the page and shows the dialog. After an error, which is shown in a box, there is none.
  /// The last one of the selected fields is the dialog's.
  void start(const PageFactory& make, const QList<qt::TsText*>& selected);

 public slots:  // NOLINT
  void accept() override;
  void reject() override;

 private:
  bool isEditable() const;
  void requireReadable() const;
  void noteChange(bool changed);
  void addButtons();
  void write();
  void preview();
  bool apply();
  void applyAndStay();
  void restore();
  void commit();
  void leave(int result);

  QPointer<QDesignerFormWindowInterface> form_;
  QPointer<qt::TsText> field_;
  QStringList applied_;  ///< the settings last applied
  std::unique_ptr<Page> page_;
  QPushButton* applyButton_ = nullptr;
  QTimer preview_;
};

}  // namespace tessaria::designer
