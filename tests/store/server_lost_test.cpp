#include <gtest/gtest.h>

#include <cstdlib>

#include "store/engine.h"
#include "store/failure.h"
#include "support/temp_folder.h"

// What can wait goes with the next journey, is taken back with its savepoint, and lost whole with its
// transaction.
TEST(ServerLost, WhatIsKeptForLaterIsStoredWholeOrNotAtAll) {
  const char* const place = std::getenv("MIRAV_SERVER");
  if (!place) GTEST_SKIP() << "no database server";
  const TempFolder folder;
  std::filesystem::copy_file(std::filesystem::path(place) / "server.cnf", folder / "server.cnf");
  Database db, other;
  db.openOnServer(folder / "L00226.mdb", Access::create);
  db.engine().createTable("KEPT", declaredColumns("CREATE TABLE KEPT (A TEXT(3))"));
  db.engine().makeWorkTable("TYPED", declaredColumns("CREATE TABLE TYPED (A TEXT(3))"));
  other.openOnServer(folder / "L00226.mdb");
  const auto add = [&](const char* text) { db.later("INSERT INTO KEPT (A) VALUES (?)", text); };
  const auto kept = [](Database& seen) {
    std::string all;
    for (const Row& row : seen.all("SELECT A FROM KEPT ORDER BY rowid")) all += row.text(0) + " ";
    return all;
  };

  add("a");  // at once, in no transaction
  EXPECT_EQ(kept(other), "a ");
  whole(db, [&] {
    add("b");
    EXPECT_EQ(kept(db), "a b ");
    add("c");
    EXPECT_FALSE(whole(db, [&] { return add("no"), false; }));
    EXPECT_FALSE(whole(db, [&] { return add("nor"), kept(db), false; }));
    EXPECT_TRUE(whole(db, [&] { return add("d"), true; }));
    EXPECT_EQ(kept(other), "a ");
  });
  EXPECT_EQ(kept(other), "a b c d ");

  // Passed over or not, what could not be done takes all with it, at the commit or before.
  for (const bool asks : {false, true}) {
    const auto tooLong = [&] {
      add("e"), add("long"), add("f");
      if (asks) db.passOver({"a test"}, "DELETE FROM KEPT WHERE A = 'a'");
      add("g");
    };
    EXPECT_EQ(failureOf([&] { whole(db, tooLong); }).kind, DatabaseError::Kind::constraint);
    EXPECT_EQ(kept(db), "a b c d ");
  }
  const auto cut = [&] {
    db.exec("INSERT INTO TYPED (A) VALUES ('t')");
    db.later("UPDATE TYPED SET A = 'u'");
    other.exec("KILL CONNECTION " + db.text("SELECT CONNECTION_ID()"));
    add("h");
  };
  EXPECT_EQ(failureOf([&] { whole(db, cut); }).kind, DatabaseError::Kind::lost);
  EXPECT_EQ(kept(db), "a b c d ");
  EXPECT_FALSE(db.first("SELECT 1 FROM TYPED"));
  whole(db, [&] { add("i"); });
  EXPECT_EQ(kept(other), "a b c d i ");
}

// The books' connection is cut by a second one.
TEST(ServerLost, WorkTablesStandAgainAndNothingIsStoredTwice) {
  const char* const place = std::getenv("MIRAV_SERVER");
  if (!place) GTEST_SKIP() << "no database server";
  const TempFolder folder;
  std::filesystem::copy_file(std::filesystem::path(place) / "server.cnf", folder / "server.cnf");
  Database db, other;
  db.openOnServer(folder / "L00126.mdb", Access::create);
  other.openOnServer(folder / "L00126.mdb");
  for (const char* table : {"TYPED", "COPIED"})
    db.engine().makeWorkTable(table, {
                                         {"A", "DOUBLE"}
    });
  const auto cut = [&] { other.exec("KILL CONNECTION " + db.text("SELECT CONNECTION_ID()")); };
  const auto add = [&](int figure) { db.exec("INSERT INTO TYPED (A) VALUES (?)", figure); };
  const auto rows = [&] {
    std::string all;
    for (const char* table : {"TYPED", "COPIED"})
      for (const Row& row : db.all(std::string("SELECT rowid, A FROM ") + table + " ORDER BY rowid"))
        all += row.text(0) + ":" + row.text(1) + " ";
    return all;
  };

  // With the numbers that they had, also behind what was taken back and where one table was filled from
  // another.
  add(1);
  EXPECT_ANY_THROW(whole(db, [&] { add(2), throw 0; }));
  add(3);
  db.exec("INSERT INTO COPIED (A) SELECT A FROM TYPED");
  cut();
  EXPECT_EQ(rows(), "1:1 3:3 1:1 2:3 ");
  db.exec("DELETE FROM TYPED");
  add(4);
  cut();
  EXPECT_EQ(rows(), "1:4 1:1 2:3 ");

  // Cut at its beginning a transaction begins again; inside it is taken back, and told.
  cut();
  whole(db, [&] { db.exec("DELETE FROM TYPED"), add(5); });
  const auto inside = [&] { whole(db, [&] { add(6), cut(), add(7); }); };
  EXPECT_EQ(failureOf(inside).kind, DatabaseError::Kind::lost);
  EXPECT_EQ(db.text("SELECT SUM(A) FROM TYPED"), "5");

  // Nobody waits for a hold whose end the lost connection kept back.
  EXPECT_FALSE(db.engine().hold("Posting", Hold::Closes));
  EXPECT_TRUE(other.engine().heldBy());
  cut();
  db.engine().endHold();
  EXPECT_FALSE(other.engine().heldBy());

  // As when a cluster brings to an end what was told as lost: the next save stores nothing, once.
  db.exec("UPDATE TURN SET N = N + 1 WHERE USER_NAME <> '' AND N > 0 ORDER BY N DESC LIMIT 1");
  EXPECT_NE(failureOf([&] { whole(db, [] { ADD_FAILURE() << "twice"; }); }).sentence.find("Stored After All"),
            std::string::npos);
  bool stored = false;
  whole(db, [&] { stored = true; });
  EXPECT_TRUE(stored);
}
