// A program around the saved pair of a key and its description: its database and its operator.
#pragma once

#include <QWidget>

namespace tessaria::tests {

/// Starts a database of the program's own, which the data source "loja" names. Called before the
/// form is made.
void openShop();

/// Shows the form, types a code, chooses a row of the list and types a description; prints the two
/// fields each time. The result is the program's.
int operatePair(QWidget& form);

}  // namespace tessaria::tests
