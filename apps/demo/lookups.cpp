#include "apps/demo/lookups.h"

#include "apps/demo/field_helpers.h"
#include "tessaria/conversion.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {

void useLookup(const LookupSettings& lookup, qt::TsText* code, qt::TsText* description) {
  code->setLookup(lookup);
  description->setLookup(ForDescription(lookup));
}

void keepCityInState(qt::TsText* state, qt::TsText* city) {
  const auto isElsewhere = [state, city] {
    const Variant home = returned(city, u"uf");
    return !codeIn(city).isEmpty() && !home.IsNull() && !home.IsEmpty() &&
           qt::toQt(CStr(home)) != codeIn(state);
  };
  QObject::connect(state, &qt::TsText::browseReturn, city, [=](bool& changed) {
    if (changed && isElsewhere()) giveCode(city, Variant::Null());
  });
  QObject::connect(city, &qt::TsText::browseReturn, state, [=](bool& changed) {
    if (changed && codeIn(state).isEmpty()) giveCode(state, returned(city, u"uf"));
  });
}

}  // namespace tessaria::demo
