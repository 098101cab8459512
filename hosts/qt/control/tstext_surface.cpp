// The control as its form and the focus handling see it.

#include "control/storage/properties.h"
#include "hosts/qt/control/field_mistakes.h"
#include "hosts/qt/control/tstext.h"
#include "hosts/qt/focus/delegate_editor.h"
#include "hosts/qt/form/form.h"
#include "tessaria/qt/settle.h"

namespace tessaria::qt {
namespace {

class SurfacePort final : public WidgetPort<host::TsTextWidget, TsText> {
 public:
  using WidgetPort::WidgetPort;
  _tsText& Control() const override { return widget().control(); }
};

bool isOwnProperty(StringView name) {
  const Property* property = FindProperty(name);
  return property && property->DispatchId != 0;
}

}  // namespace

String TsText::typeName() const { return u"tsText"; }

host::WidgetPtr TsText::makePort() { return std::make_shared<SurfacePort>(*this); }

std::optional<Variant> TsText::ownProperty(const String& name) const {
  if (!isOwnProperty(name)) return {};
  return GetProperty(control(), name);
}

bool TsText::letOwnProperty(const String& name, const Variant& value) {
  if (!isOwnProperty(name)) return false;
  LetProperty(control(), name, value);
  return true;
}

LoadOrder TsText::loadOrder() const {
  if (dataSource().isEmpty() || dataField().isEmpty()) return LoadOrder::Unbound;
  switch (tipoControle()) {
    case Browse:
      return LoadOrder::Key;
    case Descricao:
      return LoadOrder::Description;
    default:
      return LoadOrder::Bound;
  }
}

/// The first show empties an unbound field, except one that a delegate has already filled.
void TsText::formShown() {
  const QPointer<TsText> self(this);
  const bool isOfDelegate = loadOrder() == LoadOrder::Unbound && hasDelegate(*this);
  write([&](tsText& c) {
    const Variant before = c.Value();
    c.UserControl_Show();
    if (isOfDelegate && toQVariant(c.Value()) != toQVariant(before)) c.ShowValue(before);
  });
  if (!self) return;
  warnOfMistakes(*this, parts_->control);
  // A control that has joined its form later may have been entered already.
  if (isAncestorOf(window()->focusWidget())) enterAgain(this);
}

void TsText::entered() {
  write([](tsText& c) { c.UserControl_EnterFocus(); });
}

ExitVerdict TsText::left() {
  // An editor that its view has closed by Escape: nobody wants its text.
  if (isCellEditor(this) && isHidden()) return ExitVerdict::Left;
  const QPointer<TsText> self(this);
  ExitVerdict verdict = ExitVerdict::Left;
  write([&](tsText& c) { verdict = c.UserControl_ExitFocus(); });
  if (self && verdict == ExitVerdict::Left && !isAncestorOf(window()->focusWidget()))
    tellDelegateOfLeaving(*this);
  return verdict;
}

bool TsText::hasToSettle() const {
  return read([](const tsText& c) { return c.HasToSettle(); });
}

}  // namespace tessaria::qt
