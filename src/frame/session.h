#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "base/date.h"
#include "store/database.h"
#include "store/seeds.h"

// The one process-wide record through which all screens talk to each other. Paths are
// UTF-8 without a trailing separator; dates are civil dates; widths are twips before
// scaling. The settings that SPSFILE holds (system accounts, period, backup, print
// designs) are its `Settings` part.
struct Session : Settings {
  // Set at start-up.
  std::string mapppath;           // folder of the program: the whole installation
  std::string mdbtype, mversion;  // "ACCESS", "1.01"
  double mbasewidth = 0, mbaseheight = 0, mtwipx = 0, mtwipy = 0;
  double mxscale = 0, myscale = 0;  // pixels wide / 800, pixels high / 600
  std::unique_ptr<Database> cncomp, cndata;
  bool mfirstuser = false;
  bool mdatefmtset = false;
  double mcolor1 = 0, mcolor2 = 0, mcolor3 = 0, mcolor4 = 0, mcolor5 = 0, mcolor6 = 0;
  bool monline = false;

  // Set by the company selection.
  std::string mdbpath, mdbfile, mdataname;
  std::string mcompid, mcompname, mfromyr, mtoyr, myr2, myrpair;
  double mfromyrval = 0;

  // Set by the shell from COMP_DET; each is empty when the row or the field is.
  std::string mcad1, mtinno, mcstno, mph1, mph2, mexdtl, mad1, mad2, marea, mcity, mplano;
  std::string mexregno, mrang, mdivi, mcomisnrt;
  std::string mcbankname, mcbrnch, mcifsc, mcacno, mcemail, mcpass, mcsmtp, mcport;
  std::string mterms, mgstinno, mstate, mstatecd, mcpin;
  std::string mhelpline;
  std::string mmobile;
  bool mdesignson = false;
  double mhintcount = 0;

  // Handed between screens.
  std::string musername, musertype;
  std::string msql, mfilter;
  std::string mreportkey, mentrytype, mmastkey;
  int mactiveforms = 0;
  std::string mlastacc, mlastitem;
  double mnextcode = 0;
  bool mmsgok = false;
  bool mreportrefresh = false;

  // The lookup.
  std::string mhlpmode, mhlptable, mhlpfld1, mhlpfld2, mhlpflds;
  std::vector<Value> mhlpvalues;  // bound to the "?" of mhlptable in order
  std::array<int, 10> mhlpwidth{};
  bool mhlpclosed = false;

  // Reports.
  std::array<double, 15> mcolwidth{}, mcoltotal{};
  std::array<int, 15> mcolnum{}, mcolsub{}, mcolfont{};
  int mcolcount = 0;
  std::vector<std::string> mhdrcaps;
  std::string mpageheader1, mpageheader2, mpageheader3, mpageno;
  double mlinecount = 0;

  // Documents.
  std::string mprnmode, mprnsheet, mpdfpath, mstamp;
  double mhdlines = 0, mftlines = 0, mitmlines = 0, mblpgs = 0;
  int minvlines = 0, mprncopies = 0;
  bool mexcelkill = false;

  // Control scaling.
  double mfontfactor = 0;
  bool mresizeflag = false;
};

Session& session();
// The open company-year; raises std::logic_error when none is open.
Database& data();
Database& catalogue();
