#include "control/storage/persistence.h"

#include <algorithm>
#include <vector>

#include "control/storage/properties.h"
#include "services/trap.h"
#include "tessaria/field_settings.h"

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

void SetStartValues(Members& members, host::TextBox& box) {
  Trap(u"tsText", u"UserControl_InitProperties", [&] {
    members.TipoControle = TipoControle::Normal;
    members.PodeSerBranco = true;
    members.eSocial = false;
    members.UsaChecaRelacao = true;
    members.DirVerArquivos = true;
    members.TipoDado = 1;
    members.MultiLine = false;
    members.PromptInclude = false;
    members.PromptChar = u"_";
    members.TipoStrZero = 2;
    host::Font font = box.Font();
    font.Bold = true;
    box.Font(font);
    members.FontIsAmbient = true;
  });
}

void ReadOrRaise(StoredState& state, const host::PropertyBag& bag) {
  for (const Property* property : InOrder(&Property::Storage::ReadPosition)) {
    const auto& stored = property->Stored;
    stored.Load(state, bag.ReadProperty(String(stored.ReadKey),
                                        DefaultOr(stored, stored.ReadDefault, state.Site)));
  }
}

std::vector<StoredSetting> StoredSettings() {
  std::vector<StoredSetting> settings;
  for (const Property* property : InOrder(&Property::Storage::ReadPosition)) {
    const auto& stored = property->Stored;
    const bool isObject =
        property->Type == PropertyType::Object || property->Type == PropertyType::Font;
    settings.push_back({String(stored.ReadKey), isObject ? Variant::Null() : stored.ReadDefault});
  }
  return settings;
}

void ReadProperties(StoredState& state, const host::PropertyBag& bag) {
  Trap(u"tsText", u"UserControl_ReadProperties", [&] { ReadOrRaise(state, bag); });
}

void WriteProperties(const StoredState& state, host::PropertyBag& bag) {
  Trap(u"tsText", u"UserControl_WriteProperties", [&] {
    for (const Property* property : InOrder(&Property::Storage::WritePosition)) {
      const auto& stored = property->Stored;
      bag.WriteProperty(String(stored.WriteKey), stored.Save(state),
                        DefaultOr(stored, stored.WriteDefault, state.Site));
    }
  });
}

}  // namespace tessaria
