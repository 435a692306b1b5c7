#pragma once

#include <memory>
#include <string>

#include "base/date.h"
#include "store/database.h"
#include "store/seeds.h"

// The one process-wide record through which all screens talk to each other. Paths are
// UTF-8 without a trailing separator; dates are civil dates; widths are twips before
// scaling. The settings that SPSFILE holds (system accounts, period, backup, print
// designs) are its `Settings` part.
struct Session : Settings {
  // Set at start-up.
  std::string mapppath;  // folder of the program: the whole installation
  std::string mversion;  // "1.01"
  std::string mdbtype;   // "ACCESS": books in files, "MYSQL": on the server that the folder names
  double mbasewidth = 0, mbaseheight = 0, mtwipx = 0, mtwipy = 0;
  double mxscale = 0, myscale = 0;  // pixels wide / 800, pixels high / 600
  std::unique_ptr<Database> cncomp, cndata;
  bool mfirstuser = false;
  double mcolor1 = 0, mcolor2 = 0, mcolor6 = 0;
  bool monline = false;

  // Set by the company selection.
  std::string mdbpath, mdbfile, mdataname;
  std::string mcompid, mcompname, mfromyr, mtoyr, myr2, myrpair;

  // Set by the shell from COMP_DET; each is empty when the row or the field is.
  std::string mcad1, mgstinno, mstatecd, mmobile;
  double mhintcount = 0;

  // Handed between screens.
  std::string musername, musertype;
  int mactiveforms = 0;
  std::string mlastacc, mlastitem;
  bool mreportrefresh = false;

  // The lookup.
  std::string mhlptable;  // what the last lookup read: its tables, conditions and order

  // Documents.
  std::string mprnmode, mprnsheet, mpdfpath, mstamp;
  bool mexcelkill = false;
};

Session& session();
// The open company-year; raises std::logic_error when none is open.
Database& data();
Database& catalogue();
