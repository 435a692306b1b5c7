#pragma once

#include <memory>

#include "platform/paint.h"

// Painting through Qt: PDF files with embedded fonts, PNG pictures and the default printer.
namespace paint {

// Makes an off-screen application when none exists yet, so that papers can be made without a
// display. A program with windows makes its own application first.
void ensureGui();

// Calls ensureGui() first. A family that is not installed is replaced by its metric twin
// (Calibri by Carlito, Arial by Liberation Sans); scripts it lacks come from the Noto or Lohit fonts.
std::unique_ptr<Painter> makePainter();

}  // namespace paint
