#pragma once

#include <string>
#include <vector>

#include "frame/session.h"
#include "store/row_writer.h"

// The one row of COMP_DET, with which every printed document heads.

// The row into the session's members: each is first emptied, then filled where the row has
// the column and a text in it. A mobile of fewer than 10 characters becomes "9090909090".
void loadCompanyDetails(Session& session);

// Settings and details as others have written them since they were read last; false where nobody wrote.
bool readWhatOthersWrote();

// Writes the row (adds it to an empty table), with the constants of the columns that have no
// field; a place of fewer than 2 characters becomes "Ahmedabad". The catalogue's name of all
// years of the company follows the new name, and the session is filled again.
void saveCompanyDetails(Session& session, Fields typed);

// "SHREE TRADERS : 2526  :  M - 1.01 Accounting Period : 01/Apr/2025 TO 31/Mar/2026"
std::string shellCaption(const Session& session);
// "SHREE TRADERS : FROM 01/04/25 TO 31/03/26"
std::string periodPanel(const Session& session);
