#include "tessaria/text_property_bag.h"

#include <algorithm>
#include <utility>

#include "services/stored_value.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr StringView kProgram = u"tessaria ";
constexpr StringView kVersion = u"1";
constexpr StringView kObject = u"Object:";

// --- Defaults ---------------------------------------------------------------------------------

bool SameObject(const Variant& a, const Variant& b) {
  const ObjectPtr &first = *a.TryGet<ObjectPtr>(), &second = *b.TryGet<ObjectPtr>();
  if (first == second) return true;
  const auto font = std::dynamic_pointer_cast<host::Font>(first);
  const auto otherFont = std::dynamic_pointer_cast<host::Font>(second);
  return font && otherFont && *font == *otherFont;
}

/// Whether two values are of the same sort: all numbers are, but a Boolean is not a number.
bool SameSort(const Variant& a, const Variant& b) {
  const auto isNumber = [](const Variant& value) {
    return value.IsNumeric() && value.Type() != Variant::Kind::Boolean;
  };
  return a.Type() == b.Type() || (isNumber(a) && isNumber(b));
}

bool IsDefault(const Variant& value, const Variant& byDefault) {
  if (value.IsObject() && byDefault.IsObject()) return SameObject(value, byDefault);
  if (value.IsObject()) return !*value.TryGet<ObjectPtr>();
  if (byDefault.IsMissing() || byDefault.IsEmpty()) return EqualsEmpty(value);
  if (value.IsNull() && byDefault.IsNull()) return true;
  return SameSort(value, byDefault) && Equal(value, byDefault);
}

// --- Lines ------------------------------------------------------------------------------------

bool IsValidName(StringView name) {
  return !name.empty() && std::none_of(name.begin(), name.end(), [](char16_t unit) {
    return unit <= u' ' || unit == u'.' || unit == u'=';
  });
}

[[noreturn]] void FailAtLine(Long number, Long error, const String& what) {
  throw HostError(error, u"Linha " + CStr(number) + u": " + what);
}

/// Takes the next line off the text, without its line break.
StringView TakeLine(StringView& text) {
  const std::size_t end = std::min(text.find(u'\n'), text.size());
  StringView line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with(u'\r')) line.remove_suffix(1);
  return line;
}

void RequireVersion(StringView line) {
  if (!line.starts_with(kProgram)) {
    FailAtLine(1, kInvalidBagText, u"falta a identificação \"tessaria 1\".");
  }
  const String version(line.substr(kProgram.size()));
  if (version != kVersion) {
    FailAtLine(1, kInvalidBagText, u"a versão \"" + version + u"\" não é conhecida.");
  }
}

}  // namespace

TextPropertyBag::TextPropertyBag(Factories factories)
    : TextPropertyBag(std::make_shared<const Factories>(std::move(factories))) {}

TextPropertyBag::TextPropertyBag(SharedFactories factories) : factories_(std::move(factories)) {}

Variant TextPropertyBag::ReadProperty(const String& name, const Variant& byDefault) const {
  const Entry* const entry = Find(name);
  if (!entry) return byDefault;
  entry->wasRead = true;
  if (!entry->members) return entry->value;
  const auto factory = factories_->find(entry->className);
  const auto object = factory == factories_->end() ? nullptr : factory->second();
  if (!object) throw HostError(errors::TypeMismatch);
  object->ReadProperties(*entry->members);
  return Variant(object);
}

void TextPropertyBag::WriteProperty(const String& name, const Variant& value,
                                    const Variant& byDefault) {
  if (!IsValidName(name)) throw HostError(errors::InvalidArgument);
  if (IsDefault(value, byDefault)) {
    Remove(name);
  } else {
    Put(MakeEntry(name, value));
  }
}

String TextPropertyBag::Save() const {
  String text = String(kProgram).append(kVersion) + u"\n";
  AppendLines(u"", text);
  return text;
}

void TextPropertyBag::Load(StringView text) {
  TextPropertyBag loaded(factories_);
  RequireVersion(TakeLine(text));
  for (Long number = 2; !text.empty(); ++number) {
    const StringView line = TakeLine(text);
    if (!line.empty()) loaded.LoadLine(line, number);
  }
  entries_ = std::move(loaded.entries_);
}

