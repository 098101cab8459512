// A header of the program's own, of a name that the library uses inside.
#pragma once
#define OWN_TEXT_H 1
