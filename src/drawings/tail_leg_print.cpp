// The tail leg print-out: its drawing with the calculator's figures, fitted to the page.
#include "drawings/tail_leg_print.h"

namespace kestrane {

void PrintTailLeg(PageSink& printer, Drawing& d, const std::filesystem::path& ksii,
                  const std::array<std::string, 3>& inputs, const std::array<std::string, 2>& answers,
                  const std::string& date_text, Ui& ui) {
  int16_t failed = 0;
  LoadDrawing(d, ksii, 0, failed, ui);
  if (failed != 0) return;
  SetDrawingText(d, "?6", date_text);
  SetDrawingText(d, "?1", std::string(" ") + "Condensate Receiver Pressure:" + " " + Trim(inputs[0]) + " mmHgA");
  SetDrawingText(d, "?2", std::string(" ") + "Condenser Pressure:          " + " " + Trim(inputs[1]) + " mmHgA");
  SetDrawingText(d, "?3", std::string(" ") + "Condensate specific gravity: " + " " + Trim(inputs[2]));
  SetDrawingText(d, "?4", answers[0]);
  SetDrawingText(d, "?5", answers[1]);
  if (DrawingSurface* const page = printer.DrawingTarget()) {
    DrawingSurface* const screen_target = d.Target;
    const int16_t printing = d.Printing;
    d.Target = page;
    d.Printing = -1;  // on paper: lines, texts and dimensions in black
    printer.Touch();
    // The whole sheet, fitted to the page.
    const SheetSize sheet = ScaledSheet(d);
    d.ReqX1 = 0;
    d.ReqY1 = 0;
    d.ReqX2 = sheet.width;
    d.ReqY2 = sheet.height;
    ApplyView(d);
    for (int i = 1; i <= d.Lines.count; ++i) DrawLine(d, i, 0, 0);
    for (int i = 1; i <= d.Arcs.count; ++i) DrawArc(d, i, 0, 0);
    for (int i = 1; i <= d.Leaders.count; ++i) DrawLeader(d, i, 0, 0);
    for (int i = 1; i <= d.Texts.count; ++i) DrawTextEntity(d, i, 0, 0);
    for (int i = 1; i <= d.Dimensions.count; ++i) DrawDimension(d, i, 0, 0);
    for (int i = 1; i <= d.Angles.count; ++i) DrawAngleDimension(d, i, 0, 0);
    d.Target = screen_target;
    d.Printing = printing;
  }
  printer.EndDoc();
}

}  // namespace kestrane
