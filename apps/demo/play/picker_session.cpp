#include "apps/demo/play/picker_session.h"

#include <QFileInfo>

namespace tessaria::demo {
namespace {}  // namespace

void playCalendar(Player& p) {
  p.stage(s("A entrega, no calendário"));
  p.expectFocus(s("entrega"));
  p.type(s("01122026"));
  p.expectWindow(s("frmCalendario"), [&p] {
    p.press(s("Right"), 4);
    p.picture(s("calendario"));
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
  p.expectText(s("entrega"), s("05/12/2026"));
  p.press(s("Tab"));
}

void playFolders(Player& p, const OrderPapers& papers) {
  p.stage(s("Documento e pasta"));
  p.expectFocus(s("documento"));
  p.type(papers.other);
  p.expectWindow(s("frmDiretorio"), [&p] {
    p.tabTo(s("fileDiretorio"));
    p.press(s("Up"));
    p.picture(s("documento"));
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
  p.expectText(s("documento"), papers.document);
  p.press(s("Tab"));
  p.expectFocus(s("pasta"));
  p.type(QFileInfo(papers.folder).path());
  p.expectWindow(s("frmDiretorio"), [&p] {
    p.tabTo(s("dirDiretorio"));
    p.press(s("Right"));
    p.picture(s("pasta"));
    p.press(s("Return"));
  });
  p.press(s("PgDown"));
  p.expectText(s("pasta"), papers.folder);
  p.press(s("Tab"));
}

void playCalculator(Player& p, const QString& key, const QString& keys, const QString& picture) {
  p.expectWindow(s("frmCalculadora"), [&] {
    p.type(keys.chopped(1));
    p.picture(picture);
    p.type(keys.right(1));
  });
  p.press(key);
}

}  // namespace tessaria::demo
