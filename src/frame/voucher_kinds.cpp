#include "frame/voucher_kinds.h"

#include <array>
#include <map>

#include "base/text.h"
#include "base/words.h"
#include "frame/settling.h"
#include "store/groups.h"

// Rows are laid out by hand.
// clang-format off

namespace {

constexpr const char *kMarks = "SUPPLY", *kSources = "BILLEDFROM";

VoucherKind derived(VoucherKind kind, void (*differences)(VoucherKind&)) {
  differences(kind);
  return kind;
}

const VoucherKind& quotation() {
  static const VoucherKind kind = {
      .entryType = "QUOTATION",
      .code = "QUOTATION",
      .shortCode = "QT",
      .screen = "FRMQUOT",
      .video = &Links::quotationVideo,
      .words = {.title = "QUOTATION ENTRY ",
                .name = english("Quotation"),
                .adding = "{title} : ADD MODE",
                .modifying = "{title} : EDIT MODE",
                .deleting = "{title} : DELETE MODE",
                .escapeAsks = "Do you want to Cancel and Exit",
                .saveOpens = "Save opens after Subject To",
                .savedHead = "Quotation Entry Saved",
                .savedHints = {english("Press Print Btn To Print Quotation"),
                               english("Press New Entry Btn To Enter New Quotation Entry")}},
      .tables = {.heads = "QUOT", .lines = "QUOTITM", .key = "ENTRY_TYP", .work = "T_QUOTITM", .serial = "SRNO"},
      .numbering = {.number = "REF_NO"},
      .party = {.offered = underGroups("group_cd", {85, 88, 86, 135}),
                .rate = "SALE_RATE1",
                .discount = "SALE_DISC"},
      .paper = {.key = "QUOTPRN",
                .kind = "QUOTATION",
                .dialog = "QUOTATION PRINT",
                .behind = "QUOTATION ENTRY",
                .title = "QUOTATION",
                .design = "QUOTITM",
                .family = "QUOTATION",
                .sheet = "QUOT",
                .lineSheet = "QUOT",
                .stem = "MIRAV_QUOT_"},
  };
  return kind;
}

const VoucherKind& payment() {
  static const VoucherKind kind = derived(receiptKind(), [](VoucherKind& k) {
    k.entryType = "PAYMENT";
    k.code = "PY";
    k.words.name = english("Payment");
    k.words.title = "PAYMENT ENTRY";
    k.ledger.partySide = "D";
    k.ledger.formerCode = "";
  });
  return kind;
}

const VoucherKind& income() {
  static const VoucherKind kind = derived(receiptKind(), [](VoucherKind& k) {
    k.entryType = "INCOME";
    k.code = "IC";
    k.words.name = english("Income");
    k.words.title = "INCOME ENTRY";
    k.party = {.offered = underGroups("GROUP_CD", {2, 4})};
    k.ledger.formerCode = "";
  });
  return kind;
}

const VoucherKind& expense() {
  static const VoucherKind kind = derived(income(), [](VoucherKind& k) {
    k.entryType = "EXPENSE";
    k.code = "EP";
    k.words.name = english("Expense");
    k.words.title = "EXPENSE ENTRY";
    // Also what is drawn by the owner, and paid to the tax office.
    k.party = {.offered = underGroups("GROUP_CD", {1, 3, 95, 121, 132, 133})};
    k.ledger.partySide = "D";
  });
  return kind;
}

const VoucherKind& contra() {
  static const VoucherKind kind = derived(journalKind("JOURNAL"), [](VoucherKind& k) {
    k.entryType = "CONTRA";
    k.code = "CN";
    k.words.title = "CONTRA ENTRY";
    k.words.name = english("Contra");
    k.words.savedHead = "Contra Entry Saved";
    k.party.offered = underGroups("GROUP_CD", {87, 88, 127});
  });
  return kind;
}

}  // namespace

