// Cost of a whole redraw of the test sheet on a 1600 x 1200 image, as the drawing view redraws it on screen.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "drawings/drawing.h"
#include "painter_surface.h"
#include "shell/paths.h"

namespace {

using namespace kestrane;

void BM_DrawAllTestSheet(benchmark::State& state) {
  const ProgramPaths paths = PathsForProgram(ExecutableDirectory());
  DrawFont font;
  if (!LoadDrawingFont(paths.DataFile(kDrawingFontFile), font)) return state.SkipWithError("no drawing font");
  Drawing d;
  d.font = &font;
  RecordingUi ui;
  int16_t failed = 0;
  LoadDrawing(d, paths.DataFile("TESTSHEET.CAD"), 0, failed, ui);
  if (failed != 0) return state.SkipWithError("no test sheet");
  QImage image(1600, 1200, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  PainterSurface surface(painter, QRectF(image.rect()), QBColor(0));
  d.Target = &surface;
  ZoomFit(d);
  for (auto _ : state) DrawAll(d);
  state.counters["lines"] = d.Lines.count;
  state.counters["texts"] = d.Texts.count;
}
BENCHMARK(BM_DrawAllTestSheet)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
