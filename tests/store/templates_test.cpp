#include "store/templates.h"

#include <fstream>

#include "company_fixture.h"
#include "failure.h"
#include "store/keys.h"

TEST_F(CompanyTest, ATemplateCanBeBilledInAtOnce) {
  EXPECT_EQ(db.text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(db.text("SELECT GROUP_CONCAT(VOUCH_NO || VOUCH_FLAG) FROM (SELECT * FROM SPSFILE WHERE VOUCH_NO "
                    "BETWEEN 221 AND 226 ORDER BY 1)"),
            "2210,2220,2230,2240,2250,2260");
  EXPECT_EQ(
      db.number("SELECT COUNT(*) FROM SPSFILE WHERE VOUCH_QTY = 0 AND VOUCH_CD IN ('G_SALENO', 'G_CHVNO', "
                "'G_CPVNO', 'G_CSVNO', 'G_RTVNO')"),
      5);
  EXPECT_EQ(db.text("SELECT SIZE_CD || DEPT_NAME FROM ITEM JOIN ITEMDTL USING (ITEM_CD) JOIN DEPTMENT USING "
                    "(DEPT_CD) WHERE ITEM_CD = 'MISC'"),
            "NOSMISC");
  for (const auto& key : tableKeys())
    EXPECT_EQ(db.first("SELECT 1 FROM sqlite_master WHERE name = ?", keyName(key.table)).has_value(),
              key.table != "ITEMDTL");
}

TEST_F(CompanyTest, BothTemplatesAreMadeAndNothingStaysBeside) {
  makeTemplates(folder.path());
  makeCatalogue(folder / "comp.mdb");
  Database catalogue;
  catalogue.open(folder / "comp.mdb");
  EXPECT_TRUE(catalogue.attempt({"a test"}, "UPDATE USER1 SET LOGGEDON = 'N' WHERE USER_NAME = ''"));
  EXPECT_EQ(catalogue.exec("INSERT INTO compny (COMP_ID, COMP_NAME, FROMYR, TOYR, MOBNOCO, DATANM, DATASENT)"
                           " VALUES ('M001', 'O''BRIEN', '2024', '2025', '', 'M00124', 'N')"),
            1);
  catalogue.close();
  db.close();
  EXPECT_EQ(names(), (std::set<std::string>{"BLNK.MDB", "M00124.mdb", "SMPL.MDB", "comp.mdb"}));
}

TEST_F(CompanyTest, ACopyReplacesAnOrphanWithItsJournal) {
  db.close();
  std::ofstream(folder / "M00225.mdb") << "half a copy";
  std::ofstream(folder / "M00225.mdb-journal") << "of another file";
  copyDatabase(folder / "M00124.mdb", folder / "M00225.mdb");
  EXPECT_FALSE(std::filesystem::exists(folder / "M00225.mdb-journal"));
  db.open(folder / "M00225.mdb");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM GRP"), 39);

  const Failure missing = failureOf([&] { copyDatabase(folder / "NONE.MDB", folder / "M00124.mdb"); });
  EXPECT_EQ(missing.kind, DatabaseError::Kind::missing);
  EXPECT_EQ(missing.sentence, "NONE.MDB was not found.");
  EXPECT_TRUE(std::filesystem::exists(folder / "M00124.mdb"));
}
