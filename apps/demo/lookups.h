// The lists that codes are chosen from, and the pairs of a code and its description.
#pragma once

#include <vector>

#include "tessaria/string.h"

namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

/// A column of a list. The first two are the code and the description.
struct ListColumn {
  StringView field;  ///< as it is selected
  StringView caption;
  StringView format;
  float width;  ///< twips; 0 hides the column
};

struct Lookup {
  StringView title;
  StringView table;
  StringView from;   ///< the table with its joins; empty for the table alone
  StringView where;  ///< "@name@" stands for the value of a field of the form
  std::vector<ListColumn> columns;
  std::vector<StringView> returned;  ///< fields that a program asks for by `returned()`
};

const Lookup& customersLookup();
/// Only the cities of the state in the form's field "uf", when that holds one.
const Lookup& citiesLookup();
const Lookup& paymentTermsLookup();
const Lookup& productsLookup();
const Lookup& statesLookup();

/// Makes two fields that name each other a pair over the lookup.
void useLookup(const Lookup& lookup, qt::TsText* code, qt::TsText* description);

/// A city goes when its customer moves to another state, and a state comes with a city.
void keepCityInState(qt::TsText* state, qt::TsText* city);

}  // namespace tessaria::demo
