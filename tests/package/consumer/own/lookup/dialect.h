// A header of the program itself, with a name that the library uses internally.
#pragma once
#define OWN_LOOKUP_DIALECT_H 1
