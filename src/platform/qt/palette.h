#pragma once

#include <QColor>

#include "platform/grid.h"

// The one place of the program's colours. Colour always means something; a new one needs a
// meaning first.
namespace palette {

inline constexpr QRgb kInk = 0xFF1D2B2E;     // text and figures
inline constexpr QRgb kQuiet = 0xFF47565A;   // labels, explanations
inline constexpr QRgb kAccent = 0xFF00626A;  // focus frame, current row, titles, icons, hint line
inline constexpr QRgb kScreen = 0xFFFFF0D0;  // background of every screen
inline constexpr QRgb kPanel = 0xFFFFFAF0;   // groups, tool bar, dialogs
inline constexpr QRgb kMenu = 0xFFFFF0DC;    // menu bar and status bar
inline constexpr QRgb kEntry = 0xFFFFF7E3;   // line-entry row and the key strip under it
inline constexpr QRgb kPanelLine = 0xFFDFCFA6;
inline constexpr QRgb kBarLine = 0xFFB9A877;  // between the panels of the status bar
inline constexpr QRgb kField = 0xFFFFFFFF;
inline constexpr QRgb kFieldLine = 0xFF8A8168;
inline constexpr QRgb kOff = 0xFFFBF1DC;  // display-only fields, off buttons
inline constexpr QRgb kOffLine = 0xFFE3D6B4;
inline constexpr QRgb kOffText = 0xFF857D69;  // of buttons, menus and tools that are off
inline constexpr QRgb kOffIcon = 0xFFA79E86;
inline constexpr QRgb kLocked = 0xFFF1EFE9;
inline constexpr QRgb kWhiteText = 0xFFFFFFFF;

inline constexpr QRgb kGridHead = 0xFFBFE6E4;
inline constexpr QRgb kGridHeadLine = 0xFF8FBDBD;
inline constexpr QRgb kGridHeadMark = 0xFFA0CCCB;  // where a title over several columns begins
inline constexpr QRgb kGridFrame = 0xFF9CC3C3;
inline constexpr QRgb kGridZebra = 0xFFF0FAFA;
inline constexpr QRgb kGridCell = 0xFFD3E2E2;     // cell lines
inline constexpr QRgb kGridSeen = 0xFFCFE9EA;     // current row while the focus is elsewhere
inline constexpr QRgb kCurrentCell = 0xFF5C9CA1;  // cell lines of the current row
inline constexpr QRgb kLane = 0xFFEFE9DA;         // lane of the scroll bar
inline constexpr QRgb kThumb = 0xFFB9AF93;

inline constexpr QRgb kIdle = 0xFFDCEBEA;  // mode strips
inline constexpr QRgb kModify = 0xFF8A4B00;
inline constexpr QRgb kDelete = 0xFFA3211B;

inline constexpr QRgb kWarn = 0xFFFFE3B3;
inline constexpr QRgb kWarnLine = 0xFF8A4B00;
inline constexpr QRgb kError = 0xFFA3211B;
inline constexpr QRgb kSavedPrint = 0xFFD0D0FF;
inline constexpr QRgb kSavedNew = 0xFFF0F0FF;

inline constexpr QRgb kDim = 0x6B1D2B2E;  // over what lies behind a box

// From the blue, green, red order of the records.
QColor fromBgr(Bgr colour);

}  // namespace palette
