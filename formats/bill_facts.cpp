#include "formats/blocks.h"
#include "formats/facts.h"
#include "formats/sheet3.h"

namespace formats {

using std::to_string;

namespace {

constexpr char kSlotNo = 'G', kSlotRow = 'H', kSlotText = 'I', kSlotWhole = 'J';
const std::string kRowLimit = "700";

std::string slotCell(char column, int slot) {
  return std::string("CALC!$") + column + "$" + to_string(slot + 1);
}

}  // namespace

std::string Bill::slotRow(int slot) { return slotCell(kSlotRow, slot); }

std::string Bill::slotDescription(int slot) { return slotCell(kSlotText, slot); }

std::string Bill::figure(int slot, std::string_view field) {
  const auto column = "$" + sheet3::letters(sheet3::fieldColumn(field)) + "$";
  return "INDEX(SHEET3!" + column + "1:" + column + kRowLimit + "," + slotRow(slot) + ")";
}

std::string Bill::slot(int slot, std::string_view field) {
  return "IF(" + slotRow(slot) + "=0,\"\"," + figure(slot, field) + ")";
}

namespace {

// The first text when it stands, else the second.
std::string either(const std::string& a, const std::string& b) {
  return "IF(" + a + "=\"\"," + b + "," + a + ")";
}

std::string whole(const Slots& slots) { return to_string(slots.pages * slots.ofPage); }

std::string cut(const std::string& text, int letters) {
  return "IF(LEN(" + text + ")>" + to_string(letters) + ",LEFT(" + text + "," + to_string(letters - 1) +
         ")&\"…\"," + text + ")";
}

// What a slot says of its line: the item with its detail, in the second line where the first
// cannot hold both. A line of the category MISC is told by its own words.
std::string wholeDescription(int slot, const LineFields& fields) {
  const auto item = Bill::slot(slot, fields.item);
  const auto category = Bill::slot(slot, fields.category);
  const auto detail = Bill::slot(slot, fields.detail);
  const auto plain = "OR(" + detail + "=\"\"," + detail + "=\".\")";
  return "IF(" + Bill::slotRow(slot) + "=0,\"\",IF(" + plain + "," + item + "&\"\",IF(" + category +
         "=\"MISC\"," + detail + "," + item + "&\", \"&" + detail + ")))";
}

std::string description(int slot, const std::string& whole, const Slots& slots, const LineFields& fields) {
  if (!slots.twoLines) return cut(whole, slots.letters);
  const auto item = Bill::slot(slot, fields.item), letters = to_string(slots.letters);
  const auto rest = "MID(" + whole + ",LEN(" + item + ")+3,300)";
  // Words do not break where a line is full.
  constexpr int kLost = 6;
  return "IF(LEN(" + whole + ")<=" + letters + "," + whole + ",IF(AND(LEN(" + item + ")<=" + letters +
         ",LEFT(" + whole + ",LEN(" + item + ")+1)=" + item + "&\",\")," + item + "&CHAR(10)&" +
         cut(rest, slots.letters) + "," + cut(whole, 2 * slots.letters - kLost) + "))";
}

// The slots in order: which row of the data sheet each shows, and its description.
void addSlots(Facts& facts, const Slots& slots, const LineFields& fields, const std::string& ordinary,
              const std::string& lines) {
  auto& sheet = facts.sheet();
  const Style head{.bold = true};
  sheet.text({1, kSlotNo}, head, "Slot");
  sheet.text({1, kSlotRow}, head, "Row");
  sheet.text({1, kSlotText}, head, "Description");
  for (int slot = 1; slot <= slots.pages * slots.ofPage; ++slot) {
    const int row = slot + 1;
    const auto no = "$G" + to_string(row), words = "$J" + to_string(row);
    sheet.number({row, kSlotNo}, {}, slot);
    sheet.formula({row, kSlotRow}, {},
                  "IF(" + no + "<=" + ordinary + "," + to_string(sheet3::kFirstLine - 1) + "+" + no + ",IF(" +
                      no + "<=" + lines + "," + to_string(sheet3::kFirstMisc - 1) + "+" + no + "-" +
                      ordinary + ",0))");
    sheet.formula({row, kSlotWhole}, {}, wholeDescription(slot, fields));
    sheet.formula({row, kSlotText}, {}, description(slot, words, slots, fields));
  }
}

// Of all lines, those without a slot too, as they stand in the blocks of the data sheet.
std::string ofLines(std::string_view field) {
  const int column = sheet3::fieldColumn(field);
  return sheet3::span(8, 1007, column);
}

}  // namespace

namespace {

// From the first blank behind such a part of a text: where its next line begins.
std::string breakBehind(const std::string& text, int part, int of) {
  const auto from = "MAX(1,INT(LEN(" + text + ")*" + to_string(part) + "/" + to_string(of) + "))";
  return "IFERROR(FIND(\" \"," + text + "," + from + "),LEN(" + text + "))";
}

// The name and the address of a party in four lines. What is too long to be read in its own
// line is shared out evenly.
void shareOut(Facts& facts, Party& party) {
  constexpr const char *kLongName = "42", *kLongLine = "46";
  const auto name = party.name, address = party.address;
  const auto longName = facts.add("long name", "LEN(" + name + ")>" + kLongName);
  const auto longest = "MAX(LEN(" + party.line1 + "),LEN(" + party.line2 + "),LEN(" + party.line3 + "))";
  const auto longLine = facts.add("long line", "OR(" + longName + "," + longest + ">" + kLongLine + ")");
  const auto half = facts.add("half of the name", breakBehind(name, 1, 2));
  const auto first = facts.add("first break", "IF(" + longName + "," + breakBehind(address, 1, 2) + "," +
                                                  breakBehind(address, 1, 3) + ")");
  const auto second = facts.add(
      "second break", "IF(" + longName + ",LEN(" + address + ")," + breakBehind(address, 2, 3) + ")");
  const auto line1 = facts.add("part 1", "LEFT(" + address + "," + first + ")");
  const auto line2 = facts.add("part 2", "MID(" + address + "," + first + "+1," + second + "-" + first + ")");
  const auto line3 = facts.add("part 3", "MID(" + address + "," + second + "+1,300)");
  const auto shared = [&](const std::string& whenName, const std::string& whenLine, const std::string& own) {
    return "IF(" + longName + "," + whenName + ",IF(" + longLine + "," + whenLine + "," + own + "))";
  };
  party.name = facts.add("shown name", shared("LEFT(" + name + "," + half + ")", name, name));
  const auto own1 = party.line1, own2 = party.line2, own3 = party.line3;
  party.line1 = facts.add("shown line 1", shared("MID(" + name + "," + half + "+1,100)", line1, own1));
  party.line2 = facts.add("shown line 2", shared(line1, line2, own2));
  party.line3 = facts.add("shown line 3", shared(line2, line3, own3));
}

}  // namespace

Party partyFacts(Facts& facts, const FieldOf& at, bool consignee) {
  const auto consigned = facts.add("Consignee", shown(at("ACCOUNT_1.ACC_NAME")));
  const auto of = [&](const std::string& name, const std::string& field) {
    const auto own = shown(at("ACCOUNT." + field));
    if (!consignee) return facts.add("Buyer: " + name, own);
    return facts.add("Ship to: " + name,
                     "IF(" + consigned + "=\"\"," + own + "," + shown(at("ACCOUNT_1." + field)) + ")");
  };
  Party p;
  p.name = of("name", "ACC_NAME");
  const auto area = of("area", "AREA"), city = of("city", "CITY"), pin = of("pin", "PINCODE");
  const auto areaCity = facts.add("area, city", joined(area, ", ", city));
  const auto place = facts.add("place", joined(areaCity, " - ", pin));
  const auto first = of("address 1", "ADD1"), second = of("address 2", "ADD2");
  p.line1 = facts.add("line 1", either(first, either(second, place)));
  p.line2 = facts.add("line 2", "IF(" + first + "=\"\",IF(" + second + "=\"\",\"\"," + place + ")," +
                                    either(second, place) + ")");
  p.line3 = facts.add("line 3", "IF(OR(" + first + "=\"\"," + second + "=\"\"),\"\"," + place + ")");
  const auto streets = facts.add("lines 1, 2", joined(p.line1, ", ", p.line2));
  p.address = facts.add("address", joined(streets, ", ", p.line3));
  p.wholeName = p.name;
  shareOut(facts, p);
  p.state = facts.state("state", facts.add("state code", "IFERROR(VALUE(" + of("code", "STATECD") + "),0)"));
  p.gstin = of("GSTIN", "GSTINNO");
  p.registration = "\"GSTIN : \"&IF(" + p.gstin + "=\"\",\"Unregistered\"," + p.gstin + ")";
  const auto person = of("person", "PERSON_NM"), phone = of("phone", "PHONE1");
  p.contact = facts.add("contact", joined(person, ", ", phone));
  return p;
}

void slotFacts(Facts& facts, Bill& bill, const Slots& slots, const LineFields& fields,
               const std::string& ordinary, const std::string& misc) {
  bill.lines = facts.add("Lines", ordinary + "+" + misc);
  bill.pages = facts.add("Pages", "MAX(1,MIN(" + to_string(slots.pages) + ",INT((" + bill.lines + "+" +
                                      to_string(slots.ofPage - 1) + ")/" + to_string(slots.ofPage) + ")))");
  bill.unprinted = facts.add("Lines without a slot", "MAX(0," + bill.lines + "-" + whole(slots) + ")");
  bill.totalLabel = facts.add("Total label", "IF(" + bill.unprinted + ">0," + bill.unprinted +
                                                 "&\" more lines not shown.  Total\",\"Total\")");
  addSlots(facts, slots, fields, ordinary, bill.lines);
}

namespace {

// The fields of the bill's first line, which all its lines repeat.
struct FirstLine {
  Facts& facts;
  std::string row;

