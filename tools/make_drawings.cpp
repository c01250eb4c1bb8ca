// Writes the drawing files the program ships, from their authored source: the equipment drawings whose
// placeholders the design fills, the tail leg sheet, and the test sheet of the drawing engine.
#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

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


constexpr const char* kMaker = "TESSEL CORPORATION";

// An equipment drawing on the smallest sheet: its border, the title block holding the placeholder of the
// equipment's description, and the kind of equipment across the top.
Drawing EquipmentSheet(const std::string& title) {
  Drawing d = NewDrawing(1, 1.0f, 0.11f, 0);  // 9.75 x 6.75 in; dimensions are placeholders, text only
  d.titles = {title, "PRELIMINARY GENERAL ARRANGEMENT"};
  AddTitleBlock(d, kMaker, "DESCRIPTION?");
  AddText(d, 9.4f, 6.35f, 0.14f, 8, title);
  AddText(d, 9.4f, 6.1f, 0.1f, 8, "PRELIMINARY GENERAL ARRANGEMENT");
  return d;
}

// The steam jet ejector: steam chest with the motive nozzle inside, suction chamber, and the converging-diverging
// diffuser; A from the centre line to the suction face, B from the motive face to the suction centre, C on to the
// discharge face.
Drawing Ejector() {
  Drawing d = EquipmentSheet("STEAM JET EJECTOR");
  const float yc = 3.3f, motive = 2.2f, chest = 2.8f, chamber = 4.1f, suction = 3.45f, throat = 5.4f,
              exit = 7.7f;
  const Axis a{0, yc, 0};
  AddCentreLine(d, motive, yc, exit, yc);
  AddCylinder(d, a, motive, chest - 0.08f, 0.8f);                       // steam chest
  AddBodyFlange(d, a, chest, 1.2f, 0.08f);
  AddCylinder(d, a, chest + 0.08f, chamber - 0.08f, 1.2f);              // suction chamber
  AddCone(d, a, motive, 0.3f, suction + 0.35f, 0.12f, 5);               // motive nozzle, hidden
  AddBodyFlange(d, a, chamber, 1.2f, 0.08f);
  AddCone(d, a, chamber + 0.08f, 1.0f, throat - 0.5f, 0.45f);           // converging inlet
  AddCone(d, a, throat - 0.5f, 0.45f, throat, 0.45f);                   // throat
  AddCone(d, a, throat, 0.45f, exit, 0.9f);                             // diverging outlet
  AddNozzle(d, motive, yc, 180, 0.38f, 0.35f, "MOTIVE?", "MOTIVE STEAM");
  AddText(d, 1.55f, yc - 0.34f, 0.1f, 8, "NPT");                       // the motive connection's standard
  AddNozzle(d, suction, yc + 0.6f, 90, 0.55f, 0.8f, "SUCTION?", "SUCTION");
  AddNozzle(d, exit, yc, 0, 0.3f, 0.9f, "DISCHARGE?", "DISCHARGE");
  const float face = yc + 0.6f + 0.55f + 0.12f;
  AddMeasure(d, suction + 0.85f, yc, suction + 0.85f, face, -0.45f, "A?");
  AddMeasure(d, 1.7f, 2.6f, suction, 2.6f, -0.45f, "B?");
  AddMeasure(d, suction, 2.6f, exit + 0.42f, 2.6f, -0.45f, "C?");
  AddNote(d, 6.2f, 4.3f, 5.6f, yc + 0.3f, "DIFFUSER");
  AddNote(d, 1.2f, 4.5f, 2.5f, yc + 0.42f, "STEAM CHEST");
  return d;
}

// A surface condenser's arrangement: vertical or horizontal, the inlet head a channel with cover (A) or a bonnet
// (B), the return head likewise (L or M), and for a horizontal one whether the water passes an even number of times
// (both water nozzles on the inlet head) or an odd one (water out at the return head).
struct CondenserType {
  bool vertical;
  bool channel_inlet, channel_return;
  bool even;
};

