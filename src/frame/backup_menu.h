#pragma once

#include "platform/host.h"

// What the shell's entries "Backup" and "Restore" do on the session's company-year, and its
// exit: each asks and tells, the rules stand in backup.h. Where the settings name a second folder each
// backup is made there too; neither copy is lost by the other's failure.

// False when no copy could be made.
bool backUpNow(Host& host);

// When the settings say so, keeping as many as they say. Only a failure is told.
void backUpAtExit(Host& host);

// Asks which backup takes the place of the books. True when the company-year has been opened anew,
// be it the restored one or, after a failure, the old one.
bool restoreNow(Host& host);

// For books that are lost or damaged, before they could be opened: where backups of them stand,
// asks which takes their place. True when one has. The settings being out of reach, the folder is
// BACKUP beside the program.
bool offerRestore(Host& host);
