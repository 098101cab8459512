// Layout of the calculator and the calendar.
#include <QCalendarWidget>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "hosts/qt/dialogs/layouts.h"

namespace tessaria::qt {
namespace {

/// A key of the calculator, its position, and its name for screen readers if its caption is a
/// sign.
struct Key {
  const char* array;
  int index;
  int row;
  int column;
  const char* name = nullptr;
  int columns = 1;
};

constexpr char kDigits[] = "btnNumero";
constexpr char kOperators[] = "btnOperador";
constexpr int kColumns = 4;
// Multiples of the window's font.
constexpr double kKeySize = 1.3;
constexpr double kDisplaySize = 1.8;

/// Row by row, in tab order.
constexpr Key kKeys[] = {
    {kOperators, 0, 1, 0, "Limpar"},
    {kOperators, 1, 1, 1, "Limpar entrada"},
    {kOperators, 7, 1, 2, "Porcento"},
    {kOperators, 5, 1, 3, "Dividir"},
    {kDigits, 7, 2, 0},
    {kDigits, 8, 2, 1},
    {kDigits, 9, 2, 2},
    {kOperators, 4, 2, 3, "Multiplicar"},
    {kDigits, 4, 3, 0},
    {kDigits, 5, 3, 1},
    {kDigits, 6, 3, 2},
    {kOperators, 3, 3, 3, "Menos"},
    {kDigits, 1, 4, 0},
    {kDigits, 2, 4, 1},
    {kDigits, 3, 4, 2},
    {kOperators, 2, 4, 3, "Mais"},
    {kDigits, 0, 5, 0},
    {"btnDecimal", 0, 5, 1, "Vírgula"},
    {kOperators, 6, 5, 2, "Igual", 2},
};

QFont larger(QFont font, double factor) {
  font.setPointSizeF(font.pointSizeF() * factor);
  return font;
}

}  // namespace

void layOutCalculator(QWidget& window) {
  auto* grid = new QGridLayout(&window);
  auto* display = part<QLineEdit>(window, "txtVisor");
  display->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  display->setFont(larger(window.font(), kDisplaySize));
  grid->addWidget(display, 0, 0, 1, kColumns);
  QWidget* before = display;
  for (const Key& key : kKeys) {
    auto* button = part<QPushButton>(window, key.array, key.index);
    if (key.name) button->setAccessibleName(QString::fromUtf8(key.name));
    QWidget::setTabOrder(std::exchange(before, button), button);
    button->setFont(larger(window.font(), kKeySize));
    button->setMinimumSize(characters(window, 7), lines(window, 2));
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grid->addWidget(button, key.row, key.column, 1, key.columns);
  }
}

void layOutCalendar(QWidget& window) {
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins({});
  auto* calendar = part<QCalendarWidget>(window, "Calendario");
  column->addWidget(calendar);
  calendar->setFocus();
}

}  // namespace tessaria::qt
