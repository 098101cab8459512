// The words of a label, without the signs that only draw it.
#pragma once

#include <QLabel>
#include <QString>

#include "tessaria/string.h"

namespace tessaria::qt {

/// The label's text without its mnemonic sign ("&&" is one "&") and without markup.
QString captionOf(const QLabel& label);

}  // namespace tessaria::qt
