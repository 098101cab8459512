#include "tessaria/text_property_bag.h"

#include <gtest/gtest.h>

#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

/// A definition with a text and an inner definition.
class Definition final : public host::Persistent {
 public:
  String ClassName() const override { return u"Definition"; }
  void ReadProperties(const host::PropertyBag& bag) override {
    table = CStr(bag.ReadProperty(u"BrowseTable", Variant()));
    const Variant stored = bag.ReadProperty(u"Inner", Variant(ObjectPtr()));
    inner = *stored.TryGet<ObjectPtr>() ? stored.As<Definition>() : nullptr;
  }
  void WriteProperties(host::PropertyBag& bag) const override {
    bag.WriteProperty(u"BrowseTable", table, Variant::Missing());
    bag.WriteProperty(u"Inner", Variant(inner), Variant(ObjectPtr()));
  }

  String table;
  std::shared_ptr<Definition> inner;
};

TextPropertyBag::Factories Factories() {
  return {{u"Definition", [] { return std::make_shared<Definition>(); }}};
}

const Variant kNoDefault = Variant::Missing();
const Variant kAbsent(u"(ausente)");

bool Holds(const TextPropertyBag& bag, const String& name) {
  const Variant value = bag.ReadProperty(name, kAbsent);
  return !Equal(value, kAbsent);
}

struct Failure {
  Long number = 0;
  String text;
};

Failure LoadFailure(TextPropertyBag& bag, StringView text) {
  try {
    bag.Load(text);
    return {};
  } catch (const HostError& error) {
    return {error.Number(), error.Description()};
  }
}

// --- Writing and defaults ---------------------------------------------------------------------

struct DefaultCase {
  Variant value, byDefault;
  bool stored;
};

TEST(TextPropertyBag, StoresValuesThatDifferFromTheDefault) {
  const DefaultCase kCases[] = {
      {Variant(Long{0}), Variant(Long{0}), false},
      {Variant(Long{1}), Variant(Long{0}), true},
      {Variant(Long{10}), Variant(Integer{10}), false},
      {Variant(true), Variant(true), false},
      {Variant(false), Variant(true), true},
      {Variant(u""), Variant(u""), false},
      {Variant(u"_"), Variant(u"_"), false},
      {Variant(Date{1}), Variant(Date{1}), false},
      {Variant::Null(), Variant::Null(), false},
      // An empty text never equals a Boolean, so an empty name with that default is stored.
      {Variant(u""), Variant(true), true},
      {Variant(u"Verdadeiro"), Variant(true), true},
      {Variant(u"0"), Variant(Long{0}), true},
      {Variant(Long{-1}), Variant(true), true},
      {Variant(), Variant(u""), true},
      // Without a default only a value that equals Empty is not stored.
      {Variant(), kNoDefault, false},
      {Variant(u""), kNoDefault, false},
      {Variant(Long{0}), kNoDefault, false},
      {Variant(false), kNoDefault, false},
      {Variant(u" "), kNoDefault, true},
      {Variant(Long{2}), kNoDefault, true},
      {Variant::Null(), kNoDefault, true},
      {Variant(u""), Variant(), false},
      {Variant(ObjectPtr()), kNoDefault, false},
      {Variant(ObjectPtr()), Variant(ObjectPtr()), false},
  };
  for (std::size_t row = 0; row < std::size(kCases); ++row) {
    TextPropertyBag bag;
    bag.WriteProperty(u"Nome", kCases[row].value, kCases[row].byDefault);
    EXPECT_EQ(Holds(bag, u"Nome"), kCases[row].stored) << "row " << row;
  }
}

TEST(TextPropertyBag, ComparesKeysWithoutCase) {
  TextPropertyBag bag;
  bag.WriteProperty(u"ValorNegativo", Variant(true), Variant(false));
  EXPECT_TRUE(CBool(bag.ReadProperty(u"valorNegativo", Variant(false))));
}

TEST(TextPropertyBag, LastWriteCounts) {
  TextPropertyBag bag;
  bag.WriteProperty(u"Mascara", Variant(u"00"), kNoDefault);
  bag.WriteProperty(u"mascara", Variant(u"000"), kNoDefault);
  EXPECT_EQ(CStr(bag.ReadProperty(u"Mascara", Variant())), u"000");
  bag.WriteProperty(u"Mascara", Variant(u""), kNoDefault);
  EXPECT_FALSE(Holds(bag, u"Mascara"));
}

