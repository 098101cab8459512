// Objects of the core inside a QVariant: a form's `dbForm`, a control's definitions.
#pragma once

#include <QMetaType>

#include "tessaria/host/data.h"
#include "tessaria/variant.h"

Q_DECLARE_METATYPE(tessaria::ObjectPtr)
Q_DECLARE_METATYPE(tessaria::host::ConnectionPtr)
