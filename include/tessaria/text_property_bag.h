// A property bag kept as lines of text, as design files store it.
//
//   tessaria 1
//   TipoControle=Long:1
//   BrwTitulo=String:Clientes
//   Font=Font:8.25 bold name=Arial
//   Browse=Object:BrowseDefinition
//   Browse.BrowseTable=String:Cliente
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/control.h"

namespace tessaria {

/// The error number of a text that is not a stored bag.
inline constexpr Long kInvalidBagText = 321;

/// Settings by key, which can be saved as text and loaded again.
class TESSARIA_CORE_API TextPropertyBag final : public host::PropertyBag {
 public:
  using Factory = std::function<std::shared_ptr<host::Persistent>()>;
  /// Factories of the objects that a bag may hold, by class name.
  using Factories = std::map<String, Factory>;

  explicit TextPropertyBag(Factories factories = {});

  /// Each read creates a new object. Error 13 when its class has no factory.
  Variant ReadProperty(const String& name, const Variant& byDefault) const override;
  /// Stores fonts and `Persistent` objects too, as they are at this moment; an object that is
  /// neither is error 13. A default is compared only with a value of its own sort: an empty text
  /// never equals a Boolean. When a value is not stored, an earlier one is removed. Error 5 for a
  /// name that is empty or holds a blank, ".", "=" or a control character.
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override;

  /// All lines, the version first, each with its line break; keys in order of first writing.
  String Save() const;
  /// Replaces the contents. Lines may end in LF or CRLF; empty lines are skipped. Errors, which
  /// name the line: 13 for an invalid value, 321 for any other invalid text. The contents then stay
  /// unchanged.
  void Load(StringView text);
  /// The keys that nobody has asked for since they were loaded or written, in their order, those of
  /// objects with the object before them: "Browse.BrwTitlo".
  std::vector<String> UnreadKeys() const;

 private:
  /// One key. An object has its class name and its own keys in place of a value.
  struct Entry {
    String name;
    Variant value;
    String className;
    std::unique_ptr<TextPropertyBag> members;
    mutable bool wasRead = false;
  };
  using SharedFactories = std::shared_ptr<const Factories>;

  explicit TextPropertyBag(SharedFactories factories);
  const Entry* Find(StringView name) const;
  void Put(Entry entry);
  void Remove(StringView name);
  Entry MakeEntry(const String& name, const Variant& value) const;
  void AppendLines(StringView prefix, String& text) const;
  void LoadLine(StringView line, Long number);
  TextPropertyBag& OwnerOf(StringView& key, Long number);
  Entry EntryFromText(StringView name, StringView text, Long number) const;

  SharedFactories factories_;
  std::vector<Entry> entries_;
};

}  // namespace tessaria
