#include "hosts/qt/items/item_totals.h"

#include <QLabel>

#include "hosts/qt/items/item_model.h"
#include "tessaria/format.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr int kIndent = 4;

}  // namespace

void ItemTotals::make(const ItemModel& model) {
  for (int column = 0; column < model.columnCount(); ++column) {
    if (!model.column(column).isTotalled) continue;
    auto* label = new QLabel(this);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(kIndent);
    const QString caption = model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    label->setObjectName(QStringLiteral("total_") + toQt(model.column(column).field.name));
    label->setToolTip(QStringLiteral("Soma de %1").arg(caption));
    labels_.push_back({column, label});
  }
  setFixedHeight(labels_.empty() ? 0 : labels_.front().label->sizeHint().height() + kIndent);
}

void ItemTotals::show(const ItemModel& model) {
  for (const Total& total : labels_) {
    const String& format = model.column(total.column).format;
    total.label->setText(
        toQt(Format(model.total(total.column), format.empty() ? u"#,##0.00" : format)));
    // The name stands in place of the text.
    total.label->setAccessibleName(
        QStringLiteral("%1: %2").arg(total.label->toolTip(), total.label->text()));
  }
}

void ItemTotals::place(const QTableView& view) {
  const int left = view.viewport()->mapTo(parentWidget(), QPoint()).x() - x();
  for (const Total& total : labels_)
    total.label->setGeometry(left + view.columnViewportPosition(total.column), 0,
                             view.columnWidth(total.column), height());
}

}  // namespace tessaria::qt
