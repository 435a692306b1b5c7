#include "formats/paper_facts.h"

#include "formats/sheet3.h"

namespace formats {

namespace {

constexpr int kLastLine = sheet3::kFirstMisc - 1;

std::string first(const std::string& field) {
  return sheet3::cell(sheet3::kFirstLine, sheet3::fieldColumn(field));
}

std::string ofLines(const std::string& field) {
  return sheet3::span(sheet3::kFirstLine, kLastLine, sheet3::fieldColumn(field));
}

std::string counted(Facts& facts, const std::string& serial) {
  return facts.add("All lines", "COUNT(" + ofLines(serial) + ")");
}

// Fields of the party; none of these papers goes to another consignee.
FieldOf partyOf(const std::string& table) {
  return [=](std::string_view field) {
    const auto dot = field.find('.');
    return field.substr(0, dot) == "ACCOUNT" ? first(table + std::string(field.substr(dot))) : quoted("");
  };
}

std::string words(Facts& facts, int row, int column) {
  const auto cell = sheet3::cell(row, column);
  return facts.add("Amount in words", "IF(" + cell + "=\"..\",\"\"," + cell + "&\"\")");
}

}  // namespace

std::string stacked(Facts& facts, const std::string& name, const std::vector<std::string>& lines) {
  std::string all = quoted("");
  for (const auto& line : lines) {
    const auto own = facts.add(name, line);
    all = facts.add(name, all + "&IF(AND(" + all + "<>\"\"," + own + "<>\"\"),CHAR(10),\"\")&" + own);
  }
  return all;
}

std::string ofQuotation(std::string_view field) { return first("QUOTPRN:" + std::string(field)); }
std::string ofChallan(std::string_view field) { return first("CHLNPRN:" + std::string(field)); }

std::string lineNumber(int slot, std::string_view field) {
  return "IFERROR(VALUE(" + Bill::figure(slot, field) + "),0)";
}

Bill quotationFacts(Facts& facts, const Slots& slots) {
  Bill bill;
  slotFacts(facts, bill, slots,
            {
                .serial = "QUOTPRN:QUOTITM.SRNO",
                .item = "QUOTPRN:QUOTITM.ITEM_NAME",
                .detail = "QUOTPRN:QUOTITM.ITEM_DESC",
                .category = "QUOTPRN:DEPTMENT.DEPT_NAME",
            },
            counted(facts, "QUOTPRN:QUOTITM.SRNO"), "0");
  bill.buyer = partyFacts(facts, partyOf("QUOTPRN:ACCOUNT"), false);
  bill.number = facts.add("Number", shown(ofQuotation("QUOT.VOUCH_NO")));
  bill.date = facts.add("Date", ofQuotation("QUOT.VOUCH_DT"));
  bill.placeOfSupply = bill.buyer.state;
  const auto number = [&](const char* name, const char* field) {
    return facts.add(name, "N(" + ofQuotation(field) + ")");
  };
  bill.quantity = number("Quantity", "QUOT.TOTQTY");
  bill.taxable = facts.add("Taxable value", "SUM(" + ofLines("QUOTPRN:QUOTITM.ASSIVAL") + ")");
  bill.cgst = number("CGST", "QUOT.TCGST");
  bill.sgst = number("SGST", "QUOT.TSGST");
  bill.igst = number("IGST", "QUOT.TIGST");
  bill.tax = facts.add("Tax", bill.cgst + "+" + bill.sgst + "+" + bill.igst);
  bill.net = number("Total", "QUOT.NET_AMT");
  bill.beforeRounding = number("Before rounding", "QUOT.ITEM_AMT");
  bill.roundOff = facts.add("Round off", "ROUND(" + bill.net + "-" + bill.taxable + "-" + bill.tax + ",2)");
  bill.netWords = words(facts, 2, 6);
  bill.netLabel = quoted("Grand Total");
  return bill;
}

CompanyCells companyOfChallan() {
  // All fields of the company with their names above, in whatever order they are stored.
  const auto named = [](const char* name) {
    return std::string("IFERROR(INDEX(SHEET3!$A$4:$CZ$4,MATCH(\"") + name +
           "\",SHEET3!$A$3:$CZ$3,0)),\"\")&\"\"";
  };
  return {
      .name = sheet3::cell(1, 3),
      .address = named("ADDRS"),
      .phone1 = named("PH1"),
      .phone2 = named("PH2"),
      .mail = named("C_EMAIL"),
      .gstin = named("GSTINNO"),
      .stateCode = named("STATECD"),
      .state = named("STATE"),
      .bank = named("C_BANK_NAME"),
      .branch = named("C_BRNCH"),
      .ifsc = named("C_IFSC"),
      .account = named("C_AC_NO"),
      .city = named("CITY"),
  };
}

Bill challanFacts(Facts& facts, const Slots& slots) {
  Bill bill;
  slotFacts(facts, bill, slots,
            {
                .serial = "CHLNPRN:CHLNITM.SR_NO",
                .item = "CHLNPRN:ITEM.ITEM_NAME",
                .detail = "CHLNPRN:CHLNITM.ITEM_DESC",
                .category = "CHLNPRN:CHLNITM.ITEM_CD",
            },
            counted(facts, "CHLNPRN:CHLNITM.SR_NO"), "0");
  const auto text = [&](const char* name, const char* field) {
    return facts.add(name, shown(ofChallan(field)));
  };
  bill.buyer = partyFacts(facts, partyOf("CHLNPRN:ACCOUNT"), false);
  const auto type = text("Type", "CHLN.CHLN_TYP"), number = text("Number", "CHLN.CHLN_NO");
  bill.number = facts.add("Number of the type", joined(type, " / ", number));
  bill.date = facts.add("Date", ofChallan("CHLN.VOUCH_DT"));
  bill.order = text("Order", "CHLN.ORDER_NO");
  bill.transport = text("Transport", "CHLN.TRANSPORT");
  bill.lrNumber = text("L.R. number", "CHLN.GR_NO");
  bill.lrDate =
      facts.add("L.R. date", "IF(" + bill.lrNumber + "=\"\",\"\"," + ofChallan("CHLN.GR_DATE") + ")");
  bill.destination = text("Destination", "CHLN.DESTI");
  bill.narration = text("Remarks", "CHLN.NARRATION");
  bill.placeOfSupply = bill.buyer.state;
  bill.quantity = facts.add("Quantity", "SUM(" + ofLines("CHLNPRN:CHLNITM.QUANTITY") + ")");
  bill.taxable = facts.add("Taxable value", "SUM(" + ofLines("CHLNPRN:CHLNITM.NET_AMOUNT") + ")");
  bill.net = facts.add("Net", "N(" + ofChallan("CHLN.NET_AMT") + ")");
  bill.netWords = words(facts, 1, 10);
  return bill;
}

CompanyCells companyOfSlip() {
  using sheet3::cell;
  return {
      .name = cell(1, 3),
      .address = cell(3, 1),
      .phone1 = cell(3, 3),
      .phone2 = cell(3, 5),
      .mail = cell(3, 17),
      .gstin = cell(1, 27),
      .stateCode = cell(1, 29),
      .state = cell(1, 28),
      .bank = cell(3, 13),
      .branch = cell(3, 14),
      .ifsc = cell(3, 15),
      .account = cell(3, 16),
      .city = {},
  };
}

Bill slipFacts(Facts& facts, const Slots& slots) {
  Bill bill;
  slotFacts(facts, bill, slots,
            {
                .serial = "BLPRN:SALEITM.SR_NO",
                .item = "BLPRN:ITEM.ITEM_NAME",
                .detail = "BLPRN:SALEITM.ITEM_DESC",
                .category = "BLPRN:DEPTMENT.DEPT_NAME",
            },
            counted(facts, "BLPRN:SALEITM.SR_NO"), "0");
  const auto text = [&](const char* name, const char* field) {
    return facts.add(name, shown(first(std::string("BLPRN:") + field)));
  };
  bill.buyer = partyFacts(facts, partyOf("BLPRN:BUYER"), false);
  bill.number = text("Number", "SALE.BILL_NO");
  bill.date = facts.add("Date", first("BLPRN:SALE.VOUCH_DT"));
  bill.order = text("Order", "SALE.ORDER_NO");
  bill.transport = text("Transport", "SALE.TRANSPORT");
  bill.lrNumber = text("L.R. number", "SALE.GR_NO");
  bill.lrDate =
      facts.add("L.R. date", "IF(" + bill.lrNumber + "=\"\",\"\"," + first("BLPRN:SALE.GR_DATE") + ")");
  bill.destination = text("Destination", "SALE.DESTI");
  bill.narration = text("Remarks", "SALE.NARRATION");
  bill.placeOfSupply = bill.buyer.state;
  bill.quantity = facts.add("Quantity", "SUM(" + ofLines("BLPRN:SALEITM.QUANTITY") + ")");
  bill.taxable = facts.add("Taxable value", "SUM(" + ofLines("BLPRN:SALEITM.AMOUNT") + ")");
  bill.otherCharges = facts.add("Charges", "SUM(" + ofLines("BLPRN:SALEITM.DISC4") + ")");
  bill.net = facts.add("Net", "N(" + first("BLPRN:SALE.NET_AMT") + ")");
  bill.netWords = words(facts, 2, 6);
  return bill;
}

}  // namespace formats
