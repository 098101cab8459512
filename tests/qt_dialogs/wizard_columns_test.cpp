// The columns of the SQL wizard's preview in the real window: their widths, and the hidden ones.
#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "hosts/qt/conversion/units.h"
#include "tests/qt_dialogs/wizard_window.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

const String kLongName(40, u'M');

class WizardColumns : public WizardWindow {
 protected:
  WizardColumns() {
    database->answer = [](const String&) -> std::optional<memory::Rows> {
      return test::ScriptedDatabase::Columns({u"Codigo", kLongName});
    };
  }

  /// The tab with two retrieved columns.
  void runRetrieved(const std::function<void()>& work) {
    run([&] {
      hands->Choose(u"cmbSistema", 1);
      hands->Click(u"btnConectar");
      hands->ClickRow(u"lst1TabTodas", 1);
      hands->Click(u"btn1Inc");
      hands->ClickTab(u"tabWizard", static_cast<Long>(Tab::Campos));
      hands->Choose(u"cmb3Tab", 0);
      hands->ClickRow(u"lst3Cmp", 1);
      hands->Click(u"btn3Inclui");
      hands->ClickTab(u"tabWizard", static_cast<Long>(Tab::Grid));
      hands->Click(u"btn4Retrieve");
      ASSERT_EQ(parts().Grid().ColumnCount(), 2);
      work();
    });
  }
  /// The run over a definition whose second column is hidden.
  void runOverColumns(const std::function<void()>& work) {
    const auto form = frmMontaSql::Instance();
    form->StartGridRun();
    add(u"codigo", u"Código", 900, true);
    add(u"nome", u"Nome", 2400, false);
    parts().OnColumns();
    run(work);
  }
  void add(const String& field, const String& caption, float width, bool isVisible) {
    const Long at = parts().cgrColGrid.Count();
    if (at >= parts().Grid().ColumnCount()) parts().Grid().AddColumn(at);
    host::GridColumn& column = parts().Grid().Column(at);
    column.Caption(caption);
    column.Width(width);
    column.Visible(isVisible);
    parts().cgrColGrid.Add(field, caption, String(), width, isVisible);
  }

  QHeaderView& header() {
    return *at(*window, QStringLiteral("grdWizard")).findChild<QTableView*>()->horizontalHeader();
  }
  /// Of a column's heading, from 0 (black) to 255.
  int darkestOf(int column) {
    const QRect place(header().sectionViewportPosition(column) + 2, 2,
                      header().sectionSize(column) - 4, header().height() - 4);
    const QImage image = header().viewport()->grab(place).toImage();
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) darkest = std::min(darkest, qGray(image.pixel(x, y)));
    return darkest;
  }
  String captionBox() { return parts().Box(u"txt4GrdCaption").Text(); }
};

TEST_F(WizardColumns, ARetrievedColumnIsAsWideAsItsHeadingNeeds) {
  runRetrieved([&] {
    EXPECT_EQ(parts().cgrColGrid.Item(1)->Width(), host::GridColumn::NewWidth);
    EXPECT_EQ(parts().Box(u"txt4GrdWidth").Text(), u"1440");
    const int needed = header().fontMetrics().horizontalAdvance(toQt(kLongName));
    EXPECT_GT(header().sectionSize(1), needed);
    EXPECT_EQ(parts().cgrColGrid.Item(2)->Width(), parts().Grid().Column(1).Width());
    EXPECT_EQ(pixelsX(Long(parts().cgrColGrid.Item(2)->Width()), header()),
              header().sectionSize(1));
  });
}

TEST_F(WizardColumns, ARetypedCaptionLeavesTheWidth) {
  runRetrieved([&] {
    hands->Click(u"txt4GrdCaption");
    press(*window, Qt::Key_A, Qt::ControlModifier);
    press(*window, Qt::Key_Delete);
    type(*window, toQt(kLongName));
    EXPECT_EQ(parts().Grid().Column(0).Caption(), kLongName);
    EXPECT_EQ(parts().Grid().Column(0).Width(), host::GridColumn::NewWidth);
  });
}

TEST_F(WizardColumns, AColumnThatTheListHidesStaysDimmedAndCanBeClicked) {
  runOverColumns([&] {
    EXPECT_FALSE(parts().Grid().Column(1).Visible());
    EXPECT_EQ(header().sectionSize(1), pixelsX(2400, header()));
    EXPECT_GT(darkestOf(1), darkestOf(0) + 40);
    const auto* columns = header().model();
    EXPECT_EQ(columns->headerData(1, Qt::Horizontal, Qt::AccessibleTextRole).toString(),
              QStringLiteral("Nome (oculta)"));
    EXPECT_TRUE(header().toolTip().contains(QStringLiteral("ajustar")));
    picture(*window, QStringLiteral("wizard_hidden_column"));
    hands->ClickHeader(u"grdWizard", 1);
    EXPECT_EQ(parts().intColAtual, 1);
    EXPECT_EQ(captionBox(), u"Nome");
    EXPECT_EQ(parts().Check(u"chk4GrdVisible").Value(), 0);
    hands->ResizeColumn(u"grdWizard", 1, 3000);
    EXPECT_NEAR(parts().cgrColGrid.Item(2)->Width(), 3000, 15);
  });
}

TEST_F(WizardColumns, TheBoxVisibleLeavesThePreviewAsItIs) {
  runRetrieved([&] {
    const int before = darkestOf(0);
    hands->Click(u"chk4GrdVisible");
    hands->Click(u"txt4Caption");
    EXPECT_FALSE(parts().cgrColGrid.Item(1)->Visible());
    EXPECT_TRUE(parts().Grid().Column(0).Visible());
    EXPECT_FALSE(header().isSectionHidden(0));
    EXPECT_EQ(darkestOf(0), before);
    hands->ClickHeader(u"grdWizard", 1);
    hands->ClickHeader(u"grdWizard", 0);
    EXPECT_EQ(parts().Check(u"chk4GrdVisible").Value(), 0);
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
