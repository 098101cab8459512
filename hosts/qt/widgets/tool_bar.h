// The tool bar of a dialog: one button with a menu.
#pragma once

#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <functional>
#include <vector>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

/// A button that Enter presses like the space bar, and whose menu the down arrow opens.
class MenuButton final : public QToolButton {
  Q_OBJECT

 public:
  using QToolButton::QToolButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The tool bar as the dialog's layout sees it.
class DialogToolBar final : public QToolBar {
  Q_OBJECT

 public:
  explicit DialogToolBar(const QString& caption, const QString& toolTip, QWidget* parent);

  MenuButton& button() const { return *button_; }
  /// The keys that choose an entry, by position from 1; shown in the menu.
  std::function<String(Long position)> keysOf;

 private:
  MenuButton* button_;
};

class ToolBarItem final : public DialogItemOf<host::ToolBar> {
 public:
  ToolBarItem(DialogToolBar& bar, const DialogGate& gate);

  bool ButtonEnabled() const override;
  void ButtonEnabled(bool enabled) override { bar_.button().setEnabled(enabled); }
  Long MenuCount() const override { return static_cast<Long>(entries_.size()); }
  host::MenuEntry Menu(Long position) const override { return entries_[index(position)]; }
  void Menu(Long position, const host::MenuEntry& entry) override;
  void AddMenu(const host::MenuEntry& entry) override;
  void Refresh() override { bar_.update(); }

 private:
  std::size_t index(Long position) const;
  void buildMenu();

  DialogToolBar& bar_;
  QMenu& menu_;
  std::vector<host::MenuEntry> entries_;
};

}  // namespace tessaria::qt