// A horizontal surface condenser on two saddles: inlet head on the left, vapour in at the top near it, vapour out
// at the far end, condensate out at the bottom. A overall, B vapour in to out, C tubesheet to vapour in, D centre
// line to the nozzle faces, E tubesheet to the first saddle, F between the saddles, G water to vapour nozzle.
void HorizontalCondenser(Drawing& d, const CondenserType& t) {
  const float yc = 3.8f, od = 1.2f, ts1 = 2.5f, ts2 = 7.1f, top = yc + od / 2, bottom = yc - od / 2;
  const float nozzle = 0.45f, face = top + nozzle + 0.12f, vi = 3.3f, vo = 6.4f, co = 5.2f;
  const float saddle1 = 3.2f, saddle2 = 6.5f, floor = 2.5f;
  const Axis a{0, yc, 0};
  const float in_len = t.channel_inlet ? 0.75f : 0.5f, out_len = t.channel_return ? 0.6f : 0.4f;
  const float left = ts1 - 0.1f - in_len - (t.channel_inlet ? 0.2f : 0.25f * od);
  const float right = ts2 + 0.1f + out_len + (t.channel_return ? 0.2f : 0.25f * od);
  AddCentreLine(d, left, yc, right, yc);
  AddCylinder(d, a, ts1, ts1 + 0.1f, od + 0.3f);  // tubesheets
  AddCylinder(d, a, ts2 - 0.1f, ts2, od + 0.3f);
  AddCylinder(d, a, ts1 + 0.1f, ts2 - 0.1f, od);  // shell
  AddTubeBundle(d, a, ts1 + 0.1f, ts2 - 0.1f, od, 5);
  AddExchangerHead(d, a, ts1, od, in_len, -1, t.channel_inlet);
  AddExchangerHead(d, a, ts2, od, out_len, 1, t.channel_return);
  const float win = ts1 - 0.1f - in_len / 2, wout = t.even ? win : ts2 + 0.1f + out_len / 2;
  AddNozzle(d, vi, top, 90, nozzle, 0.55f, "VI?", "VAPOR IN");
  AddNozzle(d, vo, top, 90, nozzle, 0.35f, "VO?", "VAPOR OUT");
  AddNozzle(d, co, bottom, 270, 0.3f, 0.25f, "CO?", "CONDENSATE");
  AddText(d, co + 0.38f, bottom - 0.57f, 0.1f, 3, "NPT");  // the condensate connection's standard
  AddNozzle(d, win, bottom, 270, nozzle, 0.35f, "WI?", "WATER IN");
  AddNozzle(d, wout, top, 90, nozzle, 0.35f, "WO?", "WATER OUT");
  AddSaddle(d, saddle1, bottom, floor, 0.25f);
  AddSaddle(d, saddle2, bottom, floor, 0.25f);
  AddMeasure(d, left, 3.0f, right, 3.0f, -1.5f, "A?");
  AddMeasure(d, vi, 5.5f, vo, 5.5f, 0.25f, "B?");
  AddMeasure(d, ts1, 5.5f, vi, 5.5f, 0.25f, "C?");
  AddMeasure(d, left - 0.1f, yc, left - 0.1f, face, 0.55f, "D?");
  AddMeasure(d, ts1, 2.4f, saddle1, 2.4f, -0.45f, "E?");
  AddMeasure(d, saddle1, 2.4f, saddle2, 2.4f, -0.45f, "F?");
  AddMeasure(d, win, 5.9f, vi, 5.9f, 0.25f, "G?");
}