const VoucherKind& saleKind() {
  static const VoucherKind kind = {
      .entryType = "SALE",
      .code = "SA",
      .screen = "GSTSAPU",
      .video = &Links::saleVideo,
      .dispatched = true,
      .words = {.title = "SALES ENTRY",
                .name = english("Sale Bill"),
                .adding = "{title} :::  ADD MODE",
                .modifying = "{title}  :::  MODIFY MODE",
                .deleting = "{title} :::  DELETE MODE",
                .printing = "{title}  :::  PRINT MODE ",
                .escapeAsks = "Do you want to Cancel and Exit",
                .saveOpens = "Save opens after Parcels",
                .savedHead = "Sale Entry Saved",
                .savedHints = {english("Press Print Btn To Print Sales Invoice"),
                               english("Press New Entry Btn To Enter New Bill Entry")},
                .rateHint = "F4 = Earlier Sales :: F6 = Party Rates :: F7 = Purchase Rates"},
      .tables = {.heads = "SALE", .lines = "SALEITM", .key = "BOOK_CD", .work = "T_SLITM", .serial = "SR_NO",
                 .beside = {kMarks, kSources}},
      .numbering = {.number = "BILL_NO", .series = "BL_TYPE"},
      .party = {.offered = underGroups("group_cd", {85, 87, 88}),
                .rate = "SALE_RATE1",
                .discount = "SALE_DISC"},
      .ledger = {.partySide = "D",
                 .goods = "X90002",
                 .cgst = "X90061",
                 .sgst = "X90062",
                 .igst = "X90063",
                 .rounds = "X90015"},
      .paper = {.key = "GST INVOICE",
                .kind = "SALE",
                .dialog = "GST SALES INVOICE PRINT",
                .title = "INVOICE",
                .design = "INVGST",
                .family = "GST INVOICE",
                .sheet = "BILL",
                .lineSheet = "BILL",
                .stem = "MIRAV_INV_",
                .taxesByRate = "GSTTOTQRY",
                .hsn = true},
      .returns = {.sign = 1},
  };
  return kind;
}

const VoucherKind& purchaseKind() {
  static const VoucherKind kind = derived(saleKind(), [](VoucherKind& k) {
    k.entryType = "PURCHASE";
    k.code = "PU";
    k.words.name = english("Purchase");
    k.video = &Links::purchaseVideo;
    k.dispatched = false;
    k.tables.beside = {kMarks};
    k.words.title = "PURCHASE ENTRY";
    k.words.savedHead = "Purchase Entry Saved";
    k.words.savedHints = {english("Press New Entry Btn To Enter New Bill Entry")};
    k.words.rateHint = "F4 = Earlier Purchases :: F6 = Party Rates :: F7 = Purchase Rates";
    k.words.billDate = "B.Dt";
    k.numbering.runsOn = false;
    k.party = {.offered = underGroups("group_cd", {135, 87, 88}),
               .rate = "PUR_RATE",
               .discount = "0"};  // no master keeps one
    k.ledger.partySide = "C";
    k.ledger.goods = "X90001";
    k.ledger.cgst = "X90064";
    k.ledger.sgst = "X90065";
    k.ledger.igst = "X90066";
    k.paper.key = "";  // the paper is the supplier's
    k.paper.kind = "PURCH";
    k.paper.taxesByRate = "GSTTOTQRYPU";  // stands only where a template brought it along
    k.paper.hsn = false;
    k.returns = {};
  });
  return kind;
}

// What all notes are beside the bills that they are made against. No return lists them: it would count them
// among the bills, and the law has tables of their own for them.
void makeNote(VoucherKind& k) {
  k.adjusts.code = k.code;
  k.tables.beside = {kMarks, "ORIGINAL", "ORIGITM", kSettlements};
  k.screen = "GSTNOTE";
  k.words.savedHints = {english("Press Print Btn To Print The Note"),
                        english("Press New Entry Btn To Enter A New Note")};
  k.words.billDate = "";
  k.numbering.runsOn = true;
  k.dispatched = false;
  k.paper = saleKind().paper;
  k.returns = {};
}

