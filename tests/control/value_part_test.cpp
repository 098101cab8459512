// The road of a value alone: a column and a follower as plain state.

#include "control/value.h"

#include "tests/control/part_fakes.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FakeColumn final : host::Field {
  String Name() const override { return u"campo"; }
  Long Type() const override { return type; }
  Long Attributes() const override { return acceptsNull ? host::attribute::IsNullable : 0; }
  Long DefinedSize() const override { return 0; }
  Long Precision() const override { return 0; }
  Long NumericScale() const override { return 0; }
  Variant Value() const override { return stored; }
  void Value(const Variant& v) override {
    if (refuses) throw HostError(errors::TypeMismatch);
    stored = v;
    ++writes;
  }

  Long type = 202;
  bool acceptsNull = true, refuses = false;
  Variant stored = Variant::Null();
  int writes = 0;
};

struct FakeBound final : BoundField {
  host::FieldPtr Field() const override { return column; }
  bool HasRow() const override { return hasRow; }
  void Write(const Variant& v) override { column->Value(v); }

  std::shared_ptr<FakeColumn> column = std::make_shared<FakeColumn>();
  bool hasRow = true;
};

struct FakeFollower final : ValueFollower {
  void Follow(Road road) override {
    roads.push_back(road);
    if (fails) throw HostError(errors::TypeMismatch);
  }

  std::vector<Road> roads;
  bool fails = false;
};

class ValuePartTest : public PartTest {
 protected:
  void Bind(Long type) {
    members.bCampoConectado = true;
    bound.column->type = type;
  }

  FakeBound bound;
  FakeFollower follower;
  ValueRoad value{site, box, members, members, members, bound, follower};
};

constexpr Long kTextColumn = 202;
constexpr Long kNumberColumn = 5;
constexpr Long kDateColumn = 7;

TEST_F(ValuePartTest, AnUnboundTextIsKeptAsItIsAndABlankOneIsNull) {
  EXPECT_TRUE(value.Assign(u"Ana", Road::Write));
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_EQ(txtEdit.Text(), u"Ana");
  EXPECT_TRUE(value.Assign(u"", Road::Write));
  EXPECT_SAME(members.Value, Variant::Null());
}

TEST_F(ValuePartTest, AnUnboundNumberIsADouble) {
  members.TipoDado = 5;
  EXPECT_TRUE(value.Assign(u"1.234,5", Road::Write));
  EXPECT_SAME(members.Value, 1234.5);
}

TEST_F(ValuePartTest, AnUnboundNumberThatIsNoneIsToldAndLeavesEmpty) {
  members.TipoDado = 5;
  EXPECT_FALSE(value.Assign(u"doze", Road::Write));
  EXPECT_SAME(members.Value, Variant());
  EXPECT_EQ(Told().size(), 1u);
}

TEST_F(ValuePartTest, ABlankUnderANumericMaskIsZero) {
  members.TipoDado = 5;
  Mask(u"$0,00", u"_,");
  EXPECT_TRUE(value.Assign(Variant::Null(), Road::Write));
  EXPECT_SAME(members.Value, Integer{0});
}

TEST_F(ValuePartTest, ABoundValueIsReadBackFromTheColumn) {
  Bind(kNumberColumn);
  EXPECT_TRUE(value.Assign(u"12,5", Road::Write));
  EXPECT_SAME(bound.column->stored, 12.5);
  EXPECT_SAME(members.Value, 12.5);
  EXPECT_EQ(members.Texto, u"12,5");
}

TEST_F(ValuePartTest, ARowThatIsShownIsNotWritten) {
  Bind(kTextColumn);
  EXPECT_FALSE(value.Assign(u"Ana", Road::Show));
  EXPECT_EQ(bound.column->writes, 0);
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_THAT(follower.roads, ElementsAre(Road::Show));
}

TEST_F(ValuePartTest, AtTheEndOfTheRowsTheValueStaysInMemory) {
  Bind(kTextColumn);
  bound.hasRow = false;
  EXPECT_TRUE(value.Assign(u"Ana", Road::Write));
  EXPECT_EQ(bound.column->writes, 0);
  EXPECT_SAME(members.Value, u"Ana");
}

TEST_F(ValuePartTest, ARefusedValueIsShownBesideTheRowsOwnValue) {
  Bind(kTextColumn);
  bound.column->stored = u"antes";
  bound.column->refuses = true;
  EXPECT_FALSE(value.Assign(u"depois", Road::Write));
  EXPECT_SAME(members.Value, u"antes");
  EXPECT_EQ(txtEdit.Text(), u"depois");
  EXPECT_EQ(box.Shown().Shows(), FieldBox::What::Refused);
  EXPECT_TRUE(box.IsTouched());
  EXPECT_EQ(Told().size(), 1u);
}

TEST_F(ValuePartTest, ARefusedValueOfAnEmptyRowIsTheFieldsValue) {
  Bind(kTextColumn);
  bound.column->refuses = true;
  EXPECT_FALSE(value.Assign(u"depois", Road::Write));
  EXPECT_SAME(members.Value, u"depois");
  EXPECT_EQ(box.Shown().Shows(), FieldBox::What::RefusedValue);
}

TEST_F(ValuePartTest, AStoredTextThatIsNoDateIsShownAsItsText) {
  Bind(kDateColumn);
  Mask(u"dd/mm/yyyy", u"_/");
  value.Assign(u"infinity", Road::Show);
  EXPECT_EQ(txtEdit.Text(), u"infinity");
  EXPECT_TRUE(box.ShowsStoredText());
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ValuePartTest, ATextColumnThatTakesNoNullGetsEmpty) {
  Bind(kTextColumn);
  bound.column->acceptsNull = false;
  EXPECT_TRUE(value.Assign(Variant::Null(), Road::Write));
  EXPECT_SAME(bound.column->stored, Variant());
}

TEST_F(ValuePartTest, TheValueItselfIsShownAnewWithoutConversion) {
  Bind(kNumberColumn);
  members.Value = u"doze";
  value.AssignItself();
  EXPECT_SAME(members.Value, u"doze");
  EXPECT_EQ(txtEdit.Text(), u"doze");
  EXPECT_EQ(bound.column->writes, 0);
}

TEST_F(ValuePartTest, AFollowerThatFailsIsToldAndTakesNothingBack) {
  follower.fails = true;
  EXPECT_TRUE(value.Assign(u"Ana", Road::Write));
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_EQ(Told().size(), 1u);
  EXPECT_FALSE(box.Shown().IsTyped());
}

TEST_F(ValuePartTest, AHandlersNewValueStands) {
  bool again = true;
  txtEdit.OnChange = [&] {
    if (!std::exchange(again, false)) return;
    value.Assign(u"dois", Road::Write);
  };
  value.Assign(u"um", Road::Write);
  EXPECT_SAME(members.Value, u"dois");
  EXPECT_EQ(txtEdit.Text(), u"dois");
}

}  // namespace
}  // namespace tessaria::test
