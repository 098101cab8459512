#include "control/storage/properties.h"

#include <utility>
#include <vector>

#include "control/storage/stored_state.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria {

namespace {

// How a variant holds each type of property.
template <class T>
struct Travel;

template <>
struct Travel<String> {
  static constexpr auto Type = PropertyType::String;
  static Variant Out(const String& v) { return v; }
  static String In(const Variant& v) { return CStr(v); }
};
template <>
struct Travel<Long> {
  static constexpr auto Type = PropertyType::Long;
  static Variant Out(Long v) { return v; }
  static Long In(const Variant& v) { return CLng(v); }
};
template <>
struct Travel<bool> {
  static constexpr auto Type = PropertyType::Boolean;
  static Variant Out(bool v) { return v; }
  static bool In(const Variant& v) { return CBool(v); }
};
template <>
struct Travel<TipoControle> {
  static constexpr auto Type = PropertyType::Long;
  static Variant Out(TipoControle v) { return static_cast<Long>(v); }
  static TipoControle In(const Variant& v) { return static_cast<TipoControle>(CLng(v)); }
};
template <>
struct Travel<Variant> {
  static constexpr auto Type = PropertyType::Variant;
  static Variant Out(const Variant& v) { return v; }
  static Variant In(const Variant& v) { return v; }
};
template <>
struct Travel<Colour> {  // a system colour has the top bit set: negative as a Long
  static constexpr auto Type = PropertyType::Colour;
  static Variant Out(Colour v) { return static_cast<Long>(v); }
  static Colour In(const Variant& v) { return static_cast<Colour>(CLng(v)); }
};
template <>
struct Travel<host::Font> {
  static constexpr auto Type = PropertyType::Font;
  static Variant Out(const host::Font& v) { return std::make_shared<host::Font>(v); }
  static host::Font In(const Variant& v) { return *v.As<host::Font>(); }
};
template <class T>
struct Travel<std::shared_ptr<T>> {
  static constexpr auto Type = PropertyType::Object;
  static Variant Out(const std::shared_ptr<T>& v) { return ObjectPtr(v); }
  static std::shared_ptr<T> In(const Variant& v) {
    const auto* object = v.TryGet<ObjectPtr>();
    return object && !*object ? nullptr : v.As<T>();
  }
};

// A generic lambda stands for an overload pair: with no argument it reads, with one it writes.
#define OF_CONTROL(name) ([](auto& control, auto&&... v) { return control.name(v...); })
#define OF_MEMBERS(name) ([](Members & m) -> auto& { return m.name; })

template <class T, class Access>
Variant GetBy(const tsText& control) {
  return Travel<T>::Out(Access{}(control));
}

template <class T, class Access>
void LetBy(tsText& control, const Variant& value) {
  Access{}(control, Travel<T>::In(value));
}

template <class T, class Access>
Property ReadWrite(StringView name, int id, Access) {
  return {name, Travel<T>::Type, id, GetBy<T, Access>, LetBy<T, Access>, true, {}};
}

template <class T, class Access>
Property ReadOnly(StringView name, int id, Access) {
  return {name, Travel<T>::Type, id, GetBy<T, Access>, nullptr, true, {}};
}

template <class T, class Access>
Property WriteOnly(StringView name, int id, Access) {
  return {name, Travel<T>::Type, id, nullptr, LetBy<T, Access>, true, {}};
}

Property RunTimeOnly(Property property) {
  property.AtDesignTime = false;
  return property;
}

/// Where and with which defaults a property is stored.
struct Place {
  int Read;
  int Write;
  Variant ReadDefault;
  Variant WriteDefault;
};

// The two usual ways. A text has no default on either side: reading passes Empty, and writing
// passes no default, so that a blank is not stored.
Place TextAt(int read, int write) { return {read, write, Variant(), Variant::Missing()}; }
Place ValueAt(int read, int write, const Variant& byDefault) {
  return {read, write, byDefault, byDefault};
}

Property::Storage StorageAt(StringView key, const Place& place) {
  Property::Storage stored;
  stored.ReadPosition = place.Read;
  stored.WritePosition = place.Write;
  stored.ReadKey = stored.WriteKey = key;
  stored.ReadDefault = place.ReadDefault;
  stored.WriteDefault = place.WriteDefault;
  return stored;
}

/// Stored in a member.
template <class T, class Member>
Property InMember(Property property, const Place& place, Member) {
  property.Stored = StorageAt(property.Name, place);
  property.Stored.Load = [](StoredState& state, const Variant& v) {
    Member{}(state.Remembered) = Travel<T>::In(v);
  };
  property.Stored.Save = [](const StoredState& state) {
    return Travel<T>::Out(Member{}(state.Remembered));
  };
  return property;
}

/// Stored in the text box.
template <class T, class Access>
Property InBox(Property property, StringView key, const Place& place, Access) {
  property.Stored = StorageAt(key, place);
  property.Stored.Load = [](StoredState& state, const Variant& v) {
    Access{}(state.Box, Travel<T>::In(v));
  };
  property.Stored.Save = [](const StoredState& state) {
    return Travel<T>::Out(Access{}(state.Box));
  };
  return property;
}

// Short forms of the most common rows.
#define MEMBER_ROW(type, name, id, place) \
  InMember<type>(ReadWrite<type>(u"" #name, id, OF_CONTROL(name)), place, OF_MEMBERS(name))
#define BOX_ROW(type, name, id, place) \
  InBox<type>(ReadWrite<type>(u"" #name, id, OF_CONTROL(name)), u"" #name, place, OF_CONTROL(name))

const Variant kNothing{ObjectPtr()};
const Variant kSystemWindow = static_cast<Long>(host::colour::WindowBackground);
const Variant kSystemWindowText = static_cast<Long>(host::colour::WindowText);

/// A length or a position of the box, stored as an Integer if it fits into one.
template <class Access>
Property LengthRow(StringView name, int id, int read, int write, Access access) {
  const Variant none = Integer{0};
  Property row =
      InBox<Long>(ReadWrite<Long>(name, id, access), name, ValueAt(read, write, none), access);
  row.Stored.Save = [](const StoredState& state) -> Variant {
    const Long length = Access{}(state.Box);
    if (std::in_range<Integer>(length)) return static_cast<Integer>(length);
    return length;
  };
  return row;
}

Property SignRow(int id) {
  Property row = MEMBER_ROW(bool, ValorNegativo, id, ValueAt(44, 14, false));
  row.Stored.ReadKey = u"valorNegativo";  // the bag compares without regard to case
  return row;
}

// The two definitions are stored as the properties return them, with a new one in place of null.

Property BrowseRow(int id) {
  Property row = ReadWrite<std::shared_ptr<Browse>>(u"Browse", id, OF_CONTROL(Browse));
  row.Stored = StorageAt(row.Name, ValueAt(17, 18, kNothing));
  row.Stored.Load = [](StoredState& state, const Variant& v) {
    state.Lookup.Browse(Travel<std::shared_ptr<Browse>>::In(v));
  };
  row.Stored.Save = [](const StoredState& state) -> Variant { return state.Lookup.Browse(); };
  return row;
}

Property PesquisaRow(int id) {
  Property row = ReadWrite<std::shared_ptr<Pesquisa>>(u"Pesquisa", id, OF_CONTROL(Pesquisa));
  row.Stored = StorageAt(row.Name, ValueAt(34, 35, kNothing));
  row.Stored.Load = [](StoredState& state, const Variant& v) {
    state.Lookup.Pesquisa(Travel<std::shared_ptr<Pesquisa>>::In(v));
  };
  row.Stored.Save = [](const StoredState& state) {
    return Travel<std::shared_ptr<Pesquisa>>::Out(state.Lookup.StoredPesquisa());
  };
  return row;
}

/// A font without name and size is the ambient font, bold or not.
bool IsAmbient(const host::Font& font) { return font.Name.empty() && font.Size == 0; }

void LoadFont(StoredState& state, const Variant& stored) {
  auto font = Travel<host::Font>::In(stored);
  state.Remembered.FontIsAmbient = IsAmbient(font);
  if (IsAmbient(font)) {
    const bool bold = font.Bold;
    font = state.Site.AmbientFont();
    font.Bold = bold;
  }
  state.Box.Font(font);
}

Variant SaveFont(const StoredState& state) {
  auto font = state.Box.Font();
  if (state.Remembered.FontIsAmbient) {
    const bool bold = font.Bold;
    font = host::Font{};
    font.Size = 0;
    font.Bold = bold;
  }
  return Travel<host::Font>::Out(font);
}

Property FontRow(int id) {
  Property row = BOX_ROW(host::Font, Font, id, TextAt(54, 46));
  row.Stored.DefaultIsAmbientFont = true;
  row.Stored.Load = LoadFont;
  row.Stored.Save = SaveFont;
  return row;
}

/// A colour of the box as it was before the box was drawn in another one.
template <class Kept, class Access>
Property ColourRow(Property row, StringView key, const Place& place, Kept, Access access) {
  row = InBox<Colour>(row, key, place, access);
  row.Stored.Load = [](StoredState& state, const Variant& v) {
    Kept{}(state.Remembered).reset();
    Access{}(state.Box, Travel<Colour>::In(v));
  };
  row.Stored.Save = [](const StoredState& state) {
    const auto& kept = Kept{}(state.Remembered);
    return Travel<Colour>::Out(kept ? *kept : Access{}(state.Box));
  };
  return row;
}

Property ItemsRow() {
  Property row{u"ItensMascara", PropertyType::String, 0, nullptr, nullptr, false, {}};
  return InMember<String>(row, TextAt(31, 29), OF_MEMBERS(ItensMascara));
}

std::vector<Property> MakeProperties() {
  return {
      RunTimeOnly(ReadOnly<Long>(u"hWnd", 1, OF_CONTROL(hWnd))),
      MEMBER_ROW(String, DataSource, 2, TextAt(14, 15)),
      MEMBER_ROW(String, DataField, 3, TextAt(15, 16)),
      RunTimeOnly(MEMBER_ROW(String, PosDataField, 4, TextAt(16, 17))),
      RunTimeOnly(BrowseRow(5)),
      MEMBER_ROW(String, BrwTitulo, 6, TextAt(18, 19)),
      MEMBER_ROW(String, BrowseTable, 7, TextAt(19, 20)),
      MEMBER_ROW(String, BrwCampo, 8, TextAt(20, 21)),
      MEMBER_ROW(String, BrwCampoIrmao, 9, TextAt(21, 22)),
      MEMBER_ROW(String, BrwCampoOutros, 10, TextAt(22, 23)),
      MEMBER_ROW(String, BrwGroupBy, 11, TextAt(23, 24)),
      MEMBER_ROW(String, BrwLeftJoin, 12, TextAt(24, 25)),
      MEMBER_ROW(String, BrwWhere, 13, TextAt(25, 26)),
      RunTimeOnly(PesquisaRow(14)),
      MEMBER_ROW(String, PesqCaption, 15, TextAt(35, 36)),
      MEMBER_ROW(String, PesqCampo, 16, TextAt(36, 37)),
      MEMBER_ROW(String, PesqMascara, 17, TextAt(37, 38)),
      MEMBER_ROW(String, PesqWidth, 18, TextAt(38, 39)),
      MEMBER_ROW(String, PesqTipo, 19, TextAt(39, 40)),
      MEMBER_ROW(String, PesqLike, 20, TextAt(40, 41)),
      MEMBER_ROW(String, PesqMaxLength, 21, TextAt(41, 42)),
      MEMBER_ROW(String, PesqCompletaDescr, 22, TextAt(42, 43)),
      MEMBER_ROW(String, PesqPromptInclude, 23, TextAt(43, 44)),
      MEMBER_ROW(String, Mascara, 24, TextAt(29, 27)),
      MEMBER_ROW(Long, TipoStrZero, 25, ValueAt(30, 28, Long{2})),
      MEMBER_ROW(bool, PromptInclude, 26, ValueAt(32, 30, false)),
      SignRow(27),
      MEMBER_ROW(bool, MultiLine, 28, ValueAt(28, 34, false)),
      MEMBER_ROW(bool, PodeSerBranco, 29, ValueAt(4, 4, true)),
      MEMBER_ROW(bool, eSocial, 30, ValueAt(5, 5, false)),
      // The default on writing is a Boolean: an empty name is always stored.
      MEMBER_ROW(String, ObjetoCancelar, 31, (Place{6, 6, Variant(), true})),
      MEMBER_ROW(bool, UsaChecaRelacao, 32, ValueAt(7, 7, true)),
      MEMBER_ROW(bool, DirVerArquivos, 33, ValueAt(8, 8, true)),
      MEMBER_ROW(String, DirPattern, 34, TextAt(9, 9)),
      MEMBER_ROW(String, DirFilePath, 35, TextAt(10, 10)),
      MEMBER_ROW(String, DirFileName, 36, TextAt(11, 11)),
      MEMBER_ROW(Long, TipoDado, 37, ValueAt(13, 13, Long{1})),
      RunTimeOnly(ReadWrite<bool>(u"LastValidaStatus", 38, OF_CONTROL(LastValidaStatus))),
      MEMBER_ROW(String, MsgBrowse, 39, ValueAt(55, 55, u"")),
      MEMBER_ROW(String, PromptChar, 40, ValueAt(33, 31, u"_")),
      BOX_ROW(String, PasswordChar, 41, TextAt(53, 54)),
      RunTimeOnly(BOX_ROW(String, Text, 42, TextAt(52, 53))),
      RunTimeOnly(MEMBER_ROW(String, Texto, 43, TextAt(27, 33))),
      LengthRow(u"MaxLength", 44, 47, 48, OF_CONTROL(MaxLength)),
      RunTimeOnly(LengthRow(u"SelLength", 45, 48, 49, OF_CONTROL(SelLength))),
      RunTimeOnly(LengthRow(u"SelStart", 46, 49, 50, OF_CONTROL(SelStart))),
      RunTimeOnly(BOX_ROW(String, SelText, 47, TextAt(50, 51))),
      RunTimeOnly(MEMBER_ROW(Variant, Value, 48, TextAt(26, 32))),
      RunTimeOnly(ReadWrite<Variant>(u"OriginalValue", 49, OF_CONTROL(OriginalValue))),
      MEMBER_ROW(TipoControle, TipoControle, 50, ValueAt(1, 1, Long{0})),
      MEMBER_ROW(String, TxtIrmao, 51, TextAt(2, 2)),
      MEMBER_ROW(String, LabelAssociado, 52, TextAt(3, 3)),
      BOX_ROW(bool, Enabled, 53, ValueAt(51, 52, true)),
      RunTimeOnly(ReadWrite<String>(u"Nome", 54, OF_CONTROL(Nome))),
      MEMBER_ROW(String, NumeroTab, 55, TextAt(12, 12)),
      ColourRow(ReadWrite<Colour>(u"Forecolor", 56, OF_CONTROL(Forecolor)), u"ForeColor",
                ValueAt(46, 47, kSystemWindowText), OF_MEMBERS(StoredForeColor),
                OF_CONTROL(ForeColor)),
      ColourRow(ReadWrite<Colour>(u"BackColor", 57, OF_CONTROL(BackColor)), u"BackColor",
                ValueAt(45, 45, kSystemWindow), OF_MEMBERS(StoredBackColor), OF_CONTROL(BackColor)),
      FontRow(58),
      RunTimeOnly(ReadOnly<bool>(u"Carregou", 59, OF_CONTROL(Carregou))),
      RunTimeOnly(WriteOnly<String>(u"LastValue", 60, OF_CONTROL(LastValue))),
      ItemsRow(),
  };
}

#undef BOX_ROW
#undef MEMBER_ROW
#undef OF_MEMBERS
#undef OF_CONTROL

const Property& RequireProperty(StringView name) {
  const Property* property = FindProperty(name);
  const bool reachable = property && property->DispatchId != 0;
  if (!reachable) throw HostError(errors::NoSuchMember);
  return *property;
}

}  // namespace

std::span<const Property> Properties() {
  static const std::vector<Property> properties = MakeProperties();
  return properties;
}

const Property* FindProperty(StringView name) {
  for (const Property& property : Properties())
    if (EqualNoCase(property.Name, name)) return &property;
  return nullptr;
}

Variant GetProperty(const tsText& control, StringView name) {
  const Property& property = RequireProperty(name);
  if (!property.Get) throw HostError(errors::PropertyIsWriteOnly);
  return property.Get(control);
}

void LetProperty(tsText& control, StringView name, const Variant& value) {
  const Property& property = RequireProperty(name);
  if (!property.Let) throw HostError(errors::PropertyIsReadOnly);
  property.Let(control, value);
}

}  // namespace tessaria
