#include "formats/facts.h"

#include <array>

#include "formats/sheet3.h"

namespace formats {

using std::to_string;

namespace {

struct State {
  int code;
  const char* name;
};

// State codes of GST registration numbers.
constexpr std::array kStates = {
    State{1,  "Jammu and Kashmir"                       },
    State{2,  "Himachal Pradesh"                        },
    State{3,  "Punjab"                                  },
    State{4,  "Chandigarh"                              },
    State{5,  "Uttarakhand"                             },
    State{6,  "Haryana"                                 },
    State{7,  "Delhi"                                   },
    State{8,  "Rajasthan"                               },
    State{9,  "Uttar Pradesh"                           },
    State{10, "Bihar"                                   },
    State{11, "Sikkim"                                  },
    State{12, "Arunachal Pradesh"                       },
    State{13, "Nagaland"                                },
    State{14, "Manipur"                                 },
    State{15, "Mizoram"                                 },
    State{16, "Tripura"                                 },
    State{17, "Meghalaya"                               },
    State{18, "Assam"                                   },
    State{19, "West Bengal"                             },
    State{20, "Jharkhand"                               },
    State{21, "Odisha"                                  },
    State{22, "Chhattisgarh"                            },
    State{23, "Madhya Pradesh"                          },
    State{24, "Gujarat"                                 },
    State{25, "Daman and Diu"                           },
    State{26, "Dadra and Nagar Haveli and Daman and Diu"},
    State{27, "Maharashtra"                             },
    State{28, "Andhra Pradesh"                          },
    State{29, "Karnataka"                               },
    State{30, "Goa"                                     },
    State{31, "Lakshadweep"                             },
    State{32, "Kerala"                                  },
    State{33, "Tamil Nadu"                              },
    State{34, "Puducherry"                              },
    State{35, "Andaman and Nicobar Islands"             },
    State{36, "Telangana"                               },
    State{37, "Andhra Pradesh"                          },
    State{38, "Ladakh"                                  },
    State{96, "Foreign Country"                         },
    State{97, "Other Territory"                         },
};

constexpr char kSlotNo = 'G', kSlotRow = 'H', kSlotText = 'I', kSlotWhole = 'J';
const std::string kRowLimit = "700";

std::string calc(char column, int row) { return std::string("CALC!$") + column + "$" + to_string(row); }

}  // namespace

Facts::Facts(Book& book) : sheet_(book.sheet("CALC")) {
  sheet_.width('A', 120);
  sheet_.width('B', 220);
  sheet_.width('E', 160);
  sheet_.width('I', 160);
  const Style head{.bold = true};
  sheet_.text({1, 'D'}, head, "State code");
  sheet_.text({1, 'E'}, head, "State");
  int row = 2;
  for (const auto& state : kStates) {
    sheet_.number({row, 'D'}, {}, state.code);
    sheet_.text({row, 'E'}, {}, state.name);
    ++row;
  }
  sheet_.hide();
}

std::string Facts::add(std::string_view name, const std::string& formula) {
  sheet_.text({row_, 'A'}, {.colour = kQuiet}, name);
  sheet_.formula({row_, 'B'}, {}, formula);
  return calc('B', row_++);
}

std::string Facts::state(std::string_view name, const std::string& code) {
  const auto table = "$D$2:$E$" + to_string(1 + kStates.size());
  return add(name, "IF(" + code + "=0,\"\",IFERROR(VLOOKUP(" + code + "," + table +
                       ",2,FALSE)&\" (\",\"(\")&TEXT(" + code + ",\"00\")&\")\")");
}

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string shown(const std::string& x) {
  return "IF(OR(" + x + "=\"\"," + x + "=\".\"," + x + "=\"0\"),\"\"," + x + ")";
}

std::string joined(const std::string& a, const std::string& separator, const std::string& b) {
  return a + "&IF(AND(" + a + "<>\"\"," + b + "<>\"\")," + quoted(separator) + ",\"\")&" + b;
}

std::string labelled(const std::string& label, const std::string& text) {
  return "IF(" + text + "=\"\",\"\"," + quoted(label) + "&" + text + ")";
}

std::string amount(const std::string& x) {
  return "IF(" + x + "=\"\",\"\",IF(ROUND(" + x + ",2)=0,\"\"," + x + "))";
}

Company companyFacts(Facts& facts) {
  const auto field = [&](const char* name, int row, int column) {
    return facts.add(name, shown(sheet3::cell(row, column)));
  };
  Company company;
  company.name = field("Company", 1, 3);
  const auto street = field("Address", 3, 1);
  const auto phone1 = field("Phone 1", 3, 3);
  const auto phone2 = field("Phone 2", 3, 5);
  const auto mail = field("E-mail", 4, 20);
  const auto phones = facts.add("Phones", joined(phone1, ", ", phone2));
  const auto phone = facts.add("Phone line", labelled("Phone : ", phones));
  const auto mailLine = facts.add("E-mail line", labelled("E-mail : ", mail));
  company.contact = facts.add("Contact", joined(phone, "     ", mailLine));
  company.gstin = field("Company GSTIN", 4, 24);
  company.pan =
      facts.add("Company PAN", "IF(LEN(" + company.gstin + ")=15,MID(" + company.gstin + ",3,10),\"\")");
  const auto code = facts.add("Company state code", "IFERROR(VALUE(" + sheet3::cell(4, 26) + "),0)");
  const auto byCode = facts.state("State by code", code);
  const auto named = field("Company state", 4, 9);
  company.state = facts.add("State line", "IF(" + byCode + "=\"\"," + named + "," + byCode + ")");
  company.city = field("Company city", 4, 28);
  company.address = facts.add("Address, city", joined(street, ", ", company.city));
  const auto bankName = field("Bank", 4, 16);
  const auto branch = field("Branch", 4, 17);
  const auto branchLine = facts.add("Branch line", labelled("Branch : ", branch));
  company.bank = facts.add("Bank line", joined(bankName, ",  ", branchLine));
  const auto ifsc = field("IFSC", 4, 18);
  const auto number = field("Account number", 4, 19);
  const auto numberLine = facts.add("A/c line", labelled("A/c No : ", number));
  const auto ifscLine = facts.add("IFSC line", labelled("IFSC : ", ifsc));
  company.account = facts.add("Account line", joined(numberLine, ",  ", ifscLine));
  return company;
}

std::string Bill::slotRow(int slot) { return calc(kSlotRow, slot + 1); }

std::string Bill::slotDescription(int slot) { return calc(kSlotText, slot + 1); }

std::string Bill::slot(int slot, std::string_view field) {
  const auto column = "$" + sheet3::letters(sheet3::billColumn(field)) + "$";
  const auto row = slotRow(slot);
  return "IF(" + row + "=0,\"\",INDEX(SHEET3!" + column + "1:" + column + kRowLimit + "," + row + "))";
}

namespace {

// The first text when it stands, else the second.
std::string either(const std::string& a, const std::string& b) {
  return "IF(" + a + "=\"\"," + b + "," + a + ")";
}

// The slots in order: which row of the data sheet each shows, and its description.
void addSlots(Facts& facts, int slots, const std::string& ordinary, const std::string& lines) {
  auto& sheet = facts.sheet();
  const Style head{.bold = true};
  sheet.text({1, kSlotNo}, head, "Slot");
  sheet.text({1, kSlotRow}, head, "Row");
  sheet.text({1, kSlotText}, head, "Description");
  for (int slot = 1; slot <= slots; ++slot) {
    const int row = slot + 1;
    const auto no = "$G" + to_string(row);
    sheet.number({row, kSlotNo}, {}, slot);
    sheet.formula({row, kSlotRow}, {},
                  "IF(" + no + "<=" + ordinary + "," + to_string(sheet3::kFirstLine - 1) + "+" + no + ",IF(" +
                      no + "<=" + lines + "," + to_string(sheet3::kFirstMisc - 1) + "+" + no + "-" +
                      ordinary + ",0))");
    const auto item = Bill::slot(slot, "ITEM.ITEM_NAME");
    const auto category = Bill::slot(slot, "DEPTMENT.DEPT_NAME");
    const auto detail = Bill::slot(slot, "SALEITM.ITEM_DESC");
    // A line of the category MISC is told by its own words; a short name has its detail below
    // it. Two lines of the slot hold about fifty letters.
    const auto plain = "OR(" + detail + "=\"\"," + detail + "=\".\")";
    const auto own = "$H" + to_string(row), whole = "$J" + to_string(row);
    sheet.formula({row, kSlotWhole}, {},
                  "IF(" + own + "=0,\"\",IF(" + plain + "," + item + "&\"\",IF(" + category + "=\"MISC\"," +
                      detail + "," + item + "&IF(AND(LEN(" + item + ")<=24,LEN(" + item + "&" + detail +
                      ")>24),CHAR(10),\", \")&" + detail + ")))");
    sheet.formula({row, kSlotText}, {},
                  "IF(LEN(" + whole + ")>54,LEFT(" + whole + ",53)&\"…\"," + whole + ")");
  }
}

}  // namespace

Bill billFacts(Facts& facts, int slots, int slotsOfPage) {
  Bill bill;
  const int serial = sheet3::billColumn("SALEITM.SR_NO");
  const auto ordinary = facts.add("Ordinary lines", "COUNT(" + sheet3::span(8, 507, serial) + ")");
  const auto misc = facts.add("Other lines", "COUNT(" + sheet3::span(508, 1007, serial) + ")");
  bill.lines = facts.add("Lines", ordinary + "+" + misc);
  bill.pages =
      facts.add("Pages", "MAX(1,MIN(" + to_string(slots / slotsOfPage) + ",INT((" + bill.lines + "+" +
                             to_string(slotsOfPage - 1) + ")/" + to_string(slotsOfPage) + ")))");
  bill.unprinted = facts.add("Lines without a slot", "MAX(0," + bill.lines + "-" + to_string(slots) + ")");
  const auto row = facts.add("First line", "IF(" + ordinary + ">0,8,508)");

  const auto at = [&](std::string_view field) {
    const auto column = "$" + sheet3::letters(sheet3::billColumn(field)) + "$";
    return "INDEX(SHEET3!" + column + "1:" + column + "508," + row + ")";
  };
  const auto raw = [&](const char* name, std::string_view field) { return facts.add(name, at(field)); };
  const auto text = [&](const char* name, std::string_view field) {
    return facts.add(name, shown(at(field)));
  };

  const auto consigned = facts.add("Consignee", shown(at("ACCOUNT_1.ACC_NAME")));
  const auto party = [&](const std::string& table) {
    const bool ship = table == "ACCOUNT_1";
    const auto of = [&](const std::string& name, const std::string& field) {
      const auto own = shown(at("ACCOUNT." + field));
      return facts.add(
          (ship ? "Ship to: " : "Buyer: ") + name,
          ship ? "IF(" + consigned + "=\"\"," + own + "," + shown(at("ACCOUNT_1." + field)) + ")" : own);
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
    p.state =
        facts.state("state", facts.add("state code", "IFERROR(VALUE(" + of("code", "STATECD") + "),0)"));
    p.gstin = of("GSTIN", "GSTINNO");
    const auto person = of("person", "PERSON_NM"), phone = of("phone", "PHONE1");
    p.contact = facts.add("contact", joined(person, ", ", phone));
    return p;
  };
  bill.buyer = party("ACCOUNT");
  bill.consignee = party("ACCOUNT_1");

  bill.number = text("Bill number", "SALE.BILL_NO");
  bill.date = raw("Date", "SALE.VOUCH_DT");
  bill.type = text("Bill type", "SALE.BL_TYPE");
  bill.challan = text("Challan", "SALE.CHLN_NO");
  bill.order = text("Order", "SALE.ORDER_NO");
  bill.transport = text("Transport", "SALE.TRANSPORT");
  bill.lrNumber = text("L.R. number", "SALE.GR_NO");
  bill.lrDate = facts.add("L.R. date", "IF(" + bill.lrNumber + "=\"\",\"\"," + at("SALE.GR_DATE") + ")");
  bill.destination = text("Destination", "SALE.DESTI");
  bill.parcels = text("Parcels", "SALE.PARCLE");
  const auto days = raw("Credit days", "SALE.CR_DAYS");
  bill.creditDays = facts.add("Credit days shown", "IF(" + days + "=0,\"\"," + days + ")");
  bill.dueDate = facts.add("Due date", "IF(" + days + "=0,\"\"," + bill.date + "+" + days + ")");
  bill.placeOfSupply = bill.buyer.state;
  bill.narration = text("Narration", "SALE.NARRATION");
  bill.irn = text("IRN", "SALE.IRNNO");
  bill.quantity = raw("Quantity", "SALE.NO_OF_ITEM");
  bill.taxable = raw("Taxable value", "SALE.ITEM_AMT");
  bill.cgst = raw("CGST", "SALE.TCGSTRT");
  bill.sgst = raw("SGST", "SALE.TSGSTRT");
  bill.igst = raw("IGST", "SALE.TIGSTRT");
  bill.beforeRounding =
      facts.add("Before rounding", bill.taxable + "+" + bill.cgst + "+" + bill.sgst + "+" + bill.igst);
  bill.roundOff = raw("Round off", "SALE.ROUND_OFF");
  bill.net = raw("Bill amount", "SALE.NET_AMT");
  const auto words = [&](const char* name, int row2, int column) {
    const auto cell = sheet3::cell(row2, column);
    return facts.add(name, "IF(" + cell + "=\"..\",\"NIL\"," + cell + "&\"\")");
  };
  bill.netWords = words("Amount in words", 2, 6);
  bill.taxWords = words("Tax in words", 2, 10);
  addSlots(facts, slots, ordinary, bill.lines);
  return bill;
}

}  // namespace formats
