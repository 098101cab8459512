// The table of the control's properties.
#pragma once

#include <span>

#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/variant.h"

namespace tessaria {

class tsText;
struct StoredState;

/// The type of a property, for code that binds the table to another object model.
enum class PropertyType { String, Long, Boolean, Colour, Variant, Object, Font };

/// One property: how programs reach it and how the bag stores it.
struct Property {
  StringView Name;
  PropertyType Type;
  /// Dispatch number: position among the properties of the interface, from 1; 0 when programs do
  /// not reach it.
  int DispatchId;
  /// nullptr for a property that programs cannot read, or cannot write.
  Variant (*Get)(const tsText&);
  /// Errors: 13 for a value of another type, 6 for a number out of range.
  void (*Let)(tsText&, const Variant&);
  /// Whether designers of forms offer it: false for what only a running form gives a sense to, for
  /// caches, and for objects, which have editors of their own.
  bool AtDesignTime = true;

  /// The place in the bag.
  struct Storage {
    int ReadPosition = 0;   ///< from 1; 0 is not stored
    int WritePosition = 0;  ///< from 1
    StringView ReadKey;
    StringView WriteKey;
    Variant ReadDefault;
    Variant WriteDefault;
    bool DefaultIsAmbientFont = false;
    /// Directly to and from the member or the box, without side effects.
    void (*Load)(StoredState&, const Variant&) = nullptr;
    Variant (*Save)(const StoredState&) = nullptr;
  } Stored;
};

/// All properties, in the order of the interface.
TESSARIA_HOST_API std::span<const Property> Properties();

/// The property of that name, without regard to case; nullptr when there is none.
TESSARIA_HOST_API const Property* FindProperty(StringView name);

/// Reads a property by name, for late-bound programs. Errors: 438 unknown name, 394 write-only.
TESSARIA_HOST_API Variant GetProperty(const tsText& control, StringView name);
/// Errors: 438 unknown name, 383 read-only, and those of `Property::Let`.
TESSARIA_HOST_API void LetProperty(tsText& control, StringView name, const Variant& value);

}  // namespace tessaria
