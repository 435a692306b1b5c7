#include "store/server_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "base/text.h"
#include "store/engine.h"
#include "support/temp_folder.h"

namespace {

constexpr const char* kFigures =
    "-0|2.5|-0.004|1.005|2.675|99999999999999.95|1e-5|1e15|5e22|0.9949999999999999|1234567890123.125"
    "|957.2949999999995|0.30000000000000004";
constexpr const char* kTexts =
    "|.|12abc|-+5|+7|5.e3|1E400|\n12|12\n|LR 7|030|૧૨|29/02/2024|29/02/2023|31-April-26| 15 juN 2026 "
    "|2026-00-10|0099-01-01|2026-06-15 10:00:00|15/Auguſt/2026|9:05|24:00";
// Small letters call the function itself, where large ones are put into the server's own words.
constexpr const char* kCalls =
    "ROUNDED(D, 0)|ROUNDED(D, 2)|VAL(D)|VAL(T)|STR(D)|STR(T)|LEN(T)|len(T)|ISDATE(T)|NUMTEXT(D)|numtext(D)"
    "|NUMTEXT(T)|numtext(T)|SHOWN(D, '0')|SHOWN(D, '0.00')|shown(D, '0.00')|SHOWN(T, '0.00')|shown(T, '0.00')"
    "|SHOWN(T, 'dd/MMM/yyyy')|shown(T, 'dd/mmm/yyyy')|SHOWN(T, 'dd/MM/yy')|shown(T, 'yyyy-mm-dd')"
    "|SHOWN(D, 'dd/MM/yyyy')";

}  // namespace

// The functions of a file's engine are the measure: the same values in the same statement on both.
TEST(ServerFunctions, GiveWhatThoseOfAFileGive) {
  const char* const place = std::getenv("MIRAV_SERVER");
  if (!place) GTEST_SKIP() << "no database server";
  const TempFolder folder;
  std::filesystem::copy_file(std::filesystem::path(place) / "server.cnf", folder / "server.cnf");
  Database file, server;
  file.openFile(folder / "F00126.mdb", Access::create);
  server.openOnServer(folder / "F00126.mdb", Access::create);

  std::mt19937_64 random(7);
  const auto upTo = [&](std::int64_t most) {
    return static_cast<double>(std::uniform_int_distribution<std::int64_t>(0, most)(random));
  };
  std::vector<double> figures;
  for (const auto& figure : split(kFigures, "|")) figures.push_back(std::strtod(figure.c_str(), nullptr));
  for (int i = 0; i < 600; ++i) {
    const double sign = i % 2 ? 1 : -1, half = (std::floor(upTo(1000000)) + 0.5) / 100;
    figures.push_back(sign * upTo(10000000000) / 100);
    figures.push_back(sign * upTo(1000000) / 700);
    figures.push_back(sign * std::nextafter(std::nextafter(half, upTo(1) * 1e6), upTo(1) * 1e6));
    figures.push_back(sign * std::ldexp(upTo(std::int64_t{1} << 53), static_cast<int>(upTo(140)) - 110));
  }
  auto texts = split(kTexts, "|");
  const auto pieces = split("0|1|29|2026|.|-|/|+|:| |feb|June|૧", "|");
  for (int i = 0; i < 600; ++i) {
    std::string& text = texts.emplace_back();
    for (double left = upTo(6); left >= 0; --left) text += pieces[static_cast<size_t>(upTo(12))];
  }

  for (Database* db : {&file, &server}) {
    db->engine().createTable("CALLS", declaredColumns("CREATE TABLE CALLS (D DOUBLE, T TEXT(60))"));
    whole(*db, [&] {
      db->exec("INSERT INTO CALLS (D, T) VALUES (?, ?)", Value(), Value());
      for (const double figure : figures) db->exec("INSERT INTO CALLS (D) VALUES (?)", figure);
      for (const auto& text : texts) db->exec("INSERT INTO CALLS (T) VALUES (?)", text);
    });
  }
  for (const auto& call : split(kCalls, "|")) {
    const std::string statement = "SELECT " + call + ", D, T FROM CALLS ORDER BY rowid";
    const auto want = file.all(statement), got = server.all(statement);
    ASSERT_EQ(want.size(), got.size());
    for (size_t i = 0; i < want.size(); ++i)
      EXPECT_EQ(want[i].value(0), got[i].value(0))
          << call << " of " << want[i].text(1) << "|" << want[i].text(2) << ": " << want[i].text(0)
          << ", not " << got[i].text(0);
  }
  EXPECT_THROW(server.text("SELECT SHOWN(D, '0.000') FROM CALLS"), DatabaseError);
}
