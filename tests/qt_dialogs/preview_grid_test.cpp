// The grid of headings: its columns' widths, and those that are hidden.
#include <QHeaderView>
#include <QTableView>

#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

constexpr host::WidgetDescription kPreviewWidgets[] = {
    {u"grade", host::WidgetKind::PreviewGrid, u"Colunas"},
    {u"btnFim", host::WidgetKind::CommandButton, u"&Fim"},
};
constexpr host::DialogDescription kPreview{u"frmPrevia", u"Prévia", kPreviewWidgets};

class PreviewGrid : public DialogFixture {
 protected:
  PreviewGrid() {
    for (const char16_t* caption : {u"Código", u"Nome", u"UF"}) {
      if (grid_.ColumnCount() > 1 || !grid_.Column(0).Caption().empty())
        grid_.AddColumn(grid_.ColumnCount());
      grid_.Column(grid_.ColumnCount() - 1).Caption(caption);
    }
  }
  void show(const std::function<void(QHeaderView&)>& script) {
    driver_.willShow(QStringLiteral("frmPrevia"), [&](QDialog& window) {
      window.resize(600, 300);
      settleEvents();
      script(*window.findChild<QTableView*>()->horizontalHeader());
      window.close();
    });
    dialog_->ShowModal();
  }
  static void clickHeading(const QHeaderView& header, int column) {
    const QPoint middle(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                        header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, middle);
    settleEvents();
  }
  static QBrush ink(const QHeaderView& header, int column) {
    return header.model()->headerData(column, Qt::Horizontal, Qt::ForegroundRole).value<QBrush>();
  }

  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kPreview);
  host::DataGrid& grid_ = dialog_->Find<host::DataGrid>(u"grade");
};

TEST_F(PreviewGrid, AHiddenColumnStaysDimmedAndCanBeClicked) {
  Long clicked = -1;
  grid_.OnHeadClick = [&](Long column) { clicked = column; };
  grid_.Column(1).Visible(false);
  EXPECT_FALSE(grid_.Column(1).Visible());
  show([&](const QHeaderView& header) {
    EXPECT_FALSE(header.isSectionHidden(1));
    const QPalette palette = QGuiApplication::palette();
    EXPECT_EQ(ink(header, 1).color(), palette.color(QPalette::Disabled, QPalette::ButtonText));
    EXPECT_EQ(ink(header, 0).style(), Qt::NoBrush) << "the heading's usual colour";
    clickHeading(header, 1);
    EXPECT_EQ(clicked, 1);
  });
}

TEST_F(PreviewGrid, AColumnThatIsShownAgainIsNoLongerDimmed) {
  grid_.Column(1).Visible(false);
  grid_.Column(1).Visible(true);
  show([&](const QHeaderView& header) { EXPECT_EQ(ink(header, 1).style(), Qt::NoBrush); });
}

TEST_F(PreviewGrid, ANewColumnIsAnInchWideOrAsItsHeading) {
  const float inch = grid_.Column(0).Width();
  EXPECT_NEAR(inch, 1440, 15);
  grid_.Column(1).Caption(u"Um título que é mais largo do que uma polegada");
  EXPECT_GT(grid_.Column(1).Width(), 2 * inch);
  show([&](const QHeaderView& header) {
    EXPECT_GE(header.sectionSize(1), header.sectionSizeHint(1));
  });
}

TEST_F(PreviewGrid, AWidthThatWasAssignedStays) {
  grid_.Column(0).Width(600);
  grid_.Column(0).Caption(u"Um título que é mais largo");
  EXPECT_EQ(grid_.Column(0).Width(), 600);
}

}  // namespace
}  // namespace tessaria::qt::tests
