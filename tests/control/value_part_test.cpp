// The assignment of a value, tested alone: the column and the follower are plain state.

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
  void Follow(AssignMode mode) override {
    modes.push_back(mode);
    if (fails) throw HostError(errors::TypeMismatch);
  }

  std::vector<AssignMode> modes;
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
  ValueAssignment value{site, box, members, members, members, bound, follower};
};

constexpr Long kTextColumn = 202;
constexpr Long kNumberColumn = 5;
constexpr Long kDateColumn = 7;

TEST_F(ValuePartTest, AnUnboundTextIsKeptUnchangedAndABlankOneIsNull) {
  EXPECT_TRUE(value.Assign(u"Ana", AssignMode::Write));
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_EQ(txtEdit.Text(), u"Ana");
  EXPECT_TRUE(value.Assign(u"", AssignMode::Write));
  EXPECT_SAME(members.Value, Variant::Null());
}

TEST_F(ValuePartTest, AnUnboundNumberIsADouble) {
  members.TipoDado = 5;
  EXPECT_TRUE(value.Assign(u"1.234,5", AssignMode::Write));
  EXPECT_SAME(members.Value, 1234.5);
}

TEST_F(ValuePartTest, AnInvalidUnboundNumberIsReportedAndLeavesEmpty) {
  members.TipoDado = 5;
  EXPECT_FALSE(value.Assign(u"doze", AssignMode::Write));
  EXPECT_SAME(members.Value, Variant());
  EXPECT_EQ(Told().size(), 1u);
}

TEST_F(ValuePartTest, ABlankUnderANumericMaskIsZero) {
  members.TipoDado = 5;
  Mask(u"$0,00", u"_,");
  EXPECT_TRUE(value.Assign(Variant::Null(), AssignMode::Write));
  EXPECT_SAME(members.Value, Integer{0});
}

TEST_F(ValuePartTest, ABoundValueIsReadBackFromTheColumn) {
  Bind(kNumberColumn);
  EXPECT_TRUE(value.Assign(u"12,5", AssignMode::Write));
  EXPECT_SAME(bound.column->stored, 12.5);
  EXPECT_SAME(members.Value, 12.5);
  EXPECT_EQ(members.Texto, u"12,5");
}

TEST_F(ValuePartTest, AShownRowIsNotWritten) {
  Bind(kTextColumn);
  EXPECT_FALSE(value.Assign(u"Ana", AssignMode::Show));
  EXPECT_EQ(bound.column->writes, 0);
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_THAT(follower.modes, ElementsAre(AssignMode::Show));
}

TEST_F(ValuePartTest, AtTheEndOfTheRowsTheValueStaysInMemory) {
  Bind(kTextColumn);
  bound.hasRow = false;
  EXPECT_TRUE(value.Assign(u"Ana", AssignMode::Write));
  EXPECT_EQ(bound.column->writes, 0);
  EXPECT_SAME(members.Value, u"Ana");
}

TEST_F(ValuePartTest, ARefusedValueIsShownBesideTheRowsOwnValue) {
  Bind(kTextColumn);
  bound.column->stored = u"antes";
  bound.column->refuses = true;
  EXPECT_FALSE(value.Assign(u"depois", AssignMode::Write));
  EXPECT_SAME(members.Value, u"antes");
  EXPECT_EQ(txtEdit.Text(), u"depois");
  EXPECT_EQ(box.Shown().Shows(), FieldBox::What::Refused);
  EXPECT_TRUE(box.IsTouched());
  EXPECT_EQ(Told().size(), 1u);
}

TEST_F(ValuePartTest, ARefusedValueOfAnEmptyRowIsTheFieldsValue) {
  Bind(kTextColumn);
  bound.column->refuses = true;
  EXPECT_FALSE(value.Assign(u"depois", AssignMode::Write));
  EXPECT_SAME(members.Value, u"depois");
  EXPECT_EQ(box.Shown().Shows(), FieldBox::What::RefusedValue);
}

TEST_F(ValuePartTest, AStoredTextThatIsNotADateIsShownAsText) {
  Bind(kDateColumn);
  Mask(u"dd/mm/yyyy", u"_/");
  value.Assign(u"infinity", AssignMode::Show);
  EXPECT_EQ(txtEdit.Text(), u"infinity");
  EXPECT_TRUE(box.ShowsStoredText());
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ValuePartTest, ATextColumnThatDoesNotAcceptNullGetsEmpty) {
  Bind(kTextColumn);
  bound.column->acceptsNull = false;
  EXPECT_TRUE(value.Assign(Variant::Null(), AssignMode::Write));
  EXPECT_SAME(bound.column->stored, Variant());
}

TEST_F(ValuePartTest, ThePresentValueIsShownAgainWithoutConversion) {
  Bind(kNumberColumn);
  members.Value = u"doze";
  value.AssignItself();
  EXPECT_SAME(members.Value, u"doze");
  EXPECT_EQ(txtEdit.Text(), u"doze");
  EXPECT_EQ(bound.column->writes, 0);
}

TEST_F(ValuePartTest, AFailingFollowerIsReportedAndUndoesNothing) {
  follower.fails = true;
  EXPECT_TRUE(value.Assign(u"Ana", AssignMode::Write));
  EXPECT_SAME(members.Value, u"Ana");
  EXPECT_EQ(Told().size(), 1u);
  EXPECT_FALSE(box.Shown().IsTyped());
}

TEST_F(ValuePartTest, AValueAssignedByAHandlerIsKept) {
  bool again = true;
  txtEdit.OnChange = [&] {
    if (!std::exchange(again, false)) return;
    value.Assign(u"dois", AssignMode::Write);
  };
  value.Assign(u"um", AssignMode::Write);
  EXPECT_SAME(members.Value, u"dois");
  EXPECT_EQ(txtEdit.Text(), u"dois");
}

}  // namespace
}  // namespace tessaria::test