TEST(TextPropertyBag, RefusesNamesThatItCannotWrite) {
  for (const StringView name : {u"", u"a.b", u"a=b", u"a b", u"a\nb"}) {
    TextPropertyBag bag;
    EXPECT_THROW(bag.WriteProperty(String(name), Variant(1.0), kNoDefault), HostError);
  }
}

TEST(TextPropertyBag, AFontEqualToTheDefaultIsNotStored) {
  const auto font = std::make_shared<host::Font>(), ambient = std::make_shared<host::Font>();
  TextPropertyBag bag;
  bag.WriteProperty(u"Font", Variant(font), Variant(ambient));
  EXPECT_FALSE(Holds(bag, u"Font"));
  font->Bold = true;
  bag.WriteProperty(u"Font", Variant(font), Variant(ambient));
  EXPECT_TRUE(bag.ReadProperty(u"Font", Variant(ambient)).As<host::Font>()->Bold);
}

TEST(TextPropertyBag, KeepsAFontAsItWasWritten) {
  const auto font = std::make_shared<host::Font>();
  TextPropertyBag bag;
  bag.WriteProperty(u"Font", Variant(font), kNoDefault);
  font->Bold = true;
  EXPECT_FALSE(bag.ReadProperty(u"Font", Variant()).As<host::Font>()->Bold);
}

// --- Objects ----------------------------------------------------------------------------------

TEST(TextPropertyBag, ObjectsAreStoredInTheText) {
  const auto definition = std::make_shared<Definition>();
  definition->table = u"Cliente";
  definition->inner = std::make_shared<Definition>();
  definition->inner->table = u"Cidade";
  TextPropertyBag written;
  written.WriteProperty(u"Browse", Variant(definition), Variant(ObjectPtr()));
  EXPECT_EQ(written.Save(),
            u"tessaria 1\n"
            u"Browse=Object:Definition\n"
            u"Browse.BrowseTable=String:Cliente\n"
            u"Browse.Inner=Object:Definition\n"
            u"Browse.Inner.BrowseTable=String:Cidade\n");

  TextPropertyBag loaded(Factories());
  loaded.Load(written.Save());
  const auto again = loaded.ReadProperty(u"browse", Variant()).As<Definition>();
  EXPECT_EQ(again->table, u"Cliente");
  ASSERT_NE(again->inner, nullptr);
  EXPECT_EQ(again->inner->table, u"Cidade");
}

TEST(TextPropertyBag, CreatesANewObjectAtEachRead) {
  TextPropertyBag bag(Factories());
  bag.WriteProperty(u"Browse", Variant(std::make_shared<Definition>()), kNoDefault);
  EXPECT_NE(bag.ReadProperty(u"Browse", Variant()).As<Definition>(),
            bag.ReadProperty(u"Browse", Variant()).As<Definition>());
}

TEST(TextPropertyBag, ObjectWithoutAFactoryCannotBeRead) {
  TextPropertyBag bag;
  bag.WriteProperty(u"Browse", Variant(std::make_shared<Definition>()), kNoDefault);
  EXPECT_HOST_ERROR(bag.ReadProperty(u"Browse", Variant()), errors::TypeMismatch);
}

TEST(TextPropertyBag, RefusesObjectsThatAreNotPersistent) {
  struct Other : Object {};
  TextPropertyBag bag;
  EXPECT_THROW(bag.WriteProperty(u"Browse", Variant(std::make_shared<Other>()), kNoDefault),
               HostError);
  EXPECT_FALSE(Holds(bag, u"Browse"));
}

// --- Text -------------------------------------------------------------------------------------

TEST(TextPropertyBag, SavesLinesInOrderOfWriting) {
  TextPropertyBag bag;
  bag.WriteProperty(u"TipoControle", Variant(Long{1}), Variant(Long{0}));
  bag.WriteProperty(u"TxtIrmao", Variant(u"txtNome"), kNoDefault);
  bag.WriteProperty(u"ObjetoCancelar", Variant(u""), Variant(true));
  bag.WriteProperty(u"PodeSerBranco", Variant(false), Variant(true));
  bag.WriteProperty(u"TxtIrmao", Variant(u"txtCidade"), kNoDefault);
  EXPECT_EQ(bag.Save(),
            u"tessaria 1\n"
            u"TipoControle=Long:1\n"
            u"TxtIrmao=String:txtCidade\n"
            u"ObjetoCancelar=String:\n"
            u"PodeSerBranco=Boolean:False\n");
}