std::vector<String> TextPropertyBag::UnreadKeys() const {
  std::vector<String> keys;
  for (const Entry& entry : entries_) {
    if (!entry.wasRead) {
      keys.push_back(entry.name);
    } else if (entry.members) {
      for (const String& key : entry.members->UnreadKeys()) keys.push_back(entry.name + u"." + key);
    }
  }
  return keys;
}

const TextPropertyBag::Entry* TextPropertyBag::Find(StringView name) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return EqualNoCase(entry.name, name);
  });
  return found == entries_.end() ? nullptr : &*found;
}

void TextPropertyBag::Put(Entry entry) {
  if (const Entry* const found = Find(entry.name)) {
    entries_[static_cast<std::size_t>(found - entries_.data())] = std::move(entry);
  } else {
    entries_.push_back(std::move(entry));
  }
}

void TextPropertyBag::Remove(StringView name) {
  std::erase_if(entries_, [&](const Entry& entry) { return EqualNoCase(entry.name, name); });
}

TextPropertyBag::Entry TextPropertyBag::MakeEntry(const String& name, const Variant& value) const {
  Entry entry;
  entry.name = name;
  entry.value = value;
  const ObjectPtr* const object = value.TryGet<ObjectPtr>();
  if (!object || !*object) return entry;
  entry.value = Variant();
  if (const auto font = std::dynamic_pointer_cast<host::Font>(*object)) {
    entry.value = Variant(std::make_shared<host::Font>(*font));
  } else if (const auto persistent = std::dynamic_pointer_cast<host::Persistent>(*object)) {
    entry.className = persistent->ClassName();
    entry.members.reset(new TextPropertyBag(factories_));
    persistent->WriteProperties(*entry.members);
  } else {
    throw HostError(errors::TypeMismatch);
  }
  return entry;
}

void TextPropertyBag::AppendLines(StringView prefix, String& text) const {
  for (const Entry& entry : entries_) {
    const String key = String(prefix) + entry.name;
    const String value =
        entry.members ? String(kObject) + entry.className : ValueToText(entry.value);
    text += key + u"=" + value + u"\n";
    if (entry.members) entry.members->AppendLines(key + u".", text);
  }
}

void TextPropertyBag::LoadLine(StringView line, Long number) {
  const std::size_t equals = line.find(u'=');
  if (equals == StringView::npos) {
    FailAtLine(number, kInvalidBagText, u"falta o sinal \"=\".");
  }
  StringView name = line.substr(0, equals);
  TextPropertyBag& owner = OwnerOf(name, number);
  if (!IsValidName(name)) FailAtLine(number, kInvalidBagText, u"o nome é inválido.");
  if (owner.Find(name)) {
    FailAtLine(number, kInvalidBagText, u"\"" + String(name) + u"\" já existe.");
  }
  owner.Put(EntryFromText(name, line.substr(equals + 1), number));
}

/// The bag that a key such as "Browse.BrwTitulo" belongs to; leaves the key's last part in `key`.
TextPropertyBag& TextPropertyBag::OwnerOf(StringView& key, Long number) {
  TextPropertyBag* owner = this;
  for (std::size_t dot = key.find(u'.'); dot != StringView::npos; dot = key.find(u'.')) {
    const Entry* const entry = owner->Find(key.substr(0, dot));
    if (!entry || !entry->members) {
      FailAtLine(number, kInvalidBagText,
                 u"\"" + String(key.substr(0, dot)) + u"\" não é um objeto.");
    }
    owner = entry->members.get();
    key.remove_prefix(dot + 1);
  }
  return *owner;
}

TextPropertyBag::Entry TextPropertyBag::EntryFromText(StringView name, StringView text,
                                                      Long number) const {
  if (text.starts_with(kObject)) {
    const String className(text.substr(kObject.size()));
    if (!factories_->contains(className)) {
      FailAtLine(number, kInvalidBagText, u"a classe \"" + className + u"\" não é conhecida.");
    }
    return {String(name), Variant(), className,
            std::unique_ptr<TextPropertyBag>(new TextPropertyBag(factories_))};
  }
  const auto value = ValueFromText(text);
  if (!value) {
    FailAtLine(number, errors::TypeMismatch, u"o valor de \"" + String(name) + u"\" é inválido.");
  }
  return {String(name), *value, {}, nullptr};
}

}  // namespace tessaria
