#include "documents/screens.h"

#include "documents/dlg1.h"
#include "documents/mymsgfrm.h"

void addDocumentScreens(Screens& screens) {
  screens.add<dlg1>("dlg1");
  screens.add<mymsgfrm>("mymsgfrm");
}
