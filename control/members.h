// The state of one control, as plain data.
#pragma once

#include <optional>

#include "control/same_value.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/validators.h"

namespace tessaria {

/// The kind of field, and what it may hold.
struct FieldKind {
  tessaria::TipoControle TipoControle = tessaria::TipoControle::Normal;
  Long TipoDado = 1;
  bool PodeSerBranco = false;
  bool UsaChecaRelacao = false;
  bool eSocial = false;
  bool MultiLine = false;
  tessaria::Validator Validator;  ///< the program's; empty for none

  /// The kinds that query the database.
  bool HasLookup() const {
    return TipoControle == tessaria::TipoControle::Browse || IsDescription();
  }
  bool IsDescription() const { return TipoControle == tessaria::TipoControle::Descricao; }
};

/// The names that tie a field to its form, and which of them were found there.
struct FormTies {
  String DataSource;      ///< name of the data control on the form
  String DataField;       ///< field of its record set
  String PosDataField;    ///< decimal text of the field's ordinal, a cache
  String TxtIrmao;        ///< name of the sibling control
  String LabelAssociado;  ///< name of the caption label
  String ObjetoCancelar;  ///< name of the control that escapes validation
  String NumeroTab;       ///< number of the tab that the control is on
  bool bCampoConectado = false;
  bool bIrmaoConectado = false;
  bool bLabelConectado = false;
};

struct MaskSettings {
  String Mascara;
  Long TipoStrZero = 2;
  String ItensMascara;
  bool PromptInclude = false;
  String PromptChar = u"_";
  bool ValorNegativo = false;
};

struct FieldContents {
  Variant Value;
  Variant OriginalValue;  ///< value of the row as it was loaded
  Variant LastValue;      ///< value when the field was entered
  String Texto;           ///< typed characters without the mask's literals
  bool LastValidaStatus = false;
  /// The next assignment of `Value` comes from a row, a lookup or typing.
  bool bCarregandoCampo = false;

  bool HasChanged() const { return !IsSame(Value, LastValue); }
};

/// The control's own texts, which override its lookup's definition.
struct LookupTexts {
  String BrwTitulo;
  String BrowseTable;
  String BrwCampo;
  String BrwCampoIrmao;
  String BrwCampoOutros;
  String BrwGroupBy;
  String BrwLeftJoin;
  String BrwWhere;
  String MsgBrowse;  ///< message when a lookup finds nothing
};

/// The older text form of the searches; all are strings, whatever they encode.
struct SearchTexts {
  String PesqCaption;
  String PesqCampo;
  String PesqMascara;
  String PesqWidth;
  String PesqTipo;
  String PesqLike;
  String PesqMaxLength;
  String PesqCompletaDescr;
  String PesqPromptInclude;
};

struct PathSettings {
  bool DirVerArquivos = false;
  String DirPattern;
  String DirFilePath;
  String DirFileName;
};

struct Appearance {
  bool Carregou = true;  ///< false only while the first show runs
  bool bMostrado = false;
  Colour lngForeColorOriginal = 0;
  /// The colours to store while the box is drawn in others.
  std::optional<Colour> StoredForeColor, StoredBackColor;
  /// Whether the font is the ambient one, bold or not.
  bool FontIsAmbient = false;
};

/// The whole state, as the property bag fills it. Assignments here have no side effects; those of
/// the control's properties have. Each part of a control gets the groups that it needs.
struct Members : FieldKind,
                 FormTies,
                 MaskSettings,
                 FieldContents,
                 LookupTexts,
                 SearchTexts,
                 PathSettings,
                 Appearance {};

}  // namespace tessaria
