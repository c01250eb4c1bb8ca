// Writes the drawing files the program ships, from their authored source: the test sheet of the drawing engine.
#include <cstdio>
#include <filesystem>
#include <string>

#include "drawings/drawing_builder.h"
#include "properties/vb.h"

using namespace kestrane;

namespace {

// The test sheet: every entity kind, pen, text justification and angle, dimension kind, both angle dimension
// kinds, dimmed and hidden layers, framed and multi-line texts, and the characters beyond ASCII that drawings use.
Drawing TestSheet() {
  Drawing d = NewDrawing(2, 1.0f, 0.09f, 1);  // 15 x 9.75 in; inch dimensions with millimetres below
  d.titles = {"DRAWING ENGINE TEST SHEET", "EVERY ENTITY, PEN, JUSTIFICATION AND DIMENSION KIND"};
  d.layers[2] = LayerRow{1, 0xFFFFFF};  // dimmed
  d.layers[3] = LayerRow{2, 0xFFFFFF};  // hidden
  AddTitleBlock(d, "TESSEL CORPORATION", "DRAWING ENGINE TEST SHEET");

  // Pens 1 to 8: colour and line style of each.
  AddText(d, 0.6f, 9.2f, 0.12f, 1, "PENS");
  for (int16_t pen = 1; pen <= 8; ++pen) {
    const float y = 9.0f - 0.3f * static_cast<float>(pen);
    AddLine(d, 0.6f, y, 2.6f, y, pen);
    AddText(d, 2.75f, y, 0.08f, 2, "PEN " + std::to_string(pen));
  }
  // The dimmed layer draws grey, the hidden one not at all.
  AddLine(d, 0.6f, 6.2f, 2.6f, 6.2f, 1, 2);
  AddText(d, 2.75f, 6.2f, 0.08f, 2, "DIMMED LAYER");
  AddLine(d, 0.6f, 5.95f, 2.6f, 5.95f, 1, 3);
  AddText(d, 2.75f, 5.95f, 0.08f, 2, "HIDDEN LAYER (NONE)");

  // Justification 1 to 9 about a marked point each.
  AddText(d, 4.3f, 9.2f, 0.12f, 1, "JUSTIFY");
  for (int16_t j = 1; j <= 9; ++j) {
    const float x = 4.6f + 1.1f * static_cast<float>((j - 1) / 3), y = 8.5f - 0.55f * static_cast<float>((j - 1) % 3);
    AddLine(d, x - 0.08f, y, x + 0.08f, y, 4);
    AddLine(d, x, y - 0.08f, x, y + 0.08f, 4);
    AddText(d, x, y, 0.08f, j, "J" + std::to_string(j));
  }

  // Texts at every angle about one point, a framed text and a text of three lines.
  AddText(d, 8.6f, 9.2f, 0.12f, 1, "ANGLES");
  for (int a = 0; a < 360; a += 45) AddText(d, 9.6f, 7.9f, 0.08f, 1, "  " + std::to_string(a) + "\xC2\xB0", static_cast<float>(a));
  AddText(d, 12.4f, 8.7f, 0.1f, 5, "FRAMED NOTE", 0, 2, 1);
  AddText(d, 12.4f, 8.0f, 0.08f, 5, "FIRST LINE||SECOND LINE||THIRD LINE");
  AddText(d, 12.4f, 7.3f, 0.1f, 5, "\xC3\x98" "4\" 150# \xC2\xB1" "1/16 \xC2\xBD \xC2\xBC \xC2\xBE \xC2\xB5m");

  // A vessel with nozzles, centre lines, arcs and linear dimensions of every kind.
  const float left = 1.2f, right = 6.2f, bottom = 1.8f, top = 3.8f;
  AddLine(d, left, bottom, right, bottom, 1);
  AddLine(d, left, top, right, top, 1);
  AddArc(d, left, (bottom + top) / 2, 1.0f, 90, 270, 1);  // heads
  AddArc(d, right, (bottom + top) / 2, 1.0f, 270, 450, 1);
  AddCentreLine(d, left - 1.0f, 2.8f, right + 1.0f, 2.8f);
  AddNozzle(d, 2.2f, top, 90, 0.6f, 0.5f, "SUCTION?");
  AddNozzle(d, 5.2f, top, 90, 0.6f, 0.4f, "MOTIVE?");
  AddNozzle(d, right + 1.0f, 2.8f, 0, 0.5f, 0.6f, "DISCHARGE?");
  AddNozzle(d, 3.7f, bottom, 270, 0.5f, 0.3f, "DRAIN?");
  AddDimension(d, left, top + 1.8f, right, top + 1.8f, 1, "");                 // arrows both ends, length
  AddDimension(d, left, bottom - 0.5f, 2.2f, bottom - 0.5f, 2, "");            // outside, to the right
  AddDimension(d, 5.2f, bottom - 0.5f, right, bottom - 0.5f, 3, "");           // outside, to the left
  AddDimension(d, right + 2.3f, bottom, right + 2.3f, top, 4, "A?", 1);        // a placeholder, text only
  AddDimension(d, left - 1.6f, bottom, left - 1.6f, top, 5, "\xC3\x98");        // a diameter: inches, no feet
  AddDimension(d, 7.8f, 1.6f, 9.6f, 3.0f, 6, "R. ");                            // single head, sloping
  AddDimension(d, 2.2f, top + 1.2f, 5.2f, top + 1.2f, 7, "B?", 1);
  AddNote(d, 8.4f, 4.9f, 6.1f, 3.6f, "SHELL: CARBON STEEL");
  AddLeader(d, 10.3f, 1.6f, 11.2f, 2.4f, false);

  // Circles, arcs and angle dimensions, inside and outside.
  AddArc(d, 12.0f, 4.6f, 0.9f, 0, 360, 1);
  AddArc(d, 12.0f, 4.6f, 0.6f, 30, 150, 5);
  AddCentreLine(d, 10.8f, 4.6f, 13.2f, 4.6f, 0.1f);
  AddCentreLine(d, 12.0f, 3.4f, 12.0f, 5.8f, 0.1f);
  AddAngle(d, 12.0f, 4.6f, 1.2f, 0, 60, 0, "");
  AddAngle(d, 12.0f, 4.6f, 1.2f, 120, 150, 1, "");
  AddAngle(d, 12.0f, 4.6f, 1.4f, 200, 250, 0, "BEND", 1);
  return d;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_drawings FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  try {
    WriteDrawing(TestSheet(), folder / "TESTSHEET.CAD");
  } catch (const VbError& e) {
    std::fprintf(stderr, "TESTSHEET.CAD: %s\n", e.what());
    return 1;
  }
  return 0;
}