TEST(TextPropertyBag, LoadsWhatItSaved) {
  TextPropertyBag bag;
  bag.WriteProperty(u"Msg", Variant(u"linha 1\nlinha 2"), kNoDefault);
  bag.WriteProperty(u"Value", Variant::Null(), kNoDefault);
  bag.WriteProperty(u"Valor", Variant(Currency{123456}), kNoDefault);
  TextPropertyBag loaded;
  loaded.Load(bag.Save());
  EXPECT_EQ(loaded.Save(), bag.Save());
  EXPECT_EQ(CStr(loaded.ReadProperty(u"Msg", Variant())), u"linha 1\nlinha 2");
  EXPECT_TRUE(loaded.ReadProperty(u"Value", Variant()).IsNull());
}

TEST(TextPropertyBag, AnEmptyBagHasOnlyItsVersion) {
  TextPropertyBag bag;
  EXPECT_EQ(bag.Save(), u"tessaria 1\n");
  bag.Load(u"tessaria 1");
  EXPECT_EQ(bag.Save(), u"tessaria 1\n");
}

TEST(TextPropertyBag, AcceptsLineBreaksOfBothSystems) {
  TextPropertyBag bag;
  bag.Load(u"tessaria 1\r\nMascara=String:00\r\n\r\nMaxLength=Integer:2");
  EXPECT_EQ(bag.Save(), u"tessaria 1\nMascara=String:00\nMaxLength=Integer:2\n");
}

struct BrokenCase {
  String text;
  Long number;
  String description;
};

TEST(TextPropertyBag, NamesTheBrokenLine) {
  const BrokenCase kCases[] = {
      {u"", kInvalidBagText, u"Linha 1: falta a identificação \"tessaria 1\"."},
      {u"Mascara=String:00", kInvalidBagText, u"Linha 1: falta a identificação \"tessaria 1\"."},
      {u"tessaria 2\n", kInvalidBagText, u"Linha 1: a versão \"2\" não é conhecida."},
      {u"tessaria \n", kInvalidBagText, u"Linha 1: a versão \"\" não é conhecida."},
      {u"tessaria 1\nA=Long:1\n\nlixo\n", kInvalidBagText, u"Linha 4: falta o sinal \"=\"."},
      {u"tessaria 1\n=Long:1", kInvalidBagText, u"Linha 2: o nome é inválido."},
      {u"tessaria 1\nA =Long:1", kInvalidBagText, u"Linha 2: o nome é inválido."},
      {u"tessaria 1\nA=Long:1\na=Long:2", kInvalidBagText, u"Linha 3: \"a\" já existe."},
      {u"tessaria 1\nA=Long:um", 13, u"Linha 2: o valor de \"A\" é inválido."},
      {u"tessaria 1\nA=", 13, u"Linha 2: o valor de \"A\" é inválido."},
      {u"tessaria 1\nB=Object:Outra", kInvalidBagText,
       u"Linha 2: a classe \"Outra\" não é conhecida."},
      {u"tessaria 1\nB.C=Long:1", kInvalidBagText, u"Linha 2: \"B\" não é um objeto."},
      {u"tessaria 1\nB=Long:1\nB.C=Long:1", kInvalidBagText, u"Linha 3: \"B\" não é um objeto."},
      {u"tessaria 1\nB=Object:Definition\nB.C=x", 13, u"Linha 3: o valor de \"C\" é inválido."},
      {u"tessaria 1\nB=Object:Definition\nB.=Long:1", kInvalidBagText,
       u"Linha 3: o nome é inválido."},
  };
  for (const BrokenCase& row : kCases) {
    TextPropertyBag bag(Factories());
    bag.WriteProperty(u"Antes", Variant(Long{1}), kNoDefault);
    const Failure failure = LoadFailure(bag, row.text);
    EXPECT_EQ(failure.number, row.number) << ToUtf8(row.text);
    EXPECT_EQ(failure.text, row.description) << ToUtf8(row.text);
    EXPECT_EQ(bag.Save(), u"tessaria 1\nAntes=Long:1\n") << "the contents changed";
  }
}

}  // namespace
}  // namespace tessaria
