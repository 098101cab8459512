#include "hosts/qt/dialogs/layouts.h"

#include <QFontMetrics>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

namespace tessaria::qt {
namespace {

struct Row {
  StringView dialog;
  void (*layOut)(QDialog& window);
};

constexpr Row kLayouts[] = {
    {u"frmCalculadora", layOutCalculator},  {u"frmCalendario", layOutCalendar},
    {u"frmDiretorio", layOutFolderPicker},  {u"frmBrowse", layOutGridForm},
    {u"frmTsPesquisa", layOutSearchPrompt},
};

void layOutInColumn(QDialog& window) {
  auto* column = new QVBoxLayout(&window);
  for (QWidget* widget : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    column->addWidget(widget);
}

}  // namespace

void layOut(QDialog& window, StringView name) {
  const auto* row = std::find_if(std::begin(kLayouts), std::end(kLayouts),
                                 [name](const Row& r) { return r.dialog == name; });
  window.ensurePolished();
  (row == std::end(kLayouts) ? layOutInColumn : row->layOut)(window);
  QLayout& layout = *window.layout();
  layout.activate();
  if (!window.testAttribute(Qt::WA_Resized)) window.resize(layout.totalSizeHint());
  window.resize(window.size().expandedTo(layout.totalMinimumSize()));
}

QHBoxLayout* answerRow(QDialog& window, const char* yes, const char* no) {
  auto* accept = part<QPushButton>(window, yes);
  auto* refuse = part<QPushButton>(window, no);
  accept->setIcon(window.style()->standardIcon(QStyle::SP_DialogApplyButton));
  accept->setDefault(true);
  refuse->setIcon(window.style()->standardIcon(QStyle::SP_ArrowBack));
  refuse->setProperty("Cancel", true);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addWidget(accept);
  row->addWidget(refuse);
  return row;
}

int characters(const QWidget& window, int count) {
  return window.fontMetrics().averageCharWidth() * count;
}

int lines(const QWidget& window, int count) { return window.fontMetrics().lineSpacing() * count; }

}  // namespace tessaria::qt
