// What a field and its dialogs need from the form around them.
#pragma once

#include "tessaria/host/form.h"
#include "tessaria/host/widgets.h"

namespace tessaria::mdlObjTxt {

/// The position of a control on the screen, in twips: the sum of its own position, those of all
/// containers above it and that of the form. The axis is "x" or "y", in either case; the result is
/// Empty for any other. Error 91 without a control.
Variant PosicaoNoForm(const host::WidgetPtr& control, const String& axis);

/// Brings the tab that contains the box to the front and focuses the box. Searches for the tab
/// strip from `container` upwards. Does nothing for an empty `NumeroTab`, when there is no strip
/// below the form, and when the tab is hidden or already in front.
/// Errors: 13 or 6 for a `NumeroTab` that is not a number, 438 when fifty containers have no strip,
/// 380 for a number without a tab.
void MostraAba(const host::WidgetPtr& container, const String& NumeroTab, host::TextBox& box);

/// Replaces each `@name@` in a query text with the `Value` of that control, without quotes. After
/// an "@" without a closing one, the rest of the text is the name. Error 730 for an unknown
/// control.
String ExpandeParametros(const host::FormPtr& form, const String& text);

}  // namespace tessaria::mdlObjTxt
