#include "apps/designer/plugin.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QCoreApplication>
#include <QIcon>
#include <utility>

#include <tessaria/qt/adodc.h>
#include <tessaria/qt/design_time.h>
#include <tessaria/qt/item_grid.h>
#include <tessaria/qt/tstext.h>

#include "apps/designer/connections.h"
#include "apps/designer/extensions.h"
#include "apps/designer/field_page.h"

namespace tessaria::designer {
namespace {

template <class Widget>
QWidget* make(QWidget* parent) {
  return new Widget(parent);
}

// Designer stores a property only after it was set: naming the settings here makes it always store
// them. They are no text to translate: a program that translates its form would assign them again.
constexpr WidgetEntry kEntries[] = {
    {"tessaria::qt::TsText", "tessaria/qt/tstext.h", ":/tessaria/tres_pontos.png",
     "Campo de entrada de dados",
     R"(<ui language="c++" displayname="TsText">)"
     R"(<widget class="tessaria::qt::TsText" name="tsText">)"
     R"(<property name="geometry"><rect><x>0</x><y>0</y><width>160</width><height>28</height>)"
     R"(</rect></property><property name="settings"><stringlist notr="true"/></property>)"
     R"(</widget></ui>)",
     make<qt::TsText>},
    {"tessaria::qt::Adodc", "tessaria/qt/adodc.h", ":/tessaria/diretorio.png",
     "Registros do formulário",
     R"(<ui language="c++" displayname="Adodc">)"
     R"(<widget class="tessaria::qt::Adodc" name="adodc">)"
     R"(<property name="geometry"><rect><x>0</x><y>0</y><width>240</width><height>28</height>)"
     R"(</rect></property></widget></ui>)",
     make<qt::Adodc>},
    {"tessaria::qt::ItemGrid", "tessaria/qt/item_grid.h", ":/tessaria/tres_pontos.png",
     "Itens do registro",
     R"(<ui language="c++" displayname="ItemGrid">)"
     R"(<widget class="tessaria::qt::ItemGrid" name="itemGrid">)"
     R"(<property name="geometry"><rect><x>0</x><y>0</y><width>400</width><height>160</height>)"
     R"(</rect></property></widget></ui>)",
     make<qt::ItemGrid>},
};

/// While a form is loaded it has no main widget yet.
QWidget* formOf(QWidget* widget) {
  auto* window = QDesignerFormWindowInterface::findFormWindow(widget);
  return window && window->mainContainer() ? window->mainContainer() : window;
}

/// Whether no other copy of this plugin has been here before.
bool isFirstCopy() {
  static constexpr char kCopy[] = "_tessaria_designer_plugin";
  const auto here = reinterpret_cast<quintptr>(&kEntries);
  const QVariant first = qApp->property(kCopy);
  if (!first.isValid()) qApp->setProperty(kCopy, QVariant::fromValue(here));
  return !first.isValid() || first.value<quintptr>() == here;
}

}  // namespace

DesignerWidget::DesignerWidget(const WidgetEntry& entry, DesignerPlugin& plugin)
    : QObject(&plugin), entry_(entry), plugin_(plugin) {}

QIcon DesignerWidget::icon() const { return QIcon(QLatin1String(entry_.icon)); }

void DesignerWidget::initialize(QDesignerFormEditorInterface* core) {
  if (std::exchange(isInitialized_, true)) return;
  plugin_.enter(*core);
}

DesignerPlugin::DesignerPlugin(QObject* parent)
    : QObject(parent),
      page_([](const PageContext& context) { return std::make_unique<FieldPage>(context); }) {
  if (!isFirstCopy()) return;
  for (const WidgetEntry& entry : kEntries) widgets_ << new DesignerWidget(entry, *this);
}

void DesignerPlugin::enter(QDesignerFormEditorInterface& core) {
  if (std::exchange(isInDesigner_, true)) return;
  qt::setDesigner(formOf);
  qt::Adodc::setConnectionFactory(connections());
  qt::setDataLayer(dataLayer());
  new FieldExtensions(core, page_);
}

}  // namespace tessaria::designer
