#include "hosts/qt/control/browse_button.h"

#include <QEvent>
#include <QStyleOptionToolButton>

#include <algorithm>
#include <iterator>

#include "hosts/qt/control/field_icons.h"
#include "hosts/qt/conversion/picture.h"
#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/event_boundary.h"

namespace tessaria::qt {
namespace {

struct Face {
  TipoControle kind;
  const char* name;
};

constexpr Face kFaces[] = {
    {TipoControle::Browse, "Procurar"},         {TipoControle::Calendario, "Calendário"},
    {TipoControle::Descricao, "Procurar"},      {TipoControle::Diretorio, "Pasta"},
    {TipoControle::Calculadora, "Calculadora"},
};

// Twips: the room that the control leaves for the button, less an edge on either side.
constexpr Long kWidth = 330;
constexpr Long kTop = 30;
constexpr int kEdge = 6;  // pixels between the border and the icon, both sides together

}  // namespace

BrowseButton::BrowseButton(QWidget* parent) : QToolButton(parent) {
  setFocusPolicy(Qt::ClickFocus);
  setGeometry(0, pixelsY(kTop, *this), pixelsX(kWidth, *this), height());
  hide();
}

void BrowseButton::setKind(TipoControle kind) {
  const auto* face = std::find_if(std::begin(kFaces), std::end(kFaces),
                                  [kind](const Face& f) { return f.kind == kind; });
  const bool known = face != std::end(kFaces);
  const QString name = known ? QString::fromUtf8(face->name) : QString();
  kind_ = kind;
  setToolTip(name);
  showName();
  showIcon();
}

void BrowseButton::setFieldName(const QString& name) {
  if (name == fieldName_) return;
  fieldName_ = name;
  showName();
}

void BrowseButton::showName() {
  QStringList parts{toolTip(), fieldName_};
  parts.removeAll(QString());
  setAccessibleName(parts.join(QStringLiteral(": ")));
}

void BrowseButton::setPicture(std::shared_ptr<host::Picture> picture) {
  picture_ = std::move(picture);
  showIcon();
}

void BrowseButton::showIcon() {
  // Between two parents it has no field.
  if (!parentWidget()) return;
  const auto* loaded = dynamic_cast<const qt::Picture*>(picture_.get());
  if (loaded) return setIcon(loaded->icon());
  setIcon(fieldIcon(kind_, formAround().palette()));
}

void BrowseButton::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) showIcon();
  QToolButton::changeEvent(event);
}

const QWidget& BrowseButton::formAround() const {
  const QWidget* field = parentWidget();
  return field->isWindow() ? *field : *field->parentWidget();
}

/// The button is drawn in the colours of the form around its field. Styles keep one picture of a
/// button for each palette: those of all fields are the same.
void BrowseButton::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  const auto group = option->palette.currentColorGroup();
  option->palette = formAround().palette();
  option->palette.setCurrentColorGroup(group);
}

void BrowseButton::resizeEvent(QResizeEvent* event) {
  const int side = std::max(8, std::min(width(), height()) - kEdge);
  setIconSize(QSize(side, side));
  QToolButton::resizeEvent(event);
}

CommandButton::CommandButton(BrowseButton& button) : button_(&button) {
  QObject::connect(&button, &QToolButton::clicked, &button, [this] {
    const QPointer<BrowseButton> pressed = button_;
    guarded(pressed, [this] {
      if (const auto click = OnClick) click();
    });
    // The operator continues in the field.
    if (pressed && pressed->window()->focusWidget() == pressed)
      pressed->parentWidget()->setFocus(Qt::OtherFocusReason);
  });
}

BrowseButton& CommandButton::button() const {
  if (!button_) throw ControlGone{};
  return *button_;
}

bool CommandButton::Visible() const { return !button().isHidden(); }
void CommandButton::Visible(bool visible) { button().setVisible(visible); }
bool CommandButton::Enabled() const { return !button().testAttribute(Qt::WA_ForceDisabled); }
void CommandButton::Enabled(bool enabled) { button().setEnabled(enabled); }
Long CommandButton::Left() const { return twipsX(button().x(), button()); }
void CommandButton::Left(Long twips) { button().move(pixelsX(twips, button()), button().y()); }
Long CommandButton::Height() const { return twipsY(button().height(), button()); }
void CommandButton::Height(Long twips) {
  button().resize(button().width(), pixelsY(twips, button()));
}
std::shared_ptr<host::Picture> CommandButton::Picture() const { return button().picture(); }
void CommandButton::Picture(std::shared_ptr<host::Picture> picture) {
  button().setPicture(std::move(picture));
}

}  // namespace tessaria::qt
