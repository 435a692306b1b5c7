#include "invoice_fixture.h"

#include "platform/qt/paint_qt.h"
#include "store/templates.h"

namespace {

void masters() {
  data().exec("DELETE FROM COMP_DET");
  data().exec(
      "INSERT INTO COMP_DET (ADDRS, PH1, PH2, AD1, AD2, AREA, CITY, C_BANK_NAME, C_BRNCH, C_IFSC, C_AC_NO,"
      " C_EMAIL, GSTINNO, STATE, STATECD, CPIN, COMPNM)"
      " VALUES ('12, ASHRAM ROAD', '079-26580001', '9825012345', '.', '.', '.', 'AHMEDABAD',"
      " 'STATE BANK OF INDIA', 'NAVRANGPURA', '', '30012345678', 'ganesh@example.com', '24ABCDE1234F1Z5',"
      " 'GUJARAT', '24', '380009', 'SHREE GANESH TRADERS')");
  const char* const account =
      "INSERT INTO ACCOUNT (GROUP_CD, ACC_CD, ACC_NAME, PERSON_NM, ADD1, ADD2, AREA, CITY, PINCODE, PHONE1,"
      " GSTINNO, STATECD, BANK_NAME)"
      " VALUES (85, ?, ?, 'R PATEL', 'PLOT 14', '.', 'UDHNA', ?, '394210', '9898055555', ?, ?, '.')";
  data().exec(account, "A00001", "RAJESH & SONS", "SURAT", "24AAACR5055K1Z7", 24);
  data().exec(account, "A00002", "MEHTA BROTHERS", "MUMBAI", "27AAACM1234K1Z1", 27);
  data().exec("INSERT INTO DEPTMENT (DEPT_CD, DEPT_NAME) VALUES ('E010', 'GENERAL')");
  const char* const item =
      "INSERT INTO ITEM (ITEM_CD, ITEM_NAME, ITEM_SNAME, DEPT_CD, UOM, HSNCODE, RATEOFTAX)"
      " VALUES (?, ?, '.', ?, 'PCS', ?, ?)";
  data().exec(item, "I0000001", "COTTON SHIRT", "E010", "62052000", 5);
  data().exec(item, "I0000002", "STEEL BOTTLE", "E010", "73239390", 18);
  data().exec(item, "I0000003", "LOOSE ITEM", Value(), "48202000", 12);
  data().exec(
      "INSERT INTO TRANSMAST (TRANS_ID, TRANSNAME, TADD1, TADD2, TAREA, TCITY, TPHONE1, TPHONE2)"
      " VALUES (1, 'VRL LOGISTICS', 'RING ROAD', '.', 'UDHNA', 'SURAT', '0261-1', '0261-2')");
}

struct Printer : paint::Painter {
  explicit Printer(std::filesystem::path file) : printed(std::move(file)) {}
  const paint::Metrics& metrics() const override { return real->metrics(); }
  std::unique_ptr<paint::Canvas> pdf(const std::string& path) override { return real->pdf(path); }
  std::unique_ptr<paint::Canvas> image(const std::string& path, double dpi) override {
    return real->image(path, dpi);
  }
  std::unique_ptr<paint::Canvas> printer() override {
    if (printed.empty()) throw paint::PaintError("There is no printer.");
    return real->pdf(printed.string());
  }
  std::unique_ptr<paint::Painter> real = paint::makePainter();
  std::filesystem::path printed;
};

}  // namespace

InvoiceTest::InvoiceTest() {
  static const TempFolder made;
  if (!std::filesystem::exists(made / "M00126.mdb")) {
    makeCompanyDatabase(made / "M00126.mdb");
    formats::writeAll((made / "FORMATS").string());
  }
  std::filesystem::copy(made.path(), folder.path(), std::filesystem::copy_options::recursive);
  Session& s = session();
  s = Session();
  s.mapppath = folder.path().string();
  s.mcompname = "SHREE GANESH TRADERS";
  s.mbillformat = 1;
  s.cndata = std::make_unique<Database>();
  s.cndata->open(folder / "M00126.mdb");
  masters();
}

InvoiceTest::~InvoiceTest() { session() = Session(); }

void InvoiceTest::bill(double number, const std::vector<Line>& lines, const std::string& party,
                       const std::string& shipTo) {
  double taxable = 0, cgst = 0, igst = 0, quantity = 0;
  int serial = 0;
  for (const auto& line : lines) {
    ++serial;
    data().exec(
        "INSERT INTO SALEITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE,"
        " SALE_DISC, SALE_DISC1, AMOUNT, NET_AMOUNT, DESC1, ITEM_DESC, CGSTRT, SGSTRT, IGSTRT,"
        " CGSTAMT, SGSTAMT, IGSTAMT, DISC3, DISC4)"
        " VALUES (?, '2026-06-15', 'SA', ?, ?, 'PCS', ?, ?, ?, 0, ?, ?, '0', ?, ?, ?, ?, ?, ?, ?, 0, 0)",
        number, serial, line.item, line.quantity, line.rate, line.discount, line.amount,
        line.amount + 2 * line.cgst + line.igst, line.detail, line.cgstRate, line.cgstRate, line.igstRate,
        line.cgst, line.cgst, line.igst);
    taxable += line.amount;
    cgst += line.cgst;
    igst += line.igst;
    quantity += line.quantity;
  }
  const double total = taxable + 2 * cgst + igst;
  const double net = Round(total, 0);
  data().exec(
      "INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BL_TYPE, BILL_NO, BOOK_CD, CHLN_NO, ORDER_NO, ORDER_DT,"
      " PARTY_CD, SALE_CD, CASH_CD, ITEM_AMT, ROUND_OFF, NET_AMT, NARRATION, PARCLE, NO_OF_ITEM, CR_DAYS,"
      " GR_NO, GR_DATE, TRANSPORT, DESTI, TRANS_CD, TCGSTRT, TSGSTRT, TIGSTRT, CUR_TOTAMT, GSTPOST,"
      " IRNNO, EINVNO, DESPATCH_FROM)"
      " VALUES (?, '2026-06-15', 'TAX', ?, 'SA', ?, 'PO/7', '15/Jun/2026', ?, 'X90002', ?, ?, ?, ?,"
      " 'GOODS ONCE SOLD', '4 CARTONS', ?, 30, 'LR-4471', '2026-06-16', 'VRL LOGISTICS', 'SURAT', 1,"
      " ?, ?, ?, 0, 1, '.', '.', 'X90002')",
      number, "00" + numText(number), numText(number), party, shipTo, Round(taxable, 2),
      Round(net - total, 2), net, quantity, Round(cgst, 2), Round(cgst, 2), Round(igst, 2));
}

void InvoiceTest::longBill(double number, int lines) {
  bill(number, std::vector<Line>(static_cast<size_t>(lines), {"I0000002", 1, 100, 0, 100, 9, 0, 9, 0}));
}

PaperHost::PaperHost(const Screens& screens, const std::filesystem::path& printed)
    : TestHost(screens), printer_(std::make_unique<Printer>(printed)) {}
