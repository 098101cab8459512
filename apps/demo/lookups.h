// The lists from which codes are chosen, and the pairs of a code and its description.
#pragma once

namespace tessaria {
struct LookupSettings;
}
namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

const LookupSettings& customersLookup();
/// Only the cities of the state in the form's field "uf", when that holds one.
const LookupSettings& citiesLookup();
const LookupSettings& paymentTermsLookup();
const LookupSettings& productsLookup();
const LookupSettings& statesLookup();

/// Makes two fields that name each other a pair over the lookup.
void useLookup(const LookupSettings& lookup, qt::TsText* code, qt::TsText* description);

/// Clears the city when the state changes to another one, and sets an empty state when a city is
/// chosen.
void keepCityInState(qt::TsText* state, qt::TsText* city);

}  // namespace tessaria::demo
