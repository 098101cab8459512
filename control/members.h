// What one control remembers.
#pragma once

#include <memory>
#include <optional>

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/tstext_interface.h"

namespace tessaria {

/// The members of one control, as its property bag fills them. No assignment here has a side
/// effect; the control's properties are the ones that have.
struct Members {
  String DataSource;    ///< name of the data control on the form
  String DataField;     ///< field of its record set
  String PosDataField;  ///< decimal text of the field's ordinal, a cache
  tessaria::TipoControle TipoControle = tessaria::TipoControle::Normal;
  Long TipoDado = 1;
  String TxtIrmao;        ///< name of the sibling control
  String LabelAssociado;  ///< name of the caption label
  bool PodeSerBranco = false;
  bool eSocial = false;
  String ObjetoCancelar;  ///< name of the control that escapes validation
  bool UsaChecaRelacao = false;
  String NumeroTab;  ///< number of the tab that the control lies on
  bool DirVerArquivos = false;
  String DirPattern;
  String DirFilePath;
  String DirFileName;

  std::shared_ptr<tessaria::Browse> Browse;
  String BrwTitulo;
  String BrowseTable;
  String BrwCampo;
  String BrwCampoIrmao;
  String BrwCampoOutros;
  String BrwGroupBy;
  String BrwLeftJoin;
  String BrwWhere;

  Variant Value;
  Variant OriginalValue;  ///< value of the row as it was loaded
  Variant LastValue;      ///< value when the focus came in
  String Texto;           ///< typed characters without the mask's literals
  bool MultiLine = false;
  bool LastValidaStatus = false;

  String Mascara;
  Long TipoStrZero = 2;
  String ItensMascara;
  bool PromptInclude = false;
  String PromptChar = u"_";
  bool ValorNegativo = false;

  std::shared_ptr<tessaria::Pesquisa> Pesquisa;
  /// The older text form of the searches; strings whatever they encode.
  String PesqCaption;
  String PesqCampo;
  String PesqMascara;
  String PesqWidth;
  String PesqTipo;
  String PesqLike;
  String PesqMaxLength;
  String PesqCompletaDescr;
  String PesqPromptInclude;

  bool Carregou = true;  ///< false only while the first show runs
  String MsgBrowse;      ///< message of a lookup that finds nothing

  bool bCampoConectado = false;
  bool bIrmaoConectado = false;
  bool bLabelConectado = false;
  bool bMostrado = false;
  /// The next assignment of `Value` comes from a row, a lookup or typing.
  bool bCarregandoCampo = false;
  Colour lngForeColorOriginal = 0;

  /// The colours to be stored while the box is drawn in others.
  std::optional<Colour> StoredForeColor, StoredBackColor;
  /// The font is the surroundings' own, bold or not.
  bool FontIsAmbient = false;
};

}  // namespace tessaria
