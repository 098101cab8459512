#include "hosts/qt/items/form_fields.h"

#include <QPointer>
#include <QSet>

#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/active_control.h"
#include "hosts/qt/form/widget_tree.h"
#include "hosts/qt/items/item_line.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/pages.h"

namespace tessaria::qt {
namespace {

/// A command button without a name is the active control of the form.
class SaveButtonScope {
 public:
  explicit SaveButtonScope(QWidget& form) : window_(form.window()) {
    setActiveStandIn(*window_, makeActionPort({}, form));
  }
  SaveButtonScope(const SaveButtonScope&) = delete;
  SaveButtonScope& operator=(const SaveButtonScope&) = delete;
  ~SaveButtonScope() {
    if (window_) setActiveStandIn(*window_, nullptr);
  }

 private:
  QPointer<QWidget> window_;
};

/// A field does not check its text while its own button has the focus.
void leaveOwnButton(TsText& field) {
  const QWidget* focus = field.window()->focusWidget();
  if (focus && focus != field.focusProxy() && field.isAncestorOf(focus)) field.setFocus();
}

}  // namespace

QList<TsText*> fieldsInTabOrder(QWidget& form, const Adodc& data) {
  QSet<TsText*> rest;
  const QWidget* const owner = formOf(&form);
  for (TsText* field : form.findChildren<TsText*>()) {
    const QString source = field->dataSource();
    if (formOf(field) == owner && !isItemField(*field) &&
        (source.isEmpty() || source.compare(data.objectName(), Qt::CaseInsensitive) == 0))
      rest << field;
  }
  QList<TsText*> fields;
  for (QWidget* w = form.nextInFocusChain(); w != &form; w = w->nextInFocusChain()) {
    auto* field = qobject_cast<TsText*>(w->parentWidget());
    if (field && field->focusProxy() == w && rest.remove(field)) fields << field;
  }
  return fields;
}

bool settleForSaving(QWidget& form) {
  FocusCycle* cycle = FocusCycle::existing(form.window());
  return !cycle || cycle->settleField({makeActionPort({}, *formOf(&form)), {}});
}

bool checkForSaving(TsText& field) {
  const QPointer<TsText> alive(&field);
  leaveOwnButton(field);
  const SaveButtonScope active(*formOf(&field));
  // The message of a field is shown over its page.
  const auto connection =
      QObject::connect(&install(), &Host::boxShown, &field, [&field] { showPagesOf(&field); });
  const bool isValid = field.valida();
  QObject::disconnect(connection);
  if (alive && !isValid) bringToOperator(*alive);
  return alive && isValid;
}

void bringToOperator(TsText& field) {
  showPagesOf(&field);
  field.setFocus(Qt::OtherFocusReason);
}

}  // namespace tessaria::qt
