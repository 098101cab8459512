// Message boxes of the program itself, which look like those of the fields.
#pragma once

#include <QString>

namespace tessaria::demo {

void tell(const QString& text);
void warn(const QString& text);
/// Yes or no; Enter answers no. For what cannot be undone.
bool ask(const QString& text);

}  // namespace tessaria::demo
