// A property bag that is lines of text: what design files store.
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

/// The error number of a text that is no stored bag.
inline constexpr Long kInvalidBagText = 321;

class TESSARIA_CORE_API TextPropertyBag final : public host::PropertyBag {
 public:
  using Factory = std::function<std::shared_ptr<host::Persistent>()>;
  /// How the objects that a bag may hold are made, by class name.
  using Factories = std::map<String, Factory>;

  explicit TextPropertyBag(Factories factories = {});

  /// An object is made anew at each read. Error 13 when its class has no factory.
  Variant ReadProperty(const String& name, const Variant& byDefault) const override;
  /// Stores fonts and `Persistent` objects too, as they are at this moment; an object that is
  /// neither is error 13. A default counts only against a value of its own sort: an empty text
  /// never equals a Boolean. A value that is not stored takes an earlier one away. Error 5 for a
  /// name that is empty or holds a blank, ".", "=" or a control character.
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override;

  /// All lines, the version first, each with its line break; keys in order of first writing.
  String Save() const;
  /// Replaces the contents. Line breaks may be of either system; empty lines are skipped.
  /// Errors, each naming the line: 13 a broken value, 321 any other broken text. The contents
  /// then stay as they were.
  void Load(StringView text);

 private:
  /// One key. An object has its class name and its own keys in place of a value.
  struct Entry {
    String name;
    Variant value;
    String className;
    std::unique_ptr<TextPropertyBag> members;
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