// A vertical surface condenser on two lugs: inlet head at the bottom with both water nozzles, return head on top,
// vapour in near the top, vapour out and condensate near the bottom. A overall, B vapour out to in, C tubesheet to
// water nozzles, D centre line to the vapour nozzle faces, E to the water nozzle faces, F tubesheet to the lugs,
// G centre line to the lug bolts.
void VerticalCondenser(Drawing& d, const CondenserType& t) {
  const float xc = 3.0f, od = 1.1f, ts1 = 1.9f, ts2 = 5.1f, right = xc + od / 2, left = xc - od / 2;
  const float nozzle = 0.45f, face = right + nozzle + 0.12f, vi = 4.6f, vo = 2.9f, co = 2.2f, lug = 3.6f;
  const Axis a{xc, 0, 90};
  const float in_len = t.channel_inlet ? 0.6f : 0.4f, out_len = t.channel_return ? 0.5f : 0.35f;
  const float low = ts1 - 0.1f - in_len - (t.channel_inlet ? 0.2f : 0.25f * od);
  const float high = ts2 + 0.1f + out_len + (t.channel_return ? 0.2f : 0.25f * od);
  AddCentreLine(d, xc, low, xc, high);
  AddCylinder(d, a, ts1, ts1 + 0.1f, od + 0.3f);
  AddCylinder(d, a, ts2 - 0.1f, ts2, od + 0.3f);
  AddCylinder(d, a, ts1 + 0.1f, ts2 - 0.1f, od);
  AddTubeBundle(d, a, ts1 + 0.1f, ts2 - 0.1f, od, 5);
  AddExchangerHead(d, a, ts1, od, in_len, -1, t.channel_inlet);
  AddExchangerHead(d, a, ts2, od, out_len, 1, t.channel_return);
  const float water = ts1 - 0.1f - in_len / 2;
  AddNozzle(d, right, vi, 0, nozzle, 0.55f, "VI?", "VAPOR IN");
  AddNozzle(d, right, vo, 0, nozzle, 0.35f, "VO?", "VAPOR OUT");
  AddNozzle(d, right, co, 0, nozzle, 0.25f, "CO?", "CONDENSATE");
  AddText(d, face + 0.75f, co, 0.1f, 2, "NPT");  // the condensate connection's standard
  AddNozzle(d, left, water, 180, nozzle, 0.35f, "WI?", "WATER IN");
  AddNozzle(d, right, water, 0, nozzle, 0.35f, "WO?", "WATER OUT");
  AddLug(d, right, lug, 0.4f, 1);
  AddLug(d, left, lug, 0.4f, -1);
  AddMeasure(d, left - 0.3f, low, left - 0.3f, high, 1.65f, "A?");
  AddMeasure(d, 5.2f, vo, 5.2f, vi, -0.3f, "B?");
  AddMeasure(d, 5.2f, water, 5.2f, ts1, -0.3f, "C?");
  AddMeasure(d, xc, 5.25f, face, 5.25f, 0.9f, "D?");
  AddMeasure(d, xc, 0.9f, face, 0.9f, -0.35f, "E?");
  AddMeasure(d, left - 0.3f, ts1, left - 0.3f, lug, 0.95f, "F?");
  AddMeasure(d, left - 0.24f, lug + 0.15f, xc, lug + 0.15f, 2.4f, "G?");
}

// One of the twelve surface condenser drawings.
Drawing SurfaceCondenser(const CondenserType& t) {
  Drawing d = EquipmentSheet(t.vertical ? "VERTICAL SURFACE CONDENSER" : "HORIZONTAL SURFACE CONDENSER");
  if (t.vertical) {
    VerticalCondenser(d, t);
  } else {
    HorizontalCondenser(d, t);
  }
  AddText(d, 9.4f, 5.85f, 0.1f, 8,
          std::string("TEMA TYPE ") + (t.channel_inlet ? "A" : "B") + "E" + (t.channel_return ? "L" : "M") +
              (t.vertical ? "" : t.even ? ", EVEN PASSES" : ", ODD PASSES"));
  return d;
}