const VoucherKind& creditNoteKind() {
  static const VoucherKind kind = derived(saleKind(), [](VoucherKind& k) {
    makeNote(k);
    k.entryType = k.paper.kind = "SALERET";
    k.code = "SR";
    k.words.title = "CREDIT NOTE ENTRY";
    k.words.savedHead = "Credit Note Saved";
    k.ledger.partySide = "C";
    k.paper.key = k.paper.title = "CREDIT NOTE";
    k.paper.dialog = "CREDIT NOTE PRINT";
    k.paper.stem = "MIRAV_CRN_";
    k.words.name = english("Credit Note");
    k.adjusts.quantity = english("Returned");
    k.adjusts.moves = english("GOODS COME BACK");
  });
  return kind;
}

const VoucherKind& debitNoteKind() {
  static const VoucherKind kind = derived(saleKind(), [](VoucherKind& k) {
    makeNote(k);
    k.entryType = k.paper.kind = "SALEDEB";
    k.code = "SD";
    k.words.title = "DEBIT NOTE ENTRY";
    k.words.savedHead = "Debit Note Saved";
    k.paper.key = k.paper.title = "DEBIT NOTE";
    k.paper.dialog = "DEBIT NOTE PRINT";
    k.paper.stem = "MIRAV_DBN_";
    k.words.name = english("Debit Note");
    k.adjusts.quantity = english("Added");
    k.adjusts.moves = english("GOODS GO OUT");
    k.adjusts.reason = 2;
  });
  return kind;
}

const VoucherKind& purchaseReturnKind() {
  static const VoucherKind kind = derived(purchaseKind(), [](VoucherKind& k) {
    makeNote(k);
    k.entryType = k.paper.kind = "PURCHRET";
    k.code = "PR";
    k.dispatched = true;
    k.words.title = "PURCHASE RETURN ENTRY";
    k.words.savedHead = "Purchase Return Saved";
    k.ledger.partySide = "D";
    k.paper.key = "PURCHRET";
    k.paper.title = "DEBIT NOTE";
    k.paper.dialog = "PURCHASE RETURN PRINT";
    k.paper.stem = "MIRAV_PRN_";
    k.words.name = english("Purchase Return");
    k.adjusts.quantity = english("Sent Back");
    k.adjusts.moves = english("GOODS GO OUT");
  });
  return kind;
}

const VoucherKind& challanKind() {
  static const VoucherKind kind = {
      .entryType = "CH",
      .code = "CH",
      .screen = "FRMCHLN",
      .words = {.title = "Sales Challan Entry",
                .name = english("Challan"),
                .adding = "{title} ADD MODE",
                .modifying = "{title} Modify MODE",
                .deleting = "{title} Delete MODE",
                .escapeAsks = "Do you want to exit",
                .saveOpens = "Save opens after Desti",
                .savedHead = "Sales Challan Entry Saved"},
      .tables = {.heads = "CHLN", .lines = "CHLNITM", .key = "BOOK_CD", .work = "T_CHLNITM", .serial = "SR_NO",
                 .beside = {kSources}},
      .numbering = {.number = "CHLN_NO", .series = "CHLN_TYP"},
      .party = {.offered = underGroups("group_cd", {85, 87, 88}),
                .rate = "SALE_RATE1",
                .discount = "SALE_DISC"},
      .ledger = {.partySide = "D", .goods = "X90002"},
      .paper = {.key = "CHLNPRN",
                .kind = "CH",
                .dialog = "CHALLAN PRINT",
                .behind = "DELIVERY CHALLAN ENTRY",
                .title = "DELIVERY CHALLAN",
                .design = "INVGEN",
                .family = "CHALLAN",
                .sheet = "D_C",
                .lineSheet = "CHLNSA",
                .stem = "MIRAV_CH_"},
  };
  return kind;
}

