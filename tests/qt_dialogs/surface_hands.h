// The operator's keyboard and mouse at a surface of the Qt host, for the contract of surfaces.
#pragma once

#include <QHeaderView>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "tests/ports/dialog_driver.h"

namespace tessaria::qt::tests {

/// Real key and mouse events, to the widget that is under the mouse or has the focus.
class SurfaceHands final : public contract::Operator {
 public:
  /// The window that the surface stands in.
  explicit SurfaceHands(QWidget& window) : window_(&window) {}

  void Press(contract::SurfaceKey key) override;
  void Type(const String& text) override;
  void Mnemonic(char16_t letter) override;
  void Click(StringView name) override;
  void Choose(StringView list, Long row) override;
  void ClickTab(StringView strip, Long page) override;
  void ClickRow(StringView list, Long row) override;
  void DoubleClickRow(StringView list, Long row) override;
  void CheckRow(StringView list, Long row) override;
  void ClickHeader(StringView grid, Long column) override;
  void ResizeColumn(StringView grid, Long column, Long twips) override;
  void ClickMenu(StringView bar, Long position) override;
  void PickDay(StringView calendar, Date day) override;
  void CloseByFrame() override;
  String Focused() override;
  String CellText(StringView grid, Long column) override;

 private:
  template <class Widget = QWidget>
  Widget* find(StringView name) const;
  QHeaderView* headerOf(StringView grid) const;
  void activate();

  QPointer<QWidget> window_;
};

}  // namespace tessaria::qt::tests