// The barometric condenser: a vertical shell with a dished top, vapour in low on the side, water in high on the
// other, vapour out on top and the tail pipe below its cone. A centre line to the vapour inlet face, B to the water
// inlet face, C tail pipe face to vapour inlet, D on to water inlet, F on to the vapour outlet face, G overall.
Drawing Barometric() {
  Drawing d = EquipmentSheet("BAROMETRIC CONDENSER");
  const float xc = 3.2f, od = 1.4f, low = 3.0f, high = 5.2f, vi = 3.5f, wi = 4.7f, cone = 2.4f;
  const Axis a{xc, 0, 90};
  const float top = high + 0.25f * od, vo_face = top + 0.3f + 0.12f, wo_face = 0.68f;
  AddCentreLine(d, xc, wo_face, xc, vo_face);
  AddCylinder(d, a, low, high, od);
  AddDishedHead(d, a, high, od, 1);
  AddCone(d, a, low, od, cone, 0.45f);
  for (float y : {3.85f, 4.25f}) {  // cascade trays, hidden: a disc and a donut
    AddLine(d, xc - od / 2, y, xc + od * 0.2f, y, 5);
    AddLine(d, xc - od * 0.2f, y + 0.2f, xc + od / 2, y + 0.2f, 5);
  }
  AddNozzle(d, xc, top, 90, 0.3f, 0.3f, "VO?", "VAPOR OUT");
  AddNozzle(d, xc - od / 2, vi, 180, 0.5f, 0.5f, "VI?", "VAPOR IN");
  AddNozzle(d, xc + od / 2, wi, 0, 0.45f, 0.35f, "WI?", "WATER IN");
  AddNozzle(d, xc, cone, 270, cone - wo_face - 0.12f, 0.45f, "WO?", "WATER OUT");
  AddPipeBreak(d, xc, 1.5f, 0.45f);
  AddNote(d, 3.9f, 1.2f, xc + 0.25f, 1.9f, "TAIL PIPE||34'-0\" MIN.");
  AddMeasure(d, xc - od / 2 - 0.62f, 2.95f, xc, 2.95f, -0.35f, "A?");
  AddMeasure(d, xc, 5.1f, xc + od / 2 + 0.57f, 5.1f, 0.35f, "B?");
  AddMeasure(d, 5.3f, wo_face, 5.3f, vi, -0.3f, "C?");
  AddMeasure(d, 5.3f, vi, 5.3f, wi, -0.3f, "D?");
  AddMeasure(d, 5.3f, wi, 5.3f, vo_face, -0.3f, "F?");
  AddMeasure(d, 0.85f, wo_face, 0.85f, vo_face, 0.3f, "G?");
  return d;
}

