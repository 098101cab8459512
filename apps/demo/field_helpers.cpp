#include "apps/demo/field_helpers.h"

#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qt/variants.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria::demo {

Variant returned(const qt::TsText* code, const char16_t* field) {
  const auto& fields = code->browseDefinition()->Outros();
  for (Long i = 1; i <= fields.Count(); ++i)
    if (EqualNoCase(fields.Item(i)->Nome(), field)) return fields.Item(i)->Valor();
  return {};
}

void giveCode(qt::TsText* code, const Variant& value) {
  code->setValue(qt::toQVariant(value));
  code->atualizaIrmao();
}

QString textOf(const Variant& value) { return value.IsNull() ? QString() : qt::toQt(CStr(value)); }

QString codeIn(const qt::TsText* field) {
  const QVariant value = field->value();
  return value.isNull() ? QString() : value.toString();
}

}  // namespace tessaria::demo
