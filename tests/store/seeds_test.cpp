#include "store/seeds.h"

#include "company_fixture.h"

using namespace std::chrono_literals;

namespace {

class SeedsTest : public CompanyTest {
 protected:
  Settings settings{.mroundac = "before", .mstartdt = 2023y / 4 / 1, .menddt = 2034y / 3 / 31};
};

}  // namespace

TEST_F(SeedsTest, SettingsAreReadFromTheirRows) {
  db.exec("UPDATE SPSFILE SET VOUCH_DT = '2024-04-01' WHERE VOUCH_NO = 211");
  db.exec("UPDATE SPSFILE SET VOUCH_DT = '2025-03-31' WHERE VOUCH_NO = 212");
  db.exec("UPDATE SPSFILE SET VOUCH_NM = 'E:\\KEEP', VOUCH_QTY = 1 WHERE VOUCH_NO = 234");
  db.exec("UPDATE SPSFILE SET VOUCH_QTY = 4 WHERE VOUCH_NO = 371");
  db.exec("UPDATE SPSFILE SET VOUCH_CD = 'A00009' WHERE VOUCH_NO = 160");
  EnsureSettings(db, settings);
  EXPECT_EQ(join({settings.msalesac, settings.msalesdiscac, settings.msalechargeac, settings.msalestaxac,
                  settings.mroundac, settings.mcashac},
                 " "),
            "X90002 X90006 X90007 X90004 X90015 A00009");
  EXPECT_EQ(isoDate(settings.mstartdt) + " " + isoDate(settings.menddt), "2024-04-01 2025-03-31");
  EXPECT_EQ(settings.mbackuppath, "E:\\KEEP");
  EXPECT_TRUE(settings.mbackupflag);
  EXPECT_EQ(settings.mbillformat * 100 + settings.mquotformat * 10 + settings.mchlnformat, 478);
}

TEST_F(SeedsTest, MissingSettingsComeBackWithTheirSeeds) {
  db.exec("UPDATE SPSFILE SET VOUCH_DT = '2024-04-01' WHERE VOUCH_NO = 211");
  db.exec("DELETE FROM SPSFILE WHERE VOUCH_NO IN (152, 212, 234, 351, 372)");
  db.exec("UPDATE SPSFILE SET VOUCH_CD = '' WHERE VOUCH_NO = 154");
  settings.msalesdiscac = "kept";
  EnsureSettings(db, settings);
  EXPECT_EQ(settings.msalesac, "X90002");
  EXPECT_EQ(settings.msalesdiscac, "kept");
  EXPECT_EQ(settings.mbackuppath, "D:\\BACKUP");
  EXPECT_EQ(settings.mquotformat, 7);
  const auto row = [&](int number) {
    const auto r = db.first(
        "SELECT VOUCH_DT, VOUCH_CD, VOUCH_NM, VOUCH_QTY, VOUCH_AMT, VOUCH_FLAG FROM SPSFILE WHERE VOUCH_NO = "
        "?",
        number);
    std::string all;
    for (int i = 0; r && i < r->count(); ++i) all += r->text(i) + "|";
    return all;
  };
  EXPECT_EQ(row(152), "2023-04-01|X90002|SALES A/c Code|0|0|0|") << "the period is read after this row";
  EXPECT_EQ(row(212), "2034-03-31|TODT|A/c End Date|0|0|0|");
  EXPECT_EQ(row(234), "2024-04-01|BACKUP|D:\\BACKUP|0|0|0|");
  EXPECT_EQ(row(351), "2024-04-01||SALE BILL SERIES|0|0|0|");
  EXPECT_EQ(row(372), "2024-04-01||Quot Format|7|0|0|");
  EXPECT_EQ(db.text("SELECT typeof(VOUCH_FLAG) FROM SPSFILE WHERE VOUCH_NO = 372"), "text");
}

TEST_F(SeedsTest, AccountsTaxesAndDesignsAddWhatIsMissingOnly) {
  db.exec("UPDATE ACCOUNT SET ACC_NAME = 'MY CASH' WHERE ACC_CD = 'X90005'");
  db.exec("DELETE FROM ACCOUNT WHERE ACC_CD = 'X90015'");
  db.exec("DELETE FROM DISCHTAX WHERE CODE = 32");
  db.exec("UPDATE HIDELINESET SET INVLINES = 30 WHERE SRNO = 1");
  db.exec("DELETE FROM HIDELINESET WHERE SRNO = 8");
  EnsureAccounts(db);
  EnsureTaxes(db);
  EnsureDesigns(db);
  EXPECT_EQ(db.text("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = 'X90005'"), "MY CASH");
  EXPECT_EQ(
      db.text(
          "SELECT ACC_NAME || NUMTEXT(GROUP_CD) || ANOTHER_CD || CITY FROM ACCOUNT WHERE ACC_CD = 'X90015'"),
      "ROUND OFF40S001.");
  EXPECT_EQ(db.text("SELECT NAME || TAX_ACC || TAX_ACNM FROM DISCHTAX WHERE CODE = 32"),
            "SGSTX90062OUTPUT CGST");
  EXPECT_EQ(db.number("SELECT INVLINES FROM HIDELINESET WHERE SRNO = 1"), 30);
  EXPECT_EQ(db.text("SELECT FILENM || SHEETNM || QUERYNM || NUMTEXT(HDLINES * 100 + INVLINES) || BTNNM FROM "
                    "HIDELINESET WHERE SRNO = 8"),
            "INVGEN1D_CCHLNPRN417CHALLAN");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM ACCOUNT"), 13);
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM HIDELINESET"), 9);
}