// The liquid ring vacuum pump with its motor and coupling guard on a base, side view and end view: A the base's
// length, C its bottom to the nozzle faces, W its width; the seal liquid connection SLC and the two nozzles.
Drawing LiquidRingPump() {
  Drawing d = EquipmentSheet("LIQUID RING VACUUM PUMP");
  const float base_top = 2.6f, base_bottom = 2.3f, shaft = 3.5f, casing = 1.2f, face = shaft + casing / 2 + 0.52f;
  const float x0 = 1.8f, pump = x0 + 0.5f, pump_end = pump + 1.6f, motor = pump_end + 0.7f, base_end = motor + 2.2f;
  const Axis a{0, shaft, 0};
  AddBasePlate(d, x0, base_end, base_top, base_top - base_bottom);
  AddCylinder(d, a, pump, pump_end, casing);                          // pump casing
  AddCylinder(d, a, pump - 0.25f, pump, 0.5f);                        // bearing housings
  AddCylinder(d, a, pump_end, pump_end + 0.25f, 0.5f);
  AddBox(d, pump + 0.2f, base_top, pump_end - 0.2f, shaft - casing / 2);  // pedestal
  AddBox(d, pump_end + 0.25f, shaft - 0.35f, motor, shaft + 0.35f);   // coupling guard
  AddMotor(d, motor, shaft, 2.0f, 1.1f, base_top);
  AddCentreLine(d, pump - 0.25f, shaft, motor, shaft);
  AddNozzle(d, pump + 0.3f, shaft + casing / 2, 90, 0.4f, 0.45f, "VI?", "VAPOR IN");
  AddNozzle(d, pump_end - 0.3f, shaft + casing / 2, 90, 0.4f, 0.4f, "VO?", "DISCHARGE");
  AddNozzle(d, pump, shaft - 0.4f, 180, 0.5f, 0.15f, "SLC?", "SEAL LIQUID");
  AddText(d, (x0 + base_end) / 2, 1.45f, 0.1f, 5, "SIDE VIEW");
  // End view from the pump's free end.
  const float ex = 8.45f, half = 0.8f;
  AddBasePlate(d, ex - half, ex + half, base_top, base_top - base_bottom);
  AddArc(d, ex, shaft, casing / 2, 0, 360, 8);
  AddArc(d, ex, shaft, 0.25f, 0, 360, 8);
  AddBox(d, ex - 0.5f, base_top, ex + 0.5f, shaft - casing / 2 + 0.1f);
  AddLine(d, ex - 0.2f, shaft + casing / 2 - 0.02f, ex - 0.2f, face - 0.12f, 1);
  AddLine(d, ex + 0.2f, shaft + casing / 2 - 0.02f, ex + 0.2f, face - 0.12f, 1);
  AddFlange(d, ex, face - 0.12f, 0.8f, 0.12f, 90);
  AddCentreLine(d, ex - half, shaft, ex + half, shaft);
  AddCentreLine(d, ex, base_bottom, ex, face);
  AddText(d, ex, 1.45f, 0.1f, 5, "END VIEW");
  AddMeasure(d, x0, 2.25f, base_end, 2.25f, -0.5f, "A?");
  AddMeasure(d, base_end + 0.1f, base_bottom, base_end + 0.1f, face, -0.35f, "C?");
  AddMeasure(d, ex - half, 2.25f, ex + half, 2.25f, -0.5f, "W?");
  return d;
}

