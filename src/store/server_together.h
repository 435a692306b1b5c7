#pragma once

#include <string_view>

#include "store/server_link.h"

// How programs at one database of a server know of each other. None of it belongs to the books:
//
// TURN    a row for each program that has the books open: the count of its last transaction, who it is, when
//         it was seen last. The row without a program counts all transactions and says who holds the books.
// INHAND  what a program has in hand for a change. It counts as long as its program is seen.

// Makes them, or what an older program did not give them.
void makeTurnTables(ServerLink& link);
bool isTurnTable(std::string_view table);
