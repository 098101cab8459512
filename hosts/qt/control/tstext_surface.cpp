// The control as its form and the focus handling see it.

#include "control/storage/properties.h"
#include "hosts/qt/control/tstext.h"
#include "hosts/qt/form/form.h"

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

void TsText::formShown() {
  write([](tsText& c) { c.UserControl_Show(); });
}

void TsText::entered() {
  write([](tsText& c) { c.UserControl_EnterFocus(); });
}

ExitVerdict TsText::left() {
  ExitVerdict verdict = ExitVerdict::Left;
  write([&](tsText& c) { verdict = c.UserControl_ExitFocus(); });
  return verdict;
}

bool TsText::hasToSettle() const {
  return read([](const tsText& c) { return c.HasToSettle(); });
}

}  // namespace tessaria::qt
