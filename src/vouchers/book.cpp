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
      .savedHead = "Sale Entry Saved",
      .parties = "ACCOUNT where group_cd = 85 OR group_cd = 87 OR group_cd = 88 order by acc_name",
      .rate = "SALE_RATE1",
      .discount = "SALE_DISC",
      .partySide = "D",
      .goods = "X90002",
      .cgst = "X90061",
      .sgst = "X90062",
      .igst = "X90063",
      .rounds = "X90015",
  };
  return book;
}
