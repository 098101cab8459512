// Layout of a surface that has none of its own.
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "hosts/qt/dialogs/layouts.h"

namespace tessaria::qt {
namespace {

using host::WidgetKind;

/// Kinds that take the room that is left, below each other.
bool takesRoom(WidgetKind kind) {
  switch (kind) {
    case WidgetKind::MultiLineText:
    case WidgetKind::TabStrip:
    case WidgetKind::ListView:
    case WidgetKind::CheckList:
    case WidgetKind::DataGrid:
    case WidgetKind::ColumnPreview:
    case WidgetKind::FolderList:
    case WidgetKind::FileList:
      return true;
    default:
      return false;
  }
}

/// Kinds that a label before them names.
bool isNamedByLabel(WidgetKind kind) {
  switch (kind) {
    case WidgetKind::Display:
    case WidgetKind::TextBox:
    case WidgetKind::MultiLineText:
    case WidgetKind::ComboBox:
    case WidgetKind::DropDownList:
    case WidgetKind::TsText:
    case WidgetKind::DriveList:
      return true;
    default:
      return false;
  }
}

constexpr int kLeastWidth = 60;  // characters of a surface

/// The rows of one frame, one page or the surface itself.
class Rows {
 public:
  explicit Rows(QWidget& around) : form_(new QFormLayout(&around)) {
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form_->setRowWrapPolicy(QFormLayout::DontWrapRows);
  }

  void add(const LaidWidget& laid) {
    if (laid.kind != line_) inLine_ = nullptr;
    if (standsInLine(laid.kind)) return addToLine(laid);
    if (label_ && isNamedByLabel(laid.kind)) return addNamed(laid);
    endLabel();
    if (laid.kind == WidgetKind::Label)
      label_ = static_cast<QLabel*>(laid.widget);
    else
      addAlone(laid);
  }

  /// A label at the end names nothing. What takes no room stays at the top.
  void end() {
    endLabel();
    if (!isFilled_)
      form_->addItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
  }

 private:
  static bool standsInLine(WidgetKind kind) {
    return kind == WidgetKind::CommandButton || kind == WidgetKind::OptionButton;
  }

  void addToLine(const LaidWidget& laid) {
    endLabel();
    if (!inLine_) {
      line_ = laid.kind;
      inLine_ = new QHBoxLayout;
      inLine_->addStretch(1);
      form_->addRow(inLine_);
    }
    // Options begin at the left, buttons end at the right.
    const bool isOption = laid.kind == WidgetKind::OptionButton;
    inLine_->insertWidget(isOption ? inLine_->count() - 1 : -1, laid.widget);
  }

  void addNamed(const LaidWidget& laid) {
    QLabel* label = std::exchange(label_, nullptr);
    label->setBuddy(laid.widget);
    if (laid.widget->accessibleName().isEmpty())
      laid.widget->setAccessibleName(label->text().remove(QLatin1Char('&')));
    isFilled_ = isFilled_ || takesRoom(laid.kind);
    form_->addRow(label, laid.widget);
  }

  void addAlone(const LaidWidget& laid) {
    if (laid.kind == WidgetKind::Frame)
      laid.widget->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    isFilled_ = isFilled_ || takesRoom(laid.kind);
    form_->addRow(laid.widget);
  }

  void endLabel() {
    if (!label_) return;
    label_->setWordWrap(true);
    form_->addRow(std::exchange(label_, nullptr));
  }

  QFormLayout* form_;
  QLabel* label_ = nullptr;  ///< waits for its box
  QHBoxLayout* inLine_ = nullptr;
  WidgetKind line_ = WidgetKind::Label;
  bool isFilled_ = false;
};

}  // namespace

void layOutInRows(QWidget& surface, std::span<const LaidWidget> widgets) {
  surface.setMinimumWidth(characters(surface, kLeastWidth));
  std::vector<std::pair<QWidget*, Rows>> all;
  all.emplace_back(&surface, surface);
  const auto rowsOf = [&all](QWidget* around) -> Rows& {
    for (auto& [widget, rows] : all)
      if (widget == around) return rows;
    return all.emplace_back(around, *around).second;
  };
  for (const LaidWidget& laid : widgets) rowsOf(laid.widget->parentWidget()).add(laid);
  for (auto& [widget, rows] : all) rows.end();
}

}  // namespace tessaria::qt
