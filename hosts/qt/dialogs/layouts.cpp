#include "hosts/qt/dialogs/layouts.h"

#include <QFontMetrics>
#include <QPushButton>
#include <algorithm>
#include <iterator>

#include "hosts/qt/conversion/drawn_icon.h"

namespace tessaria::qt {
namespace {

struct Row {
  StringView dialog;
  void (*layOut)(QWidget& window);
};

constexpr Row kLayouts[] = {
    {u"frmCalculadora", layOutCalculator},  {u"frmCalendario", layOutCalendar},
    {u"frmDiretorio", layOutFolderPicker},  {u"frmBrowse", layOutGridForm},
    {u"frmTsPesquisa", layOutSearchPrompt}, {u"frmMontaSql", layOutWizard},
};

}  // namespace

void layOut(QWidget& surface, StringView name, std::span<const LaidWidget> widgets) {
  const auto* row = std::find_if(std::begin(kLayouts), std::end(kLayouts),
                                 [name](const Row& r) { return r.dialog == name; });
  surface.ensurePolished();
  row == std::end(kLayouts) ? layOutInRows(surface, widgets) : row->layOut(surface);
  QLayout& layout = *surface.layout();
  layout.activate();
  if (!surface.testAttribute(Qt::WA_Resized)) surface.resize(layout.totalSizeHint());
  surface.resize(surface.size().expandedTo(layout.totalMinimumSize()));
}

QHBoxLayout* answerRow(QWidget& window, const char* yes, const char* no) {
  auto* accept = part<QPushButton>(window, yes);
  auto* refuse = part<QPushButton>(window, no);
  accept->setIcon(drawnIcon(DrawnShape::Confirm));
  accept->setDefault(true);
  refuse->setIcon(drawnIcon(DrawnShape::Back));
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
