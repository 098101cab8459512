// The browse button of a control, and its port.
#pragma once

#include <QPointer>
#include <QToolButton>

#include "tessaria/host/widgets.h"
#include "tessaria/tstext_interface.h"

namespace tessaria::qt {

/// Takes the focus when clicked, and has no place in the tab order.
class BrowseButton final : public QToolButton {
  Q_OBJECT

 public:
  explicit BrowseButton(QWidget* parent = nullptr);

  /// Sets icon, accessible name and tool tip for a kind of control. An assigned picture takes
  /// precedence over the icon.
  void setKind(TipoControle kind);
  /// The field whose button it is; its accessible name ends with it.
  void setFieldName(const QString& name);
  void setPicture(std::shared_ptr<host::Picture> picture);
  std::shared_ptr<host::Picture> picture() const { return picture_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void initStyleOption(QStyleOptionToolButton* option) const override;

 private:
  void showIcon();
  void showName();

  const QWidget& formAround() const;

  TipoControle kind_ = TipoControle::Normal;
  QString fieldName_;
  std::shared_ptr<host::Picture> picture_;
};

/// May outlive its button; every member then raises `ControlGone`.
class CommandButton final : public host::CommandButton {
 public:
  explicit CommandButton(BrowseButton& button);

  bool Visible() const override;
  void Visible(bool visible) override;
  bool Enabled() const override;
  void Enabled(bool enabled) override;
  Long Left() const override;
  void Left(Long twips) override;
  Long Height() const override;
  void Height(Long twips) override;
  std::shared_ptr<host::Picture> Picture() const override;
  void Picture(std::shared_ptr<host::Picture> picture) override;

 private:
  BrowseButton& button() const;
  QPointer<BrowseButton> button_;
};

}  // namespace tessaria::qt
