#include "hosts/qt/designer/plugin.h"

#include <QIcon>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {
namespace {

QWidget* makeTsText(QWidget* parent, bool designing) {
  auto* control = new TsText(parent);
  control->setDesignMode(designing);
  return control;
}

QWidget* makeAdodc(QWidget* parent, bool) { return new Adodc(parent); }

// Designer stores a property only after it was set: naming the settings here makes it always store
// them.
constexpr WidgetEntry kEntries[] = {
    {"tessaria::qt::TsText", "tessaria/qt/tstext.h", ":/tessaria/tres_pontos.png",
     "Campo de entrada de dados",
     R"(<ui language="c++"><widget class="tessaria::qt::TsText" name="tsText">)"
     R"(<property name="geometry"><rect><x>0</x><y>0</y><width>160</width><height>28</height>)"
     R"(</rect></property><property name="settings"><stringlist/></property></widget></ui>)",
     makeTsText},
    {"tessaria::qt::Adodc", "tessaria/qt/adodc.h", ":/tessaria/diretorio.png",
     "Registros do formulário",
     R"(<ui language="c++"><widget class="tessaria::qt::Adodc" name="adodc">)"
     R"(<property name="geometry"><rect><x>0</x><y>0</y><width>240</width><height>28</height>)"
     R"(</rect></property></widget></ui>)",
     makeAdodc},
};

}  // namespace

QIcon DesignerWidget::icon() const { return QIcon(QLatin1String(entry_.icon)); }

DesignerPlugin::DesignerPlugin(QObject* parent) : QObject(parent) {
  for (const WidgetEntry& entry : kEntries) widgets_ << new DesignerWidget(entry, this);
}

}  // namespace tessaria::qt