// The tail leg sheet: a condenser above the condensate receiver with the tail leg between, its height marked, and
// the data block that the calculator fills (receiver and condenser pressures, gravity, the two answers; the date in
// the title block).
Drawing TailLeg() {
  Drawing d = NewDrawing(1, 1.0f, 0.11f, 0);
  d.titles = {"CONDENSATE TAIL LEG HEIGHT", "CALCULATOR PRINT-OUT"};
  AddTitleBlock(d, kMaker, "CONDENSATE TAIL LEG HEIGHT", "?6");
  AddText(d, 9.4f, 6.35f, 0.14f, 8, "CONDENSATE TAIL LEG HEIGHT");
  // The condenser on top.
  const Axis cond{0, 5.2f, 0}, recv{0, 1.6f, 0};
  const float leg = 2.9f, level = 1.72f, outlet = 5.2f - 0.4f;
  AddCylinder(d, cond, 1.2f, 3.2f, 0.8f);
  AddDishedHead(d, cond, 1.2f, 0.8f, -1);
  AddDishedHead(d, cond, 3.2f, 0.8f, 1);
  AddCentreLine(d, 0.9f, 5.2f, 3.5f, 5.2f);
  // The receiver below, its liquid level marked, the leg dipping under it.
  AddCylinder(d, recv, 1.6f, 3.8f, 0.9f);
  AddDishedHead(d, recv, 1.6f, 0.9f, -1);
  AddDishedHead(d, recv, 3.8f, 0.9f, 1);
  AddLine(d, 1.5f, level, 3.9f, level, 5);
  AddLine(d, 3.5f, level + 0.12f, 3.6f, level, 1);  // level mark
  AddLine(d, 3.6f, level, 3.7f, level + 0.12f, 1);
  AddLine(d, 3.5f, level + 0.12f, 3.7f, level + 0.12f, 1);
  AddLine(d, leg - 0.1f, outlet, leg - 0.1f, 2.05f, 1);  // tail leg
  AddLine(d, leg + 0.1f, outlet, leg + 0.1f, 2.05f, 1);
  AddLine(d, leg - 0.1f, 2.05f, leg - 0.1f, 1.35f, 5);
  AddLine(d, leg + 0.1f, 2.05f, leg + 0.1f, 1.35f, 5);
  AddCentreLine(d, leg, 0.8f, leg, 5.7f);
  AddTubeBundle(d, cond, 1.2f, 3.2f, 0.8f, 3);
  AddNozzle(d, 1.8f, 5.6f, 90, 0.3f, 0.35f, "VAPOR IN");
  AddNozzle(d, 2.1f, 2.05f, 90, 0.3f, 0.2f, "VENT");
  AddNote(d, 1.3f, 4.3f, 1.6f, 4.8f, "CONDENSER");
  AddNote(d, 2.1f, 3.3f, leg - 0.12f, 3.2f, "TAIL LEG");
  AddNote(d, 4.3f, 1.45f, 3.95f, 1.55f, "CONDENSATE RECEIVER");
  AddMeasure(d, leg + 0.2f, level, leg + 0.2f, outlet, -0.9f, "MIN. HEIGHT");
  // The data block.
  const float x0 = 4.7f, x1 = 9.6f;
  AddBox(d, x0, 2.4f, x1, 5.8f);
  AddText(d, (x0 + x1) / 2, 5.55f, 0.12f, 5, "DESIGN DATA");
  AddLine(d, x0, 5.35f, x1, 5.35f, 1);
  AddText(d, x0 + 0.05f, 5.1f, 0.1f, 2, "?1");
  AddText(d, x0 + 0.05f, 4.8f, 0.1f, 2, "?2");
  AddText(d, x0 + 0.05f, 4.5f, 0.1f, 2, "?3");
  AddLine(d, x0, 4.25f, x1, 4.25f, 1);
  AddText(d, (x0 + x1) / 2, 4.0f, 0.12f, 5, "MINIMUM TAIL LEG HEIGHT");
  AddText(d, (x0 + x1) / 2 - 1.0f, 3.65f, 0.12f, 5, "?4");
  AddText(d, (x0 + x1) / 2 + 1.0f, 3.65f, 0.12f, 5, "?5");
  AddLine(d, x0, 3.35f, x1, 3.35f, 1);
  AddText(d, x0 + 0.1f, 3.05f, 0.1f, 2, "HEIGHT = (PR - PC) x 144 / (SG x 62.4) FEET");
  AddText(d, x0 + 0.1f, 2.7f, 0.1f, 2, "PR, PC IN PSIA; SG OF THE CONDENSATE");
  return d;
}

// Every drawing the program ships, by file name.
std::vector<std::pair<std::string, Drawing>> AllDrawings() {
  std::vector<std::pair<std::string, Drawing>> files;
  files.emplace_back("NJET.CAD", Ejector());
  for (const bool vertical : {true, false})
    for (const bool even : vertical ? std::vector<bool>{false} : std::vector<bool>{false, true})
      for (const bool channel_inlet : {true, false})
        for (const bool channel_return : {true, false}) {
          const std::string name = std::string(vertical ? "V" : "N") + (channel_inlet ? "A" : "B") + "E" +
                                   (channel_return ? "L" : "M") + (vertical ? "" : even ? "E" : "O") + ".CAD";
          files.emplace_back(name, SurfaceCondenser({vertical, channel_inlet, channel_return, even}));
        }
  files.emplace_back("NBARO.CAD", Barometric());
  files.emplace_back("NLRVP.CAD", LiquidRingPump());
  files.emplace_back("KSII.CAD", TailLeg());
  files.emplace_back("TESTSHEET.CAD", TestSheet());
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_drawings FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  for (const auto& [name, drawing] : AllDrawings()) {
    try {
      WriteDrawing(drawing, folder / name);
    } catch (const VbError& e) {
      std::fprintf(stderr, "%s: %s\n", name.c_str(), e.what());
      return 1;
    }
  }
  return 0;
}
