#include "vouchers/reconciling.h"

#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "platform/workbook/create.h"
#include "support/temp_folder.h"

// What is read out of the statements that banks give away, and which line answers to which row.

namespace {

Date day(unsigned d) { return Date{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{d}}; }

std::string shown(const BankStatement& statement) {
  std::string all;
  for (const StatementLine& line : statement.lines)
    all += isoDate(line.date) + " " + std::to_string(static_cast<long>(line.amount * 100)) + " " + line.text +
           "|" + line.reference + "\n";
  return all;
}

struct File {
  const char *what, *bytes, *lines;
};

const File kFiles[] = {
    {"withdrawals and deposits, quoted, with names over the head and a total under it",
     "\xEF\xBB\xBFNavrang Bank,,\nAccount,'00123,\n\n"
     "Date,Narration,Chq./Ref.No.,Value Dt,Withdrawal Amt.,Deposit Amt.,Closing Balance\r\n"
     "03/11/26,\"CLG DEP, 118204 \"\"JODHPUR\"\"\",118204,04/11/26,,\"1,14,794.00\",\"1,50,000.00\"\r\n"
     "05/11/26,CHEQUE BOOK CHARGES,,05/11/26,177.00,,\"1,49,823.00\"\r\n"
     "Total,,,,177.00,\"1,14,794.00\",\r\n",                                                                 "2026-11-03 11479400 CLG DEP, 118204 \"JODHPUR\"|118204\n2026-11-05 -17700 CHEQUE BOOK CHARGES|\n"},
    {"one signed amount behind semicolons",
     "Txn Date;Description;Amount (INR)\n2026-11-03;A;-1,250.50\n3 Nov 2026 14:05;B;(20)\n04-Nov-26;C;Rs. "
     "5\n",                                                                                                  "2026-11-03 -125050 A|\n2026-11-03 -2000 B|\n2026-11-04 500 C|\n"                                 },
    {"an amount with its side in a column of its own, behind tabs",
     "Transaction Date\tParticulars\tAmount\tDr / Cr\n03.11.2026\tA\t10.00\tDR\n03.11.2026\tB\t10.00\tCr\n", "2026-11-03 -1000 A|\n2026-11-03 1000 B|\n"                                                       },
    {"the side behind the amount, an opening balance and an empty line",
     "Post Date,Remarks,Ref,Amount,Balance\n01/11/2026,OPENING,,,500.00 Cr\n02/11/2026,A,UTR1,90.00 "
     "Dr,410.00 Cr\n,,,,\n",                                                                                 "2026-11-02 -9000 A|UTR1\n"                                                                       },
    {"headings in one word, the side in brackets behind the amount, with Indian commas",
     "SNo,ValueDate,TranDate,CHQNO,TransactionRemarks,Amount(Rs.),ClosingBalance\n"
     "1,04/11/2026,03/11/2026,118204,A,\"1,14,794.00 (Cr)\",\"1,20,000.00 (Cr)\"\n"
     "2,05/11/2026,05/11/2026,,B,\"1,250.50(Dr.)\",\"1,18,749.50 (Cr)\"\n",                                  "2026-11-03 11479400 A|118204\n2026-11-05 -125050 B|\n"                                           },
    {"a column of types that says cheque as well, and a side in the heading of the amount",
     "Date,Transaction Type,Details,Amount (Dr/Cr)\n02/11/26,DEPOSIT,A,10\n02/11/26,CASH "
     "WITHDRAWAL,B,10\n03/11/26,CHQ,C,10.00 Dr\n",                                                           "2026-11-02 1000 A|\n2026-11-02 -1000 B|\n2026-11-03 -1000 C|\n"                                  },
    {"a page that is called a workbook",
     "<html><head><style>td {a: b}</style></head><table><tr><td colspan=3>NAVRANG BANK</td></tr>\n"
     "<TR><TH>Txn Date</TH><th colspan='2'>Description</th><th>Withdrawals</th><th>Deposits</th></TR>\n"
     "<tr><td>03-Nov-2026<td>UPI/A &amp; B<br>FOR&nbsp;GOODS</td><td></td><td "
     "align=right><b>1,250.50</b></td>"
     "<td>&nbsp;</td></tr></table></html>",                                                                  "2026-11-03 -125050 UPI/A & B FOR GOODS|\n"                                                       },
};

TEST(BankStatementTest, IsReadAsTheBanksWriteIt) {
  for (const File& file : kFiles)
    EXPECT_EQ(shown(statementOfText(file.bytes, "x.csv")), file.lines) << file.what;
  EXPECT_EQ(statementOfText("Date,Debit,Credit\n1/11/26,abc,\n2/11/26,5,\n", "x.csv").unread, 1);
}

TEST(BankStatementTest, IsRefusedInASentence) {
  const std::string nul("Date,Amount\n\0", 13);
  for (const std::string& bytes : {std::string(), nul, std::string("hello\nworld"), std::string(100000, ','),
                                   std::string("Date,Amount\n"), "\"" + std::string(50000, 'a'),
                                   std::string("\xFF\xFE\x80 Date,Debit\n1/1/26,9e999")})
    EXPECT_THROW(statementOfText(bytes, "x.csv"), StatementRefused) << bytes.substr(0, 20);
  for (const char* name : {"/nowhere.csv", "/tmp"}) EXPECT_THROW(readBankStatement(name), StatementRefused);
}

TEST(BankStatementTest, IsReadFromAWorkbook) {
  const TempFolder folder;
  const std::string path = (folder / "statement.xlsx").string();
  int row = 0;
  const auto next = [&](std::vector<workbook::ListCell>& cells) {
    cells = {
        {.value = workbook::Value::date(day(3))}, {.value = "CLG 118204"}, {.value = row == 0 ? 7882.5 : 0}};
    return row++ < 1;
  };
  workbook::createList(
      path, {
                .titles = {"NAVRANG BANK"       },
                .columns = { {"Txn Date", 0, "dd/mm/yyyy"}, {"Details", 0, "@"}, {"Debit", 0, "0.00"}},
                .next = next
  });
  EXPECT_EQ(shown(readBankStatement(path)), "2026-11-03 -788250 CLG 118204|\n");
}

BookEntry book(unsigned on, double amount, const char* reference, std::optional<Date> cleared = {}) {
  return {.row = {.amount = amount}, .date = day(on), .reference = reference, .cleared = cleared};
}
StatementLine line(unsigned on, double amount, const char* text, const char* reference = "") {
  return {.date = day(on), .text = text, .reference = reference, .amount = amount};
}

// Rows of the books and lines of the bank; what answers, "!" where it is certain and "=" where known.
std::string answers(const std::vector<BookEntry>& books, const std::vector<StatementLine>& lines) {
  std::string all;
  for (const Match& m : matchStatement(books, lines))
    all += std::to_string(m.book) + "-" + std::to_string(m.line) +
           (m.known     ? "="
            : m.certain ? "!"
                        : "?") +
           " ";
  return trim(all);
}

TEST(Matching, TakesAmountThenReferenceThenDay) {
  EXPECT_EQ(answers({book(3, 100, "NEFT")}, {line(5, 100, "A")}), "0-0!") << "alone and near";
  EXPECT_EQ(answers({book(3, 100, "NEFT")}, {line(5, -100, "A"), line(5, 100.01, "A")}), "")
      << "other amounts";
  EXPECT_EQ(answers({book(3, 100, "")}, {line(12, 100, "A")}), "0-0?") << "some days";
  EXPECT_EQ(answers({book(3, 100, "")}, {line(20, 100, "A")}), "") << "too late";
  EXPECT_EQ(answers({book(1, 100, "004512")}, {line(29, 100, "CLG 4512")}), "0-0!")
      << "a cheque presented late";
  EXPECT_EQ(answers({book(3, 100, "004512")}, {line(4, 100, "CLG", "004777")}), "0-0?") << "another cheque";
  EXPECT_EQ(answers({book(3, 100, ""), book(4, 100, "")}, {line(5, 100, "A")}), "1-0?")
      << "two rows, the nearer";
  EXPECT_EQ(answers({book(3, 100, "1001"), book(3, 100, "1002")},
                    {line(4, 100, "CHQ 1002"), line(4, 100, "CHQ 1001")}),
            "1-0! 0-1!")
      << "equal amounts told apart by their cheques";
  EXPECT_EQ(answers({book(3, 100, "", day(5)), book(3, 100, "")}, {line(5, 100, "A"), line(6, 100, "A")}),
            "0-0= 1-1?")
      << "read a second time";
  EXPECT_EQ(answers({book(3, 100, "", day(9))}, {line(5, 100, "A")}), "0-0?") << "cleared on another day";
}

}  // namespace
