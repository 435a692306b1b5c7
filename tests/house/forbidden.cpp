// Never compiled: what a user of vouchers may not name, below the one header that it may.
#include "vouchers/saving.h"
//
#include "documents/pdf/pdf_creator.h"
#include "platform/qt/qt_host.h"
#include "platform/workbook/workbook.h"
#include "program/all_screens.h"
