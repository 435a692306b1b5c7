#include "gst/gstr1_json.h"

#include <algorithm>

#include "base/text.h"
#include "gst/json_file.h"

namespace {

std::string dayText(Date day) { return formatDate(day, "dd-MM-yyyy"); }

std::string placeText(int place) { return padLeft(std::to_string(place), 2, '0'); }

// Taxes that the law wants, and what the vouchers have beside them.
void putTaxes(Json& json, const TaxAmounts& sums, bool inter) {
  if (inter || sums.igst != 0) json["iamt"] = jsonMoney(sums.igst);
  if (!inter || sums.cgst != 0 || sums.sgst != 0) {
    json["camt"] = jsonMoney(sums.cgst);
    json["samt"] = jsonMoney(sums.sgst);
  }
  json["csamt"] = jsonMoney(sums.cess);
}

Json bareLine(const AtRate& at, bool inter) {
  Json line{
      {"txval", jsonMoney(at.sums.taxable)},
      {"rt",    jsonFigure(at.rate)       }
  };
  putTaxes(line, at.sums, inter);
  return line;
}

// The tool of the portal numbers a line by its rate.
Json linesOf(const TaxDocument& d) {
  Json lines = Json::array();
  for (const AtRate& at : d.rates)
    lines.push_back({
        {"num",        static_cast<int>(at.rate * 100 + 1.5)},
        { "itm_det", bareLine(at,                              d.inter)}
    });
  return lines;
}

const char* supplyWord(const TaxDocument& d) {
  switch (d.supply) {
    case SupplyKind::SezTaxed:
      return "SEWP";
    case SupplyKind::Sez:
      return "SEWOP";
    case SupplyKind::Deemed:
      return "DE";
    default:
      return "R";
  }
}

Json billHead(const TaxDocument& d) {
  return {
      {"inum", d.number          },
      {"idt",  dayText(d.date)   },
      {"val",  jsonMoney(d.value)}
  };
}

Json noteHead(const TaxDocument& d) {
  return {
      {"nt_num", d.number                },
      {"nt_dt",  dayText(d.date)         },
      {"ntty",   d.sign() < 0 ? "C" : "D"},
      {"val",    jsonMoney(d.value)      }
  };
}

Json registeredRow(const TaxDocument& d) {
  Json row = d.isNote() ? noteHead(d) : billHead(d);
  row["pos"] = placeText(d.place);
  row["rchrg"] = d.reverse ? "Y" : "N";
  row["inv_typ"] = supplyWord(d);
  row["itms"] = linesOf(d);
  return row;
}

Json largeRow(const TaxDocument& d) {
  Json row = billHead(d);
  row["itms"] = linesOf(d);
  return row;
}

Json exportRow(const TaxDocument& d) {
  Json row = billHead(d);
  if (!d.port.empty()) row["sbpcode"] = d.port;
  if (!d.shippingBill.empty() && d.shippingDate) {
    row["sbnum"] = d.shippingBill;
    row["sbdt"] = dayText(*d.shippingDate);
  }
  row["itms"] = Json::array();
  for (const AtRate& at : d.rates) row["itms"].push_back(bareLine(at, true));
  return row;
}

Json unregisteredNote(const TaxDocument& d) {
  Json row = noteHead(d);
  row["typ"] = !d.exported() ? "B2CL" : d.underBond() ? "EXPWOP" : "EXPWP";
  if (!d.exported()) row["pos"] = placeText(d.place);
  row["itms"] = linesOf(d);
  return row;
}

const char* exportType(const TaxDocument& d) { return d.underBond() ? "WOPAY" : "WPAY"; }

// Documents of a section, those of one group together in the order in which they came.
template <class KeyOf>
std::vector<const TaxDocument*> grouped(const Gstr1& gstr1, Gstr1Section section, KeyOf keyOf) {
  std::vector<const TaxDocument*> list;
  for (const PlacedDocument* placed : gstr1.of(section)) list.push_back(&placed->document);
  std::ranges::stable_sort(list, {}, keyOf);
  return list;
}

// A row as of now, with the number and date that were filed.
void writeAmended(JsonFiles& file, const Gstr1& gstr1, Gstr1Section section) {
  std::vector<const Amendment*> list;
  for (const Amendment& amended : gstr1.amended)
    if (amended.now.section == section) list.push_back(&amended);
  const auto group = [&](const TaxDocument& d) -> Json {
    switch (section) {
      case Gstr1Section::B2cl:
        return {
            {"pos", placeText(d.place)}
        };
      case Gstr1Section::Exp:
        return {
            {"exp_typ", exportType(d)}
        };
      default:
        return {
            {"ctin", d.party->gstin}
        };
    }
  };
  std::ranges::stable_sort(list, {}, [&](const Amendment* of) { return group(of->now.document).dump(); });
  const std::string key = std::string(sectionKey(section)) + "a";
  for (const Amendment* amended : list) {
    const TaxDocument& d = amended->now.document;
    Json row = section == Gstr1Section::B2cl    ? largeRow(d)
               : section == Gstr1Section::Exp   ? exportRow(d)
               : section == Gstr1Section::Cdnur ? unregisteredNote(d)
                                                : registeredRow(d);
    row[d.isNote() ? "ont_num" : "oinum"] = amended->was.number;
    row[d.isNote() ? "ont_dt" : "oidt"] = dayText(amended->was.date);
    if (section == Gstr1Section::Cdnur)
      file.add(key, row);
    else
      file.add(key, group(d), d.isNote() ? "nt" : "inv", row);
  }
}

void writeAmendedSums(JsonFiles& file, const Gstr1& gstr1) {
  for (const AmendedSum& sum : gstr1.amendedSums) {
    Json line{
        {"rt",    jsonFigure(sum.now.rate)       },
        {"txval", jsonMoney(sum.now.sums.taxable)}
    };
    putTaxes(line, sum.now.sums, sum.now.inter);
    file.add("b2csa", {
                          {"omon",    sum.of.text()                    },
                          {"sply_ty", sum.now.inter ? "INTER" : "INTRA"},
                          {"typ",     "OE"                             },
                          {"pos",     placeText(sum.now.place)         },
                          {"itms",    Json::array({line})              }
    });
  }
}

void writeDocuments(JsonFiles& file, const Gstr1& gstr1) {
  const auto buyer = [](const TaxDocument* d) -> const std::string& { return d->party->gstin; };
  for (const TaxDocument* d : grouped(gstr1, Gstr1Section::B2b, buyer))
    file.add("b2b",
             {
                 {"ctin", d->party->gstin}
    },
             "inv", registeredRow(*d));
  writeAmended(file, gstr1, Gstr1Section::B2b);
  for (const TaxDocument* d : grouped(gstr1, Gstr1Section::B2cl, [](auto* of) { return of->place; }))
    file.add("b2cl",
             {
                 {"pos", placeText(d->place)}
    },
             "inv", largeRow(*d));
  writeAmended(file, gstr1, Gstr1Section::B2cl);
  for (const B2csRow& row : gstr1.b2cs) {
    Json json{
        {"sply_ty", row.inter ? "INTER" : "INTRA"},
        {"rt",      jsonFigure(row.rate)         },
        {"typ",     "OE"                         },
        {"pos",     placeText(row.place)         },
        {"txval",   jsonMoney(row.sums.taxable)  }
    };
    putTaxes(json, row.sums, row.inter);
    file.add("b2cs", json);
  }
  writeAmendedSums(file, gstr1);
  if (gstr1.hasNil()) {
    Json rows = Json::array();
    for (const NilRow& row : gstr1.nil)
      rows.push_back({
          {"sply_ty",   std::string(row.inter ? "INTR" : "INTRA") + (row.registered ? "B2B" : "B2C")},
          {"expt_amt",  jsonMoney(row.amounts[static_cast<size_t>(Untaxed::Exempt)])                },
          {"nil_amt",   jsonMoney(row.amounts[static_cast<size_t>(Untaxed::Nil)])                   },
          {"ngsup_amt", jsonMoney(row.amounts[static_cast<size_t>(Untaxed::NonGst)])                }
      });
    file.put("nil", {
                        {"inv", rows}
    });
  }
  const auto paid = [](const TaxDocument* of) { return of->underBond(); };
  for (const TaxDocument* d : grouped(gstr1, Gstr1Section::Exp, paid))
    file.add("exp",
             {
                 {"exp_typ", exportType(*d)}
    },
             "inv", exportRow(*d));
  writeAmended(file, gstr1, Gstr1Section::Exp);
  for (const TaxDocument* d : grouped(gstr1, Gstr1Section::Cdnr, buyer))
    file.add("cdnr",
             {
                 {"ctin", d->party->gstin}
    },
             "nt", registeredRow(*d));
  writeAmended(file, gstr1, Gstr1Section::Cdnr);
  for (const PlacedDocument* placed : gstr1.of(Gstr1Section::Cdnur))
    file.add("cdnur", unregisteredNote(placed->document));
  writeAmended(file, gstr1, Gstr1Section::Cdnur);
}

void writeIssued(JsonFiles& file, const Gstr1& gstr1) {
  Json kinds = Json::array();
  for (const int nature : {1, 4, 5}) {
    Json rows = Json::array();
    for (const IssuedSeries& series : gstr1.series)
      if (issuedNature(*series.kind) == nature)
        rows.push_back({
            {"num",       rows.size() + 1 },
            {"from",      series.from     },
            {"to",        series.to       },
            {"totnum",    series.total    },
            {"cancel",    series.cancelled},
            {"net_issue", series.issued() }
        });
    if (!rows.empty())
      kinds.push_back({
          {"doc_num", nature             },
          {"doc_typ", issuedWords(nature)},
          {"docs",    rows               }
      });
  }
  if (!kinds.empty())
    file.put("doc_issue", {
                              {"doc_det", kinds}
    });
}

// A row without a code is refused with the whole file; the checks tell of it.
Json hsnRows(const std::vector<HsnRow>& rows) {
  Json list = Json::array();
  for (const HsnRow& row : rows)
    if (!row.hsn.empty())
      list.push_back({
          {"num",    list.size() + 1            },
          {"hsn_sc", row.hsn                    },
          {"uqc",    row.unit                   },
          {"qty",    jsonFigure(row.quantity)   },
          {"rt",     jsonFigure(row.rate)       },
          {"txval",  jsonMoney(row.sums.taxable)},
          {"iamt",   jsonMoney(row.sums.igst)   },
          {"samt",   jsonMoney(row.sums.sgst)   },
          {"camt",   jsonMoney(row.sums.cgst)   },
          {"csamt",  jsonMoney(row.sums.cess)   }
      });
  return list;
}

void writeHsn(JsonFiles& file, const Gstr1& gstr1) {
  Json hsn = Json::object();
  if (gstr1.shop->tables.number(kHsnHalves, "", gstr1.period.last()) == 1) {
    for (const auto& [key, rows] : {
             std::pair{"hsn_b2b", &gstr1.hsnRegistered},
             std::pair{"hsn_b2c", &gstr1.hsnOthers    }
    })
      if (Json list = hsnRows(*rows); !list.empty()) hsn[key] = std::move(list);
  } else if (Json list = hsnRows(gstr1.hsnWhole()); !list.empty()) {
    hsn["data"] = std::move(list);
  }
  if (!hsn.empty()) file.put("hsn", hsn);
}

}  // namespace

std::vector<std::filesystem::path> writeGstr1(const Gstr1& gstr1, const std::filesystem::path& folder) {
  const GstTables& tables = gstr1.shop->tables;
  const Date day = gstr1.period.last();
  const std::string& gstin = gstr1.shop->gstin;
  JsonFiles file(folder, "GSTR1_" + gstin + "_" + gstr1.period.text(),
                 {
                     {"gstin",   gstin                    },
                     {"fp",      gstr1.period.text()      },
                     {"version", tables.text(kGstr1Version, "", day)},
                     {"hash",     "hash"                             }
  },
                 static_cast<size_t>(tables.number(kSplitBytes, "", day)));
  writeDocuments(file, gstr1);
  writeIssued(file, gstr1);
  writeHsn(file, gstr1);
  return file.finish();
}
