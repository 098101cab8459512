// Contract of the list views and the grids of surfaces. See dialog_contract.h.
#pragma once

#include "tessaria/memory/connection.h"
#include "tests/ports/dialog_driver.h"

namespace tessaria::contract {

class SurfaceListContract : public SurfaceContract {
 protected:
  void Fill(host::DialogListView& list) {
    for (const char16_t* text : {u"codigo", u"nome", u"cidade"}) list.Add(text);
  }
  static std::vector<String> Texts(host::DialogListView& list) {
    std::vector<String> texts;
    for (Long i = 1; i <= list.Count(); ++i) texts.push_back(list.Item(i).Text());
    return texts;
  }
  /// The position of the selected row; 0 for none.
  static Long Selected(host::DialogListView& list) {
    const auto* row = list.SelectedItem();
    return row == nullptr ? 0 : row->Index();
  }
  host::RecordsetPtr Rows() {
    connection_->AddTable(u"cidades", {{u"codigo", host::type::Integer}, {u"nome"}},
                          {{Long{1}, u"Assis"}, {Long{2}, u"Bauru"}});
    return connection_->Execute(u"Select * From cidades");
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
};

// --- List views ---------------------------------------------------------------------------------

TEST_P(SurfaceListContract, RowsAreAddedInsertedAndRemoved) {
  for (auto* list : {&List(), &Marks()}) {
    EXPECT_EQ(list->Count(), 0);
    Fill(*list);
    EXPECT_EQ(list->Add(u"uf", 2).Index(), 2);
    EXPECT_THAT(Texts(*list), testing::ElementsAre(u"codigo", u"uf", u"nome", u"cidade"));
    auto& last = list->Item(4);
    list->Remove(1);
    EXPECT_EQ(last.Index(), 3);
    EXPECT_THAT(Texts(*list), testing::ElementsAre(u"uf", u"nome", u"cidade"));
    list->Item(1).Text(u"estado");
    EXPECT_EQ(list->Item(1).Text(), u"estado");
    list->Clear();
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(list->SelectedItem(), nullptr);
  }
}

TEST_P(SurfaceListContract, PositionsOutsideTheRowsAreError9) {
  auto& list = List();
  Fill(list);
  for (const Long position : {-1, 0, 4}) {
    EXPECT_EQ(ErrorOf([&] { list.Item(position); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { list.Remove(position); }), errors::SubscriptOutOfRange);
  }
  EXPECT_EQ(ErrorOf([&] { list.Add(u"x", 4); }), errors::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { list.Add(u"x", -1); }), errors::SubscriptOutOfRange);
  EXPECT_EQ(list.Count(), 3);
}

TEST_P(SurfaceListContract, TheFirstRowOfAnEmptyListIsSelected) {
  auto& list = List();
  EXPECT_EQ(list.SelectedItem(), nullptr);
  Fill(list);
  EXPECT_EQ(Selected(list), 1);
  list.Add(u"antes", 1);
  EXPECT_EQ(Selected(list), 2);
  list.Clear();
  list.Add(u"outra");
  EXPECT_EQ(Selected(list), 1);
}

TEST_P(SurfaceListContract, AtMostOneRowIsSelected) {
  auto& list = List();
  Fill(list);
  list.Item(3).Selected(true);
  EXPECT_FALSE(list.Item(1).Selected());
  EXPECT_EQ(Selected(list), 3);
  list.Item(1).Selected(false);
  EXPECT_EQ(Selected(list), 3);
  list.Item(3).Selected(false);
  EXPECT_EQ(list.SelectedItem(), nullptr);
  list.Item(2).Selected(true);
  list.Remove(2);
  EXPECT_EQ(list.SelectedItem(), nullptr);
}

TEST_P(SurfaceListContract, RowsHaveSubItemsATagAndACheckMark) {
  for (auto* list : {&List(), &Marks()}) {
    Fill(*list);
    auto& row = list->Item(2);
    EXPECT_EQ(row.SubItemCount(), 0);
    row.AddSubItem(u"texto");
    EXPECT_EQ(row.SubItemCount(), 1);
    EXPECT_EQ(row.SubItem(1), u"texto");
    row.SubItem(1, u"número");
    EXPECT_EQ(row.SubItem(1), u"número");
    EXPECT_EQ(ErrorOf([&] { row.SubItem(0); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { row.SubItem(2); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { row.SubItem(2, u"x"); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(list->Item(1).SubItemCount(), 0);
    row.Tag = u"marca";
    EXPECT_EQ(list->Item(2).Tag, u"marca");
    EXPECT_FALSE(row.Checked());
    row.Checked(true);
    EXPECT_TRUE(row.Checked());
    EXPECT_FALSE(list->Item(1).Checked());
  }
}

TEST_P(SurfaceListContract, ARowMayHaveMoreSubItemsThanTheListHasHeadings) {
  auto& row = List().Add(u"codigo");
  for (const char16_t* text : {u"um", u"dois", u"três"}) row.AddSubItem(text);
  EXPECT_EQ(row.SubItemCount(), 3);
  EXPECT_EQ(row.SubItem(3), u"três");
}

TEST_P(SurfaceListContract, RowsAreFoundByTheirExactTextOrTag) {
  auto& list = List();
  Fill(list);
  list.Add(u"nome").Tag = u"x";
  list.Item(3).Tag = u"x";
  EXPECT_EQ(list.FindItem(u"nome"), &list.Item(2));
  EXPECT_EQ(list.FindItem(u"Nome"), nullptr);
  EXPECT_EQ(list.FindItem(u"nom"), nullptr);
  EXPECT_EQ(list.FindTag(u"x"), &list.Item(3));
  EXPECT_EQ(list.FindTag(u"X"), nullptr);
  EXPECT_EQ(list.FindTag(u"nome"), nullptr);
}

TEST_P(SurfaceListContract, AListIsScrolledToARow) {
  auto& list = List();
  EXPECT_EQ(list.FirstVisible(), nullptr);
  for (int i = 1; i <= 300; ++i) list.Add(FromUtf8("linha " + std::to_string(i)));
  Work([&] {
    ASSERT_NE(list.FirstVisible(), nullptr);
    EXPECT_EQ(list.FirstVisible()->Index(), 1);
    list.Item(300).EnsureVisible();
    EXPECT_GT(list.FirstVisible()->Index(), 100);
    list.Item(2).EnsureVisible();
    EXPECT_EQ(list.FirstVisible()->Index(), 2);
    list.Clear();
    EXPECT_EQ(list.FirstVisible(), nullptr);
  });
}

TEST_P(SurfaceListContract, ARowIsClickedByTheOperatorOnly) {
  auto& list = List();
  Fill(list);
  list.OnItemClick = [&](host::ListRow& row) { Add("click " + std::to_string(row.Index())); };
  list.OnItemCheck = [&](host::ListRow&) { Add("check"); };
  list.Item(2).Selected(true);
  list.Item(2).Checked(true);
  list.Remove(1);
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] {
    Hands().ClickRow(u"lista", 2);
    EXPECT_EQ(Selected(list), 2);
    Hands().ClickRow(u"lista", 2);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("click 2", "click 2"));
    Hands().Press(SurfaceKey::Up);
    EXPECT_EQ(Selected(list), 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("click 1"));
    list.Enabled(false);
    Hands().ClickRow(u"lista", 2);
    EXPECT_EQ(Selected(list), 1);
    list.Clear();
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
  });
}

TEST_P(SurfaceListContract, ARowsCheckBoxIsChangedByTheOperator) {
  auto& marks = Marks();
  Fill(marks);
  marks.OnItemCheck = [&](host::ListRow& row) {
    Add(std::to_string(row.Index()) + (row.Checked() ? " on" : " off"));
  };
  marks.Item(1).Checked(true);
  marks.Item(2).Text(u"outro");
  EXPECT_THAT(TakeLog(), testing::IsEmpty());
  Work([&] {
    Hands().CheckRow(u"marcas", 2);
    EXPECT_TRUE(marks.Item(2).Checked());
    Hands().CheckRow(u"marcas", 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("2 on", "1 off"));
    Hands().ClickRow(u"marcas", 3);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Hands().Press(SurfaceKey::Space);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("3 on"));
    marks.Enabled(false);
    Hands().CheckRow(u"marcas", 3);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
  });
  EXPECT_TRUE(marks.Item(3).Checked());
}

TEST_P(SurfaceListContract, ADoubleClickComesAfterTheRowIsSelected) {
  auto& list = List();
  Fill(list);
  list.OnDblClick = [&] { Add("double " + std::to_string(Selected(list))); };
  Work([&] { Hands().DoubleClickRow(u"lista", 3); });
  EXPECT_THAT(TakeLog(), testing::ElementsAre("double 3"));
}

TEST_P(SurfaceListContract, AHandlerMayRemoveTheRowThatIsClicked) {
  auto& marks = Marks();
  Fill(marks);
  marks.OnItemCheck = [&](host::ListRow& row) { marks.Remove(row.Index()); };
  Work([&] { Hands().CheckRow(u"marcas", 2); });
  EXPECT_THAT(Texts(marks), testing::ElementsAre(u"codigo", u"cidade"));
  EXPECT_THAT(Driver().TakeBoxes(), testing::IsEmpty());
}

// --- Grids --------------------------------------------------------------------------------------

TEST_P(SurfaceListContract, AGridThatNeverHadRowsShowsOneColumnWithoutACaption) {
  ASSERT_EQ(Grid().ColumnCount(), 1);
  EXPECT_EQ(Grid().Column(0).Caption(), u"");
  EXPECT_EQ(Grid().Column(0).DataField(), u"");
  EXPECT_EQ(Grid().DataSource(), nullptr);
}

TEST_P(SurfaceListContract, NewRowsReplaceTheColumnsAndNoneEmptyTheGrid) {
  auto& grid = Grid();
  grid.AddColumn(0);
  const auto rows = Rows();
  grid.DataSource(rows);
  EXPECT_EQ(grid.DataSource(), rows);
  ASSERT_EQ(grid.ColumnCount(), 2);
  EXPECT_EQ(grid.Column(0).Caption(), u"codigo");
  EXPECT_EQ(grid.Column(1).DataField(), u"nome");
  grid.DataSource(nullptr);
  EXPECT_EQ(grid.ColumnCount(), 0);
}

TEST_P(SurfaceListContract, ColumnsAreAddedAndRemoved) {
  auto& grid = Grid();
  grid.DataSource(Rows());
  auto& first = grid.AddColumn(0);
  EXPECT_EQ(&first, &grid.Column(0));
  EXPECT_EQ(first.Caption(), u"");
  EXPECT_EQ(first.DataField(), u"");
  EXPECT_TRUE(first.Visible());
  EXPECT_EQ(first.Width(), 1440);
  first.Caption(u"UF");
  grid.AddColumn(3).Caption(u"Fim");
  std::vector<String> captions;
  captions.reserve(4);
  for (Long i = 0; i < grid.ColumnCount(); ++i) captions.push_back(grid.Column(i).Caption());
  EXPECT_THAT(captions, testing::ElementsAre(u"UF", u"codigo", u"nome", u"Fim"));
  grid.RemoveColumn(1);
  EXPECT_EQ(grid.ColumnCount(), 3);
  EXPECT_EQ(grid.Column(1).Caption(), u"nome");
  EXPECT_EQ(grid.Column(1).DataField(), u"nome");
}

TEST_P(SurfaceListContract, PositionsOutsideTheColumnsAreError9) {
  auto& grid = Grid();
  for (const Long position : {-1, 1}) {
    EXPECT_EQ(ErrorOf([&] { grid.Column(position); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { grid.RemoveColumn(position); }), errors::SubscriptOutOfRange);
  }
  EXPECT_EQ(ErrorOf([&] { grid.AddColumn(-1); }), errors::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { grid.AddColumn(2); }), errors::SubscriptOutOfRange);
  grid.RemoveColumn(0);
  EXPECT_EQ(grid.ColumnCount(), 0);
  EXPECT_EQ(ErrorOf([&] { grid.Column(0); }), errors::SubscriptOutOfRange);
}

TEST_P(SurfaceListContract, AColumnKeepsWhatIsAssigned) {
  auto& column = Grid().Column(0);
  column.Caption(u"Código");
  column.Width(1500);
  column.Format(u"000");
  column.DataField(u"codigo");
  column.Visible(false);
  EXPECT_EQ(column.Caption(), u"Código");
  EXPECT_EQ(column.Width(), 1500);
  EXPECT_EQ(column.Format(), u"000");
  EXPECT_EQ(column.DataField(), u"codigo");
  EXPECT_FALSE(column.Visible());
}

TEST_P(SurfaceListContract, AnAssignedWidthStaysWhateverTheCaption) {
  const String caption(60, u'M');
  auto& column = Grid().Column(0);
  column.Width(600);
  column.Caption(caption);
  EXPECT_EQ(column.Width(), 600);
  auto& second = Grid().AddColumn(1);
  second.Caption(u"UF");
  EXPECT_EQ(second.Width(), 1440);
  second.Caption(caption);
  EXPECT_EQ(second.Width(), 1440) << "only the first caption makes room for itself";
}

TEST_P(SurfaceListContract, AHiddenColumnOfAGridIsGone) {
  auto& grid = Grid();
  grid.DataSource(Rows());
  grid.OnHeadClick = [&](Long column) { Add("head " + std::to_string(column)); };
  grid.OnColResize = [&](Long column) { Add("resize " + std::to_string(column)); };
  grid.Column(0).Visible(false);
  Work([&] {
    Hands().ClickHeader(u"grade", 0);
    Hands().ResizeColumn(u"grade", 0, 2400);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Hands().ClickHeader(u"grade", 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("head 1"));
    grid.Column(0).Visible(true);
    Hands().ClickHeader(u"grade", 0);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("head 0"));
  });
}

TEST_P(SurfaceListContract, AHiddenColumnOfAPreviewCanBeClickedAndDragged) {
  auto& grid = Preview();
  grid.DataSource(Rows());
  grid.OnHeadClick = [&](Long column) { Add("head " + std::to_string(column)); };
  grid.OnColResize = [&](Long column) { Add("resize " + std::to_string(column)); };
  grid.Column(0).Visible(false);
  EXPECT_FALSE(grid.Column(0).Visible());
  Work([&] {
    Hands().ClickHeader(u"previa", 0);
    Hands().ResizeColumn(u"previa", 0, 2400);
    Hands().ClickHeader(u"previa", 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("head 0", "resize 0", "head 1"));
    EXPECT_NEAR(grid.Column(0).Width(), 2400, 15);
    EXPECT_FALSE(grid.Column(0).Visible());
    EXPECT_EQ(Hands().CellText(u"previa", 1), u"Assis");
  });
}

TEST_P(SurfaceListContract, AColumnShowsTheFieldThatIsAssigned) {
  auto& grid = Grid();
  grid.DataSource(Rows());
  Work([&] {
    EXPECT_EQ(Hands().CellText(u"grade", 1), u"Assis");
    grid.Column(1).DataField(u"CODIGO");
    EXPECT_EQ(Hands().CellText(u"grade", 1), u"1");
    EXPECT_EQ(grid.Column(1).DataField(), u"CODIGO");
    grid.Column(0).DataField(u"nada");
    EXPECT_EQ(Hands().CellText(u"grade", 0), u"");
    grid.AddColumn(0);
    EXPECT_EQ(Hands().CellText(u"grade", 0), u"");
    grid.Column(0).DataField(u"nome");
    EXPECT_EQ(Hands().CellText(u"grade", 0), u"Assis");
    EXPECT_EQ(Hands().CellText(u"grade", 2), u"1");
    grid.RemoveColumn(0);
    EXPECT_EQ(Hands().CellText(u"grade", 1), u"1");
  });
}

TEST_P(SurfaceListContract, TheHeaderIsClickedAndDraggedByTheOperatorOnly) {
  auto& grid = Grid();
  grid.DataSource(Rows());
  grid.OnHeadClick = [&](Long column) { Add("head " + std::to_string(column)); };
  grid.OnColResize = [&](Long column) { Add("resize " + std::to_string(column)); };
  Work([&] {
    grid.Column(1).Width(3000);
    grid.AddColumn(1).Width(900);
    grid.RemoveColumn(1);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    Hands().ClickHeader(u"grade", 1);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("head 1"));
    Hands().ResizeColumn(u"grade", 1, 2400);
    EXPECT_THAT(TakeLog(), testing::ElementsAre("resize 1"));
    EXPECT_NEAR(grid.Column(1).Width(), 2400, 15);
    grid.Enabled(false);
    Hands().ResizeColumn(u"grade", 1, 1200);
    EXPECT_THAT(TakeLog(), testing::IsEmpty());
    EXPECT_NEAR(grid.Column(1).Width(), 2400, 15);
  });
}

}  // namespace tessaria::contract
