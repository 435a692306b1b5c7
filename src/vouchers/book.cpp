#include "vouchers/book.h"

const Book& saleBook() {
  static const Book book = {
      .code = "SA",
      .keyColumn = "BOOK_CD",
      .heads = "SALE",
      .lines = "SALEITM",
      .work = "T_SLITM",
      .serial = "SR_NO",
      .title = "SALES ENTRY",
      .adding = " :::  ADD MODE",
      .modifying = "  :::  MODIFY MODE",
      .deleting = " :::  DELETE MODE",
      .printing = "  :::  PRINT MODE ",
      .escapeAsks = "Do you want to Cancel and Exit",
      .printKey = "GST INVOICE",
      .saveOpens = "Save opens after Parcels",
  };
  return book;
}
