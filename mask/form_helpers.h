// What a field and its dialogs ask of the form around them.
#pragma once

#include "tessaria/host/form.h"
#include "tessaria/host/widgets.h"

namespace tessaria::mdlObjTxt {

/// The position of a control on the screen, in twips: its own, that of every container above it
/// and of the form. Axis "x" or "y" in either case; Empty for any other. Error 91 for no control.
Variant PosicaoNoForm(const host::WidgetPtr& control, const String& axis);

/// Brings the tab that the box lies on to the front and focuses the box. Looks for the tab strip
/// from `container` upwards. Nothing happens for an empty `NumeroTab`, when there is no strip
/// below the form, and when the tab is hidden or in front already.
/// Errors: 13 or 6 for a `NumeroTab` that is no number, 438 when fifty containers hold no strip,
/// 380 for a number that is no tab.
void MostraAba(const host::WidgetPtr& container, const String& NumeroTab, host::TextBox& box);

/// Replaces each `@name@` of a query text by the `Value` of that control, with no quotes. An "@"
/// without a partner takes the rest of the text as the name. Error 730 for an unknown control.
String ExpandeParametros(const host::FormPtr& form, const String& text);

}  // namespace tessaria::mdlObjTxt
