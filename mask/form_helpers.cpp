#include "mask/form_helpers.h"

#include <algorithm>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

const host::WidgetPtr& Require(const host::WidgetPtr& widget) {
  if (!widget) throw HostError(errors::ObjectNotSet);
  return widget;
}

bool IsForm(const host::Widget& widget) { return widget.TypeName() == u"Form"; }
bool IsTabStrip(const host::Widget& widget) { return widget.TypeName() == u"SSTab"; }

/// The nearest tab strip from the widget upwards, or the widget fifty levels above it; nothing when
/// the form comes first.
host::WidgetPtr FindTabStrip(host::WidgetPtr widget) {
  constexpr int kLevels = 50;
  for (int level = 0; level < kLevels && !IsTabStrip(*widget); ++level) {
    widget = Require(widget->Container());
    if (IsForm(*widget)) return nullptr;
  }
  return widget;
}

String ValueOf(const host::FormPtr& form, const String& control) {
  return SqlText(Require(form->Controls(control))->Get(u"Value"));
}

}  // namespace

Variant PosicaoNoForm(const host::WidgetPtr& control, const String& axis) {
  const bool horizontal = LCase(axis) == u"x";
  if (!horizontal && LCase(axis) != u"y") return {};
  double sum = 0;
  for (host::WidgetPtr widget = Require(control); widget; widget = widget->Container()) {
    sum += horizontal ? widget->Left() : widget->Top();
  }
  return CLng(sum);
}

void MostraAba(const host::WidgetPtr& container, const String& NumeroTab, host::TextBox& box) {
  if (NumeroTab.empty() || IsForm(*Require(container))) return;
  const host::WidgetPtr found = FindTabStrip(container);
  if (!found) return;
  const Integer number = CInt(NumeroTab);
  const auto strip = std::dynamic_pointer_cast<host::TabStrip>(found);
  if (!strip) throw HostError(errors::NoSuchMember);
  if (strip->TabVisible(number) && strip->Tab() != number) {
    strip->Tab(number);
    box.SetFocus();
  }
}

String ExpandeParametros(const host::FormPtr& form, const String& text) {
  constexpr char16_t kMark = u'@';
  String result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t open = std::min(text.find(kMark, position), text.size());
    result.append(text, position, open - position);
    if (open == text.size()) break;
    if (!form) throw HostError(errors::ObjectNotSet);
    const std::size_t close = std::min(text.find(kMark, open + 1), text.size());
    result += ValueOf(form, text.substr(open + 1, close - open - 1));
    position = close + 1;
  }
  return result;
}

}  // namespace tessaria::mdlObjTxt
