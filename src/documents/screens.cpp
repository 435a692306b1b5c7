#include "documents/screens.h"

#include "documents/dlg1.h"
#include "documents/mymsgfrm.h"
#include "documents/vsetfrm.h"

void addDocumentScreens(Screens& screens) {
  screens.add<dlg1>("dlg1");
  screens.add<mymsgfrm>("mymsgfrm");
  screens.add<VSETFRM>("VSETFRM");
}
