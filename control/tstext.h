// The parts of a control, and how they are connected.
#pragma once

#include "control/box_events.h"
#include "control/dialogs.h"
#include "control/discovery.h"
#include "control/first_show.h"
#include "control/focus.h"
#include "control/mask_change.h"
#include "control/naming.h"
#include "tessaria/tstext.h"

namespace tessaria {

/// Each part gets what it works on; later parts depend on earlier ones.
struct tsText::Parts {
  Parts(host::ControlSite& surface, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
        tsTextEvents& handlers)
      : site(surface),
        button(btnBrowse),
        events(handlers),
        box(site, txtEdit, members, members),
        naming(site, members),
        around(site, members),
        pair(site, box, members, members, members, lookup, around, events),
        value(site, box, members, members, members, around, pair),
        validation(site, box, members, members, members, lookup, around),
        looks(site, txtEdit, button, members, members, members, around),
        mask(site, box, members, value),
        discovery(site, members, members, members, around, value),
        firstShow({site, box, members, lookup, around, discovery, mask, looks, events}),
        focus({site, box, members, validation, value, pair, events}),
        dialogs({site, box, members, lookup, around, value, events}),
        boxEvents(box, members, pair, looks, dialogs, events) {
    button.OnClick = [this] { dialogs.Open(); };
  }
  ~Parts() { button.OnClick = nullptr; }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  host::ControlSite& site;
  host::CommandButton& button;
  tsTextEvents& events;
  Members members;
  Definitions lookup{members};
  FieldBox box;
  Naming naming;
  Surroundings around;
  Pair pair;
  ValueAssignment value;
  Validation validation;
  Looks looks;
  MaskChange mask;
  Discovery discovery;
  FirstShow firstShow;
  Focus focus;
  Dialogs dialogs;
  BoxEvents boxEvents;
};

}  // namespace tessaria
