// What a field tells its programmer about its settings: warnings in the log, none on the screen.
#pragma once

#include <vector>

#include "tessaria/string.h"

class QWidget;

namespace tessaria {
class tsText;
}

namespace tessaria::qt {

/// Settings of a form file that no field has.
void warnOfUnknownSettings(const QWidget& field, const std::vector<String>& keys);
/// Of a field on a form that is shown for the first time: names without the control that they
/// mean, a lookup that only the older texts give, a pair whose columns do not fit.
void warnOfMistakes(QWidget& field, const tsText& control);

}  // namespace tessaria::qt
