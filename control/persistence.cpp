// A control's start values, and its two walks through the property bag.

#include <algorithm>
#include <vector>

#include "control/properties.h"
#include "control/scoped_flag.h"
#include "control/tstext.h"
#include "services/trap.h"

namespace tessaria {

namespace {

/// The stored properties in the order of one of their two positions.
std::vector<const Property*> InOrder(int Property::Storage::*position) {
  std::vector<const Property*> walk;
  for (const Property& property : Properties())
    if (property.Stored.*position != 0) walk.push_back(&property);
  std::sort(walk.begin(), walk.end(), [position](const Property* a, const Property* b) {
    return a->Stored.*position < b->Stored.*position;
  });
  return walk;
}

Variant DefaultOr(const Property::Storage& stored, const Variant& otherwise,
                  const host::ControlSite& site) {
  if (!stored.DefaultIsAmbientFont) return otherwise;
  return std::make_shared<host::Font>(site.AmbientFont());
}

}  // namespace

void tsText::UserControl_InitProperties() {
  Trap(u"tsText", u"UserControl_InitProperties", [&] {
    m_.TipoControle = tessaria::TipoControle::Normal;
    m_.PodeSerBranco = true;
    m_.eSocial = false;
    m_.UsaChecaRelacao = true;
    m_.DirVerArquivos = true;
    m_.TipoDado = 1;
    m_.MultiLine = false;
    m_.PromptInclude = false;
    m_.PromptChar = u"_";
    m_.TipoStrZero = 2;
    host::Font font = txtEdit_.Font();
    font.Bold = true;
    txtEdit_.Font(font);
    m_.FontIsAmbient = true;
  });
}

void tsText::UserControl_ReadProperties(const host::PropertyBag& bag) {
  Trap(u"tsText", u"UserControl_ReadProperties", [&] {
    const ScopedFlag silent(loading_);  // filling the box is no change of the field
    for (const Property* property : InOrder(&Property::Storage::ReadPosition)) {
      const auto& stored = property->Stored;
      stored.Load(*this, bag.ReadProperty(String(stored.ReadKey),
                                          DefaultOr(stored, stored.ReadDefault, site_)));
    }
  });
}

void tsText::UserControl_WriteProperties(host::PropertyBag& bag) {
  Trap(u"tsText", u"UserControl_WriteProperties", [&] {
    for (const Property* property : InOrder(&Property::Storage::WritePosition)) {
      const auto& stored = property->Stored;
      bag.WriteProperty(String(stored.WriteKey), stored.Save(*this),
                        DefaultOr(stored, stored.WriteDefault, site_));
    }
  });
}

}  // namespace tessaria
