#pragma once

// Qt names X11's display in the global namespace, where the host's own Display stands. Every
// file of the program that needs QApplication takes it from here, before anything else of Qt.
#define Display X11Display
#include <QApplication>
#undef Display
