// The pair of a key and its description.
#pragma once

#include <memory>
#include <vector>

#include "control/definitions.h"
#include "control/value.h"

namespace tessaria {

/// What a pair asks of its form.
class PairForm {
 public:
  virtual ~PairForm() = default;
  /// The sibling's widget. Errors: 730 for a name that leads nowhere, 438 for one that leads to no
  /// control of the library.
  virtual std::shared_ptr<host::TsTextWidget> Sibling() const = 0;
  /// The definition's where text with its parameters replaced. Error 730 as above.
  virtual String Condition(const Browse& definition) const = 0;
};

/// One field's half of the pair.
class Pair final : public ValueFollower {
 public:
  /// All outlive it.
  Pair(host::ControlSite& site, FieldBox& box, const FieldKind& kind, const FormTies& ties,
       FieldContents& contents, Definitions& definitions, const PairForm& form,
       tsTextEvents& events);
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  /// The value that the field shows is looked up, and what was found goes to the sibling.
  void Follow(AssignMode mode) override;
  /// The same on demand. Errors are reported. The flags are those of `AtualizaIrmao`.
  void Refresh(bool ApenasTsBrowse, bool DisparaBrowseReturn, AssignMode mode);
  void RaiseBrowseReturn();

  /// The key becomes the thread's sibling value, as a description takes the focus.
  void FetchSiblingLiteral() const;
  /// Completes what the operator has typed into a description.
  void Complete(Integer KeyCode);

 private:
  /// How a value is looked up, and whether what was found goes to the sibling.
  struct Search {
    bool NarrowsToKey;
    bool HandsOn;
  };
  enum class Outcome { Blank, Searched, HandedOn };

  Outcome LookUp(Search search, AssignMode mode);
  bool HasSibling() const;
  void HandOn(const Variant& value, AssignMode mode);
  void RefreshBack(AssignMode mode);
  bool ComesRound() const;
  String SiblingCondition() const;
  String KeyFilter(const String& siblingField) const;
  String SiblingLiteral() const;

  host::ControlSite& site_;
  FieldBox& box_;
  const FieldKind& kind_;
  const FormTies& ties_;
  FieldContents& contents_;
  Definitions& definitions_;
  const PairForm& form_;
  tsTextEvents& events_;
  std::vector<Variant> handedOn_;  ///< values whose sibling step is running, outermost first
};

}  // namespace tessaria
