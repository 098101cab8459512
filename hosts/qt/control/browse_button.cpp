#include "hosts/qt/control/browse_button.h"

#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QStyleOptionToolButton>

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>
#include <tuple>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/picture.h"
#include "hosts/qt/conversion/units.h"
#include "tessaria/qt/event_boundary.h"

static void loadResources() { Q_INIT_RESOURCE(tessaria_qt); }

namespace tessaria::qt {
namespace {

struct Face {
  TipoControle kind;
  const char* icon;
  const char* name;
};

constexpr Face kFaces[] = {
    {TipoControle::Browse, ":/tessaria/tres_pontos.png", "Procurar"},
    {TipoControle::Calendario, ":/tessaria/calendario.png", "Calendário"},
    {TipoControle::Descricao, ":/tessaria/tres_pontos.png", "Procurar"},
    {TipoControle::Diretorio, ":/tessaria/diretorio.png", "Pasta"},
    {TipoControle::Calculadora, ":/tessaria/calculadora.png", "Calculadora"},
};

// Twips: the room that the control leaves for the button, less an edge on either side.
constexpr Long kWidth = 330;
constexpr Long kTop = 30;
constexpr int kEdge = 6;  // pixels between the border and the icon, both sides together

QRgb halfwayToWhite(QRgb pixel) {
  const auto lighter = [](int channel) { return 255 - (255 - channel) / 2; };
  return qRgba(lighter(qRed(pixel)), lighter(qGreen(pixel)), lighter(qBlue(pixel)), qAlpha(pixel));
}

/// The same shapes and hues, with strokes that contrast with a dark button.
QIcon lightVariant(const QIcon& icon) {
  QIcon light;
  for (const QSize& size : icon.availableSizes()) {
    QImage image = icon.pixmap(size, 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, y, halfwayToWhite(image.pixel(x, y)));
    light.addPixmap(QPixmap::fromImage(image));
  }
  return light;
}

/// One icon for all buttons of a kind: the file is read once, and Qt scales it once. The ratio
/// decides which of its sizes Qt reads.
const QIcon& sharedIcon(const char* file, bool light) {
  static std::map<std::tuple<std::string_view, qreal, bool>, QIcon> icons;
  QIcon& icon = icons[{file, qApp->devicePixelRatio(), light}];
  if (!icon.isNull()) return icon;
  loadResources();
  icon = light ? lightVariant(sharedIcon(file, false)) : QIcon(QLatin1String(file));
  return icon;
}

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
  ownIcon_ = known ? face->icon : nullptr;
  setAccessibleName(name);
  setToolTip(name);
  showIcon();
}

void BrowseButton::setPicture(std::shared_ptr<host::Picture> picture) {
  picture_ = std::move(picture);
  showIcon();
}

void BrowseButton::showIcon() {
  const auto* loaded = dynamic_cast<const qt::Picture*>(picture_.get());
  if (loaded) return setIcon(loaded->icon());
  setIcon(ownIcon_ ? sharedIcon(ownIcon_, wantsLightVariants(palette())) : QIcon());
}

void BrowseButton::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) showIcon();
  QToolButton::changeEvent(event);
}

/// The button is drawn in the colours of the form around its field. Styles keep one picture of a
/// button for each palette: those of all fields are the same.
void BrowseButton::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  const auto group = option->palette.currentColorGroup();
  const QWidget* field = parentWidget();
  const QWidget* form = field->isWindow() ? field : field->parentWidget();
  option->palette = form->palette();
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
