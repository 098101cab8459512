// The plain text of a label, without mnemonics and markup.
#pragma once

#include <QLabel>
#include <QString>

#include "tessaria/string.h"

namespace tessaria::qt {

/// The label's text without its mnemonic sign ("&&" is one "&") and without markup.
QString captionOf(const QLabel& label);

}  // namespace tessaria::qt
