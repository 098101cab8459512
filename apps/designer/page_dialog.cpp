#include "apps/designer/page_dialog.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include <tessaria/error.h>
#include <tessaria/qt/event_boundary.h>
#include <tessaria/qt/text.h>

#include "apps/designer/edit_steps.h"

namespace tessaria::designer {

using qt::guarded;

namespace {

/// A definition without contents is none. Assigning it makes the field store that it has one.
QStringList withoutEmptyObjects(QStringList settings) {
  for (const char* name : {"Browse", "Pesquisa"}) {
    const QString part = QLatin1String(name) + QLatin1Char('.');
    const bool isEmpty = std::none_of(settings.cbegin(), settings.cend(),
                                      [&](const QString& line) { return line.startsWith(part); });
    if (isEmpty) settings.removeAll(QStringLiteral("%1=Object:%1").arg(QLatin1String(name)));
  }
  return settings;
}

}  // namespace

PageDialog::PageDialog(QDesignerFormWindowInterface& form, qt::TsText& field)
    : QDialog(form.window()), form_(&form), field_(&field), applied_(field.settings()) {
  setObjectName(QStringLiteral("tessariaPage"));
  setAttribute(Qt::WA_DeleteOnClose);
  setModal(true);
  setWindowTitle(QString::fromUtf8("Conexão - %1").arg(field_->objectName()));
  for (QObject* needed : {static_cast<QObject*>(field_), static_cast<QObject*>(form_)})
    connect(needed, &QObject::destroyed, this, [this] { leave(Rejected); });
  preview_.setSingleShot(true);
  preview_.setInterval(0);
  connect(&preview_, &QTimer::timeout, this, &PageDialog::preview);
}

void PageDialog::start(const PageFactory& make, const QList<qt::TsText*>& selected) {
  auto* const layout = new QVBoxLayout(this);
  const bool made = guarded(this, [&] {
    requireReadable();
    page_ = make({selected, [this](bool changed) { noteChange(changed); }});
    page_->read();
  });
  if (!made) {
    if (field_ && page_) field_->setSettings(applied_);
    return deleteLater();
  }
  layout->addWidget(&page_->widget());
  addButtons();
  show();
}

/// What a page would write over settings that could not be read would be lost.
void PageDialog::requireReadable() const {
  if (field_->designError().isEmpty()) return;
  throw HostError(
      errors::InvalidPropertyValue,
      u"As configurações do campo não puderam ser lidas e ficam guardadas como estão: " +
          qt::fromQt(field_->designError()));
}

void PageDialog::noteChange(bool changed) {
  if (applyButton_) applyButton_->setEnabled(changed);
  changed&& applyButton_ ? preview_.start() : preview_.stop();
}

void PageDialog::addButtons() {
  auto* const buttons = new QDialogButtonBox(this);
  buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
  applyButton_ = buttons->addButton(QStringLiteral("Aplicar"), QDialogButtonBox::ApplyRole);
  applyButton_->setEnabled(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &PageDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &PageDialog::reject);
  connect(applyButton_, &QPushButton::clicked, this, &PageDialog::applyAndStay);
  layout()->addWidget(buttons);
}

/// A field that was removed from its form lives on in the undo.
bool PageDialog::isEditable() const { return form_ && field_ && form_->isManaged(field_); }

void PageDialog::write() {
  field_->setSettings(applied_);
  page_->apply();
}

/// What cannot be written yet, such as half a mask, is told when it is applied.
void PageDialog::preview() {
  if (!isEditable()) return;
  try {
    write();
  } catch (...) {
    return;
  }
}

bool PageDialog::apply() {
  preview_.stop();
  return isEditable() && guarded(this, [this] { write(); }) && isEditable();
}

void PageDialog::applyAndStay() {
  if (!apply()) return;
  commit();
  applyButton_->setEnabled(false);
  guarded(this, [this] { page_->read(); });
}

void PageDialog::accept() {
  if (!apply()) return;
  commit();
  leave(Accepted);
}

// Closing by the frame ends here too.
void PageDialog::reject() {
  if (field_) restore();
  leave(Rejected);
}

void PageDialog::restore() {
  if (!sameSettings(field_->settings(), applied_)) field_->setSettings(applied_);
}

/// Undo goes back to the settings that the field has when the step begins. A command of its own
/// keeps two visits from merging into one step.
void PageDialog::commit() {
  const QStringList edited = field_->settings();
  field_->setSettings(applied_);
  if (sameSettings(withoutEmptyObjects(edited), withoutEmptyObjects(applied_))) return;
  form_->beginCommand(QString::fromUtf8("Conexão de '%1'").arg(field_->objectName()));
  form_->cursor()->setWidgetProperty(field_, QStringLiteral("settings"), edited);
  form_->endCommand();
  applied_ = field_->settings();
}

void PageDialog::leave(int result) { done(result); }

}  // namespace tessaria::designer
