#pragma once

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "gst/doc_issue.h"
#include "gst/documents.h"
#include "gst/period.h"

// GSTR-1: what we sold in a month or quarter, each bill and note in its section. Every figure is worked out
// here from the vouchers; the file, the checks, GSTR-3B and whatever shows them take it from this value.
//
//   b2b     bills to registered buyers       exp     exports
//   b2cl    large bills to other states      cdnr    notes to registered buyers
//   b2cs    all other taxed bills, notes     cdnur   notes against b2cl and exports
//
// What bears no tax stands in nil beside that. Sums of b2cs, nil and hsn take credit notes off; cdnr and
// cdnur list them as they are written.

enum class Gstr1Section { B2b, B2cl, B2cs, Exp, Cdnr, Cdnur, None };
std::string_view sectionKey(Gstr1Section section);  // "b2b"

struct B2csRow {
  int place = 0;
  double rate = 0;
  bool inter = false;
  TaxAmounts sums;
};

struct NilRow {
  bool inter = false, registered = false;
  std::array<Paise, 3> amounts{};  // by Untaxed
};

struct HsnRow {
  std::string hsn, unit;
  std::string item, name;  // of the one that came first
  double rate = 0, quantity = 0;
  TaxAmounts sums;
};

// Of one section, or of a table that GSTR-3B makes of it.
struct SectionSum {
  std::string key;
  int count = 0;
  TaxAmounts sums;
  Paise value = 0;
};

struct PlacedDocument {
  TaxDocument document;
  Gstr1Section section = Gstr1Section::None;
  bool filedBefore = false;  // by an IFF of the same quarter: not listed again
};

// A document as a return that is marked as filed has it (gst/filed.h).
struct FiledDocument {
  ReturnPeriod period;
  std::string book;
  double voucher = 0;
  std::string number;
  Date date{};
  std::string section;  // key of the section, without the "a" of an amendment
  std::string seal;     // of all that was filed of it
  TaxAmounts sums;      // as its sign has them
  Paise value = 0;
};

// What an earlier return has otherwise.
struct Amendment {
  FiledDocument was;
  PlacedDocument now;
};
struct AmendedSum {
  ReturnPeriod of;  // the return whose b2cs it is
  TaxAmounts was;
  B2csRow now;
};

struct Gstr1 {
  ReturnPeriod period;
  std::shared_ptr<const TaxShop> shop;
  std::deque<PlacedDocument> documents;          // by book, date and number; those of all sections
  std::vector<B2csRow> b2cs;                     // by place and rate
  std::array<NilRow, 4> nil;                     // inter and intra to registered buyers, then to others
  std::vector<HsnRow> hsnRegistered, hsnOthers;  // by code, unit and rate
  std::vector<IssuedSeries> series;

  // Where earlier returns are marked as filed: what of them has changed since. Bills and notes of their
  // months that came later stand among the documents.
  std::vector<Amendment> amended;
  std::vector<AmendedSum> amendedSums;
  std::vector<FiledDocument> gone;  // deleted, or of no section that lists them: no amendment says that

  bool hasNil() const;
  // Both halves in one, as they were before there were halves.
  std::vector<HsnRow> hsnWhole() const;
  std::vector<const PlacedDocument*> of(Gstr1Section section) const;
};

// Raises DatabaseError.
Gstr1 readGstr1(Database& db, std::shared_ptr<const TaxShop> shop, const ReturnPeriod& period);

// The vouchers behind a row of sums, those of hsn read once more.
std::vector<TaxDocument> documentsBehind(const Gstr1& gstr1, const B2csRow& row);
std::vector<TaxDocument> documentsBehind(Database& db, const Gstr1& gstr1, const HsnRow& row,
                                         bool registered);

// The sections in their order, those without rows with a count of 0; amendments where there are some.
std::vector<SectionSum> gstr1Summary(const Gstr1& gstr1);

// Where a document belongs.
Gstr1Section sectionOf(const TaxDocument& document, const TaxShop& shop);
