#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "documents/grid_output.h"
#include "frame/session.h"
#include "platform/qt/paint_qt.h"
#include "support/pdf_file.h"
#include "support/temp_folder.h"
#include "support/test_host.h"
#include "workbook/recorder.h"

// A host with a printer that remembers what it was given.
class PrintingHost : public TestHost {
 public:
  explicit PrintingHost(const Screens& screens) : TestHost(screens) {}
  paint::Painter& painter() override { return painter_; }

  std::vector<books::Page> printed;
  bool hasPrinter = true;

 private:
  struct Sheet : books::Recorder {
    explicit Sheet(PrintingHost& host) : host_(host) {}
    void finish() override { host_.printed = pages; }
    PrintingHost& host_;
  };
  struct Printer : paint::Painter {
    explicit Printer(PrintingHost& host) : host_(host) {}
    const paint::Metrics& metrics() const override { return half_; }
    std::unique_ptr<paint::Canvas> pdf(const std::string& path) override { return real_->pdf(path); }
    std::unique_ptr<paint::Canvas> image(const std::string& path, double dpi) override {
      return real_->image(path, dpi);
    }
    std::unique_ptr<paint::Canvas> printer() override {
      if (!host_.hasPrinter) throw paint::PaintError("No Printer Found");
      return std::make_unique<Sheet>(host_);
    }
    PrintingHost& host_;
    books::HalfMetrics half_;
    std::unique_ptr<paint::Painter> real_ = paint::makePainter();
  };
  Printer painter_{*this};
};

// Cells of their column's type, but for others.
struct TypedCells : TypedRows {
  explicit TypedCells(const std::vector<TypedColumn>& of) : columns(of) {}
  size_t count() const override { return rows.size(); }
  Cell cell(size_t row, size_t column) const override {
    return column < rows[row].size() ? rows[row][column] : Cell{};
  }
  ColumnType type(size_t row, size_t column) const override {
    const auto other = others.find({row, column});
    return other == others.end() ? columns.at(column).type : other->second;
  }
  const std::vector<TypedColumn>& columns;
  std::vector<std::vector<Cell>> rows;
  std::map<std::pair<size_t, size_t>, ColumnType> others;
};

// A program folder with BILLS, a company, and a report to fill.
class GridTest : public testing::Test {
 protected:
  GridTest() {
    Session& s = session();
    s = Session();
    s.mapppath = folder.path().string();
    s.mcompname = "SHREE GANESH TRADERS";
    s.mcad1 = "12, ASHRAM ROAD";
    std::filesystem::create_directory(folder / "BILLS");
    source = std::make_shared<TypedCells>(out.columns);
    out.rows = source;
  }
  ~GridTest() override { session() = Session(); }

  static TypedColumn money(const char* heading, double twips) {
    return {.heading = heading, .twips = twips, .type = ColumnType::Money, .right = true};
  }
  void column(const char* heading, double twips) {
    out.columns = {
        {heading, twips}
    };
  }
  // The columns of an account's statement.
  void ledger() {
    out.columns = {
        {"V.No.",           500, ColumnType::Count},
        {"Date",                 1200,               ColumnType::Date},
        {"Ref No.", 1300},
        {"Bk.",             500                          },
        {"Particulars",  2800},
        money("Debit", 1200),
        money("Credit", 1200),
        money("Balance", 1200),
        {"Crdr",            450                                    },
    };
  }
  void row(const std::vector<std::string>& texts) {
    std::vector<Cell> cells;
    for (const std::string& text : texts) cells.push_back({.text = text});
    source->rows.push_back(cells);
  }
  void rows(int n) {
    for (int i = 1; i <= n; ++i) row({std::to_string(i), "15/06/26"});
  }

  std::filesystem::path pdf(const std::string& name = "RPT") const {
    return folder / "BILLS" / (name + ".pdf");
  }
  void makePdf() { GridToPdf(host, "RPT", out); }

  TempFolder folder;
  Screens screens;
  PrintingHost host{screens};
  std::shared_ptr<TypedCells> source;
  GridOutput out{.caption = "ACCOUNT Statement For : RAJESH & SONS",
                 .period = "From : 01/Apr/2026 To : 31/Mar/2027"};
};

// While it stands nobody but root may write into the folder, and this process is not root.
class WithoutRight {
 public:
  explicit WithoutRight(const std::filesystem::path& folder) : folder_(folder), root_(geteuid() == 0) {
    chmod(folder_.parent_path().c_str(), 0755);
    chmod(folder_.c_str(), 0555);
    constexpr uid_t kNobody = 65534;
    if (root_ && seteuid(kNobody) != 0) ADD_FAILURE() << "root stays root";
  }
  ~WithoutRight() {
    if (root_) (void)!seteuid(0);
    chmod(folder_.c_str(), 0755);
  }
  WithoutRight(const WithoutRight&) = delete;
  WithoutRight& operator=(const WithoutRight&) = delete;

 private:
  std::filesystem::path folder_;
  bool root_;
};
