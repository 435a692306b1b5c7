#include "vouchers/book.h"

const Book& saleBook() {
  static const Book book = {
      .entryType = "SALE",
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
      .savedHints = {"Press Print Btn To Print Sales Invoice", "Press New Entry Btn To Enter New Bill Entry"},
      .video = &Links::saleVideo,
      .parties = "ACCOUNT where group_cd = 85 OR group_cd = 87 OR group_cd = 88 order by acc_name",
      .rate = "SALE_RATE1",
      .discount = "SALE_DISC",
      .rateHint = "F4 = Earlier Sales :: F6 = Party Rates :: F7 = Purchase Rates",
      .partySide = "D",
      .goods = "X90002",
      .cgst = "X90061",
      .sgst = "X90062",
      .igst = "X90063",
      .rounds = "X90015",
  };
  return book;
}

const Book& purchaseBook() {
  static const Book book = [] {
    Book b = saleBook();
    b.entryType = "PURCHASE";
    b.code = "PU";
    b.title = "PURCHASE ENTRY";
    b.printKey = "";  // the paper is the supplier's
    b.savedHead = "Purchase Entry Saved";
    b.savedHints = {"Press New Entry Btn To Enter New Bill Entry"};
    b.video = &Links::purchaseVideo;
    b.parties = "ACCOUNT where group_cd = 135 OR group_cd = 87 OR group_cd = 88 order by acc_name";
    b.rate = "PUR_RATE";
    b.discount = "0";  // no master keeps one
    b.rateHint = "F4 = Earlier Purchases :: F6 = Party Rates :: F7 = Purchase Rates";
    b.numbered = false;
    b.dispatched = false;
    b.billDate = "B.Dt";
    b.partySide = "C";
    b.goods = "X90001";
    b.cgst = "X90064";
    b.sgst = "X90065";
    b.igst = "X90066";
    return b;
  }();
  return book;
}

std::array<const Book*, 2> billBooks() { return {&saleBook(), &purchaseBook()}; }

const Book& billBook(std::string_view entryType) {
  for (const Book* book : billBooks())
    if (book->entryType == entryType) return *book;
  return saleBook();
}