const VoucherKind& quotationKind(const std::string& entryType) {
  if (entryType == quotation().entryType) return quotation();
  static std::map<std::string, VoucherKind> proformas;
  const auto [found, fresh] = proformas.try_emplace(entryType, quotation());
  VoucherKind& kind = found->second;
  if (fresh) {
    kind.entryType = kind.code = entryType;
    kind.words.title = "PERFOMA INVOICE ";
  }
  return kind;
}

const VoucherKind& receiptKind() {
  static const VoucherKind kind = {
      .entryType = "RECEIPT",
      .code = "RC",
      .screen = "bwrcpy",
      .words = {.title = "RECEIPT ENTRY", .name = english("Receipt")},
      .tables = {.heads = "RPTPAY", .key = "BOOK_CD", .beside = {kSettlements}},
      .party = {.offered = underGroups("GROUP_CD", {85, 135}), .hasBills = true},
      .ledger = {.partySide = "C", .formerCode = "CM"},
  };
  return kind;
}

const VoucherKind& journalKind(std::string_view entryType) {
  static const VoucherKind kind = {
      .entryType = "JOURNAL",
      .code = "JV",
      .screen = "FRMJRNL",
      .words = {.title = "JOURNAL ENTRY",
                .name = english("Journal"),
                .adding = "{title} :::  ADD MODE",
                .modifying = "{title}  :::  MODIFY MODE",
                .deleting = "{title} :::  DELETE MODE",
                .printing = "{title}  :::  PRINT MODE ",
                .escapeAsks = "Do you want to Cancel and Exit",
                .saveOpens = "Save opens when the difference is 0",
                .savedHead = "Journal Entry Saved",
                .savedHints = {english("Press New Entry Btn To Enter New Voucher")}},
      .tables = {.heads = "JOURNAL", .lines = "JOURNITM", .key = "BOOK_CD", .work = "T_JOURNITM", .serial = "SR_NO"},
      .ledger = {.partySide = "D"},  // each line says its own side
  };
  return entryType == kind.entryType ? kind : contra();
}

// clang-format on

std::span<const VoucherKind* const> voucherKinds() {
  static const std::array all = {&saleKind(),
                                 &purchaseKind(),
                                 &creditNoteKind(),
                                 &debitNoteKind(),
                                 &purchaseReturnKind(),
                                 &challanKind(),
                                 &quotation(),
                                 &receiptKind(),
                                 &payment(),
                                 &income(),
                                 &expense(),
                                 &journalKind("JOURNAL"),
                                 &contra()};
  return all;
}

const VoucherKind* kindByEntryType(std::string_view entryType) {
  for (const VoucherKind* kind : voucherKinds())
    if (kind->entryType == entryType) return kind;
  return nullptr;
}

const VoucherKind* kindByBook(std::string_view book) {
  for (const VoucherKind* kind : voucherKinds())
    if (sameText(kind->book(), book)) return kind;
  return nullptr;
}

std::vector<const VoucherKind*> kindsPostedFrom(std::string_view heads) {
  std::vector<const VoucherKind*> kinds;
  for (const VoucherKind* kind : voucherKinds())
    if (kind->tables.heads == heads && !kind->ledger.partySide.empty()) kinds.push_back(kind);
  return kinds;
}

const VoucherKind& billKind(std::string_view entryType) {
  const VoucherKind* const kind = kindByEntryType(entryType);
  return kind && kind->screen == saleKind().screen ? *kind : saleKind();
}

const VoucherKind& moneyKind(std::string_view entryType) {
  const VoucherKind* const kind = kindByEntryType(entryType);
  return kind && kind->screen == receiptKind().screen ? *kind : receiptKind();
}

const VoucherKind& noteKind(std::string_view entryType) {
  const VoucherKind* const kind = kindByEntryType(entryType);
  return kind && kind->isNote() ? *kind : creditNoteKind();
}

const VoucherKind* noteOfPaper(std::string_view paperKind) {
  for (const VoucherKind* kind : voucherKinds())
    if (kind->isNote() && kind->paper.kind == paperKind) return kind;
  return nullptr;
}