  std::string at(std::string_view field) const {
    const auto column = "$" + sheet3::letters(sheet3::fieldColumn(field)) + "$";
    return "INDEX(SHEET3!" + column + "1:" + column + "508," + row + ")";
  }
  std::string raw(const char* name, std::string_view field) const { return facts.add(name, at(field)); }
  std::string text(const char* name, std::string_view field) const {
    return facts.add(name, shown(at(field)));
  }
};

void numberFacts(const FirstLine& from, Bill& bill) {
  bill.number = from.text("Bill number", "SALE.BILL_NO");
  bill.date = from.raw("Date", "SALE.VOUCH_DT");
  bill.type = from.text("Bill type", "SALE.BL_TYPE");
  const auto note = from.facts.add("Note", sheet3::cell(1, 12) + "&\"\"");
  const auto noted = [&](const char* name, const std::string& of, const std::string& otherwise) {
    return from.facts.add(name, "IF(" + note + "=\"\"," + otherwise + "," + of + ")");
  };
  const auto given = [&](const char* name, int column, const std::string& otherwise) {
    const auto cell = sheet3::cell(1, column) + "&\"\"";
    return from.facts.add(name, "IF(" + cell + "=\"\"," + otherwise + "," + cell + ")");
  };
  bill.reverse = given("Reverse charge", 31, bill.reverse);
  bill.title = noted("Title", note, given("Bill's title", 29, bill.title));
  bill.numberLabel = noted("Number's label", "\"Note No\"", bill.numberLabel);
  bill.orderLabel = noted("Order's label", "\"Against Bill\"", bill.orderLabel);
  bill.challanLabel = noted("Challan's label", "\"Reason\"", bill.challanLabel);
  bill.netLabel = noted("Amount's label", "\"Note Amount\"", bill.netLabel);
  // What the law asks to be said takes the place of the declaration.
  const auto declared =
      noted("Declaration", quoted(kOfNote), given("Bill's declaration", 30, quoted(kDeclaration)));
  bill.endorsement = sheet3::cell(1, 33) + "&\"\"";
  bill.declaration = given("Endorsement", 33, declared);
  bill.challan =
      noted("Challan or reason", sheet3::cell(1, 14) + "&\"\"", from.text("Challan", "SALE.CHLN_NO"));
  bill.order = noted("Order or bills", sheet3::cell(1, 13) + "&\"\"", from.text("Order", "SALE.ORDER_NO"));
  bill.transport = from.text("Transport", "SALE.TRANSPORT");
  bill.lrNumber = from.text("L.R. number", "SALE.GR_NO");
  bill.lrDate =
      from.facts.add("L.R. date", "IF(" + bill.lrNumber + "=\"\",\"\"," + from.at("SALE.GR_DATE") + ")");
  bill.destination = from.text("Destination", "SALE.DESTI");
  bill.parcels = from.text("Parcels", "SALE.PARCLE");
  bill.transporterId = from.text("Transporter's GSTIN", "TRANS_GOV_ID");
  bill.transporterPhone = from.text("Transporter's phone", "TPHONE1");
  const auto area = from.text("Transporter's area", "TAREA"), city = from.text("Transporter's city", "TCITY");
  bill.transporterPlace = from.facts.add("Transporter's place", joined(area, ", ", city));
}

void amountFacts(const FirstLine& from, Bill& bill) {
  bill.quantity = from.raw("Quantity", "SALE.NO_OF_ITEM");
  const auto charge = [&](const char* name, int column) {
    return from.facts.add(name, "N(" + sheet3::cell(1, column) + ")");
  };
  bill.discount = charge("Discount", 35);
  bill.packing = charge("Packing", 36);
  bill.freightCharge = charge("Freight charge", 37);
  bill.otherCharges = charge("Other charges", 38);
  bill.goods = from.raw("Goods", "SALE.ITEM_AMT");
  bill.taxable = from.facts.add("Taxable value", bill.goods + "-" + bill.discount + "+" + bill.packing + "+" +
                                                     bill.freightCharge + "+" + bill.otherCharges);
  bill.cgst = from.raw("CGST", "SALE.TCGSTRT");
  bill.sgst = from.raw("SGST", "SALE.TSGSTRT");
  bill.igst = from.raw("IGST", "SALE.TIGSTRT");
  bill.tax = from.facts.add("Tax", bill.cgst + "+" + bill.sgst + "+" + bill.igst);
  bill.beforeRounding = from.facts.add("Before rounding", bill.taxable + "+" + bill.tax);
  const auto listed =
      from.facts.add("Taxable value of the lines",
                     "SUM(" + ofLines("SALEITM.AMOUNT") + ")+SUM(" + ofLines("SALEITM.DISC4") + ")");
  bill.totalLabel = from.facts.add("Total label of a bill",
                                   "IF(AND(" + bill.unprinted + "=0,ABS(" + listed + "-" + bill.taxable +
                                       ")>0.004),\"With lines not shown.  Total\"," + bill.totalLabel + ")");
  bill.roundOff = from.raw("Round off", "SALE.ROUND_OFF");
  bill.net = from.raw("Bill amount", "SALE.NET_AMT");
  const auto words = [&](const char* name, int row2, int column) {
    const auto cell = sheet3::cell(row2, column);
    return from.facts.add(name, "IF(" + cell + "=\"..\",\"NIL\"," + cell + "&\"\")");
  };
  bill.netWords = words("Amount in words", 2, 6);
  const auto taxWords = words("Tax in words", 2, 10), currency = sheet3::cell(1, 34) + "&\"\"";
  bill.taxWords = from.facts.add("Tax and currency", joined(taxWords, "     ", currency));
}

}  // namespace

Bill billFacts(Facts& facts, const Slots& slots) {
  Bill bill;
  const int serial = sheet3::fieldColumn("SALEITM.SR_NO");
  const auto ordinary = facts.add("Ordinary lines", "COUNT(" + sheet3::span(8, 507, serial) + ")");
  const auto misc = facts.add("Other lines", "COUNT(" + sheet3::span(508, 1007, serial) + ")");
  slotFacts(facts, bill, slots, {}, ordinary, misc);
  const auto row = facts.add("First line", "IF(" + ordinary + ">0,8,508)");

  const FirstLine from{facts, row};
  const auto at = [&](std::string_view field) { return from.at(field); };
  bill.buyer = partyFacts(facts, at, false);
  const auto consigned = facts.add("Consignee", shown(at("ACCOUNT_1.ACC_NAME")));
  bill.consignee = partyFacts(facts, at, true);
  bill.deliveredTo = facts.add("Delivered to", "IF(" + consigned + "=\"\",\"\"," + consigned + "&\", \"&" +
                                                   bill.consignee.address + ")");

  numberFacts(from, bill);
  bill.freight = from.text("Freight", "SALE.FREIGHT");
  const auto days = from.raw("Credit days", "SALE.CR_DAYS");
  bill.dueDate = facts.add("Due date", "IF(" + days + "=0,\"\"," + bill.date + "+" + days + ")");
  const auto place = facts.add("Place's code", "IFERROR(VALUE(" + sheet3::cell(1, 32) + "),0)");
  const auto placed = facts.state("Place by code", place);
  bill.placeOfSupply =
      facts.add("Place of supply", "IF(" + place + "=0," + bill.buyer.state + "," + placed + ")");
  bill.narration = from.text("Narration", "SALE.NARRATION");
  bill.irn = from.text("IRN", "SALE.IRNNO");
  amountFacts(from, bill);
  return bill;
}

}  // namespace formats
