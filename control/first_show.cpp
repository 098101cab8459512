#include "control/first_show.h"

#include "control/searches_text.h"
#include "services/trap.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

/// Positions in a mask have 16 bits. A longer field keeps its mask.
constexpr Long kLongestMask = 32767;

}  // namespace

void FirstShow::Run() {
  Members& members = parts_.Remembered;
  if (members.bMostrado) return;
  Trap(u"tsText", u"UserControl_Show", [&] {
    members.Carregou = false;
    members.bMostrado = true;
    KeepForeColor();
    if (!parts_.Site.UserMode())
      ShowAtDesignTime();
    else if (Err().Number != errors::ObjectNotSet)
      ShowAtRunTime();
    members.Carregou = true;
  });
}

void FirstShow::KeepForeColor() {
  parts_.Remembered.lngForeColorOriginal = parts_.Box.Widget().ForeColor();
}

void FirstShow::Redraw() {
  if (!parts_.Remembered.bMostrado) return;
  KeepForeColor();
  parts_.Drawing.Draw();
}

void FirstShow::ShowAtDesignTime() {
  Members& members = parts_.Remembered;
  if (!members.PesqCaption.empty() && members.HasLookup())
    AddSearchTexts(members, *parts_.Lookup.Pesquisa());
  // The property page reports a database that cannot be reached: the designer opens forms without
  // one.
  designTimeError_.clear();
  Catch([&] { parts_.Names.FindAtDesignTime(); },
        [&] {
          designTimeError_ = Err().Description;
          Err().Clear();
        });
  parts_.Drawing.Draw();
}

void FirstShow::ShowAtRunTime() {
  parts_.Names.Find(u"Todos");
  if (parts_.Box.IsNumeric())
    parts_.Box.Widget().Alignment(host::Alignment::Right);
  else if (StartsWith(parts_.Remembered.Mascara, u"A"))
    FitMaskToField();
  parts_.Remembered.LastValidaStatus = true;
  parts_.Drawing.Draw();
  parts_.Events.Show();
}

void FirstShow::FitMaskToField() {
  FieldBox& box = parts_.Box;
  const auto column = parts_.Around.Column();
  const Long size = column ? column->DefinedSize() : box.Widget().MaxLength();
  if (size <= 0 || size > kLongestMask) return;
  parts_.Mask.Mascara(StringOf(size, u"A"));
  // The former mask has cut what the box shows.
  box.Display(Variant(parts_.Remembered.Value), box.Shown().Shows());
}

}  // namespace tessaria
