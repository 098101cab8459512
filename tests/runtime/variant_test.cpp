// The variant: kinds, values, objects.
#include "tessaria/variant.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

using Kind = Variant::Kind;

class Ship : public Object {};
class Schooner : public Ship {};
class Harbour : public Object {};

TEST(VariantKinds, FollowFromTheValue) {
  const struct {
    Variant Value;
    Kind Expected;
    bool Numeric;
  } rows[] = {
      {Variant(), Kind::Empty, false},
      {Variant::Null(), Kind::Null, false},
      {Variant::Missing(), Kind::Missing, false},
      {Integer{7}, Kind::Integer, true},
      {Long{7}, Kind::Long, true},
      {7.5f, Kind::Single, true},
      {7.5, Kind::Double, true},
      {Currency{75000}, Kind::Currency, true},
      {Decimal{{75}, 1, false}, Kind::Decimal, true},
      {Date{7.5}, Kind::Date, false},
      {true, Kind::Boolean, true},
      {String(u"7,5"), Kind::String, false},
      {u"7,5", Kind::String, false},
      {ObjectPtr(), Kind::Object, false},
      {std::make_shared<Ship>(), Kind::Object, false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.Value.Type(), row.Expected);
    EXPECT_EQ(row.Value.IsNumeric(), row.Numeric) << KindName(row.Expected);
    EXPECT_EQ(row.Value.IsEmpty(), row.Expected == Kind::Empty);
    EXPECT_EQ(row.Value.IsNull(), row.Expected == Kind::Null);
    EXPECT_EQ(row.Value.IsMissing(), row.Expected == Kind::Missing);
    EXPECT_EQ(row.Value.IsString(), row.Expected == Kind::String);
    EXPECT_EQ(row.Value.IsObject(), row.Expected == Kind::Object);
  }
}

TEST(VariantKinds, HaveTheObjectModelsNumbers) {
  const std::pair<Kind, Integer> numbers[] = {
      {Kind::Empty, 0},   {Kind::Null, 1},   {Kind::Integer, 2},  {Kind::Long, 3},
      {Kind::Single, 4},  {Kind::Double, 5}, {Kind::Currency, 6}, {Kind::Date, 7},
      {Kind::String, 8},  {Kind::Object, 9}, {Kind::Missing, 10}, {Kind::Boolean, 11},
      {Kind::Decimal, 14}};
  for (const auto& [kind, number] : numbers) EXPECT_EQ(static_cast<Integer>(kind), number);
}

TEST(VariantValues, AreReadByTheirOwnTypeOnly) {
  const Variant value(Long{42});
  ASSERT_NE(value.TryGet<Long>(), nullptr);
  EXPECT_EQ(*value.TryGet<Long>(), 42);
  EXPECT_EQ(value.TryGet<Integer>(), nullptr);
  EXPECT_EQ(value.TryGet<String>(), nullptr);
  EXPECT_EQ(Variant().TryGet<Long>(), nullptr);
}

TEST(VariantValues, CopiesAreIndependent) {
  Variant first(u"um");
  Variant second = first;
  first = Variant(u"dois");
  EXPECT_SAME(second, u"um");
  EXPECT_SAME(first, u"dois");
}

TEST(VariantObjects, AreReturnedAsTheirClassOrABase) {
  const auto schooner = std::make_shared<Schooner>();
  const Variant value(schooner);
  EXPECT_EQ(value.As<Schooner>(), schooner);
  EXPECT_EQ(value.As<Ship>(), schooner);
  EXPECT_EQ(value.As<Object>(), schooner);
}

TEST(VariantObjects, StayAliveInTheVariant) {
  Variant value(std::make_shared<Ship>());
  const std::weak_ptr<Ship> watch = value.As<Ship>();
  EXPECT_FALSE(watch.expired());
  value = Variant();
  EXPECT_TRUE(watch.expired());
}

TEST(VariantObjects, ErrorsStateTheReason) {
  EXPECT_HOST_ERROR(Variant().As<Ship>(), errors::ObjectRequired);
  EXPECT_HOST_ERROR(Variant::Null().As<Ship>(), errors::ObjectRequired);
  EXPECT_HOST_ERROR(Variant(u"Ship").As<Ship>(), errors::ObjectRequired);
  EXPECT_HOST_ERROR(Variant(ObjectPtr()).As<Ship>(), errors::ObjectNotSet);
  EXPECT_HOST_ERROR(Variant(std::make_shared<Harbour>()).As<Ship>(), errors::TypeMismatch);
  EXPECT_HOST_ERROR(Variant(std::make_shared<Ship>()).As<Schooner>(), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria
