// kestrane drawing render: a drawing file with its placeholders filled, rendered to SVG, PDF or PNG.
#include <cstdio>

#include "cli.h"
#include "drawings/drawing.h"
#include "painter_surface.h"

namespace kestrane::cli {

namespace {

struct DrawingArgs {
  std::string file;
  std::string format;
  std::string out;
  std::vector<std::string> sets;  // KEY=VALUE
  int width = 1600;
  int height = 1200;
  bool screen = false;
};

int Render(const GlobalOptions& options, const DrawingArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(false);
  const std::filesystem::path font_file = session->data.paths.DataFile(kDrawingFontFile);
  DrawFont& font = session->data.font;
  if (!LoadDrawingFont(font_file, font)) FailToRead("The drawing font", font_file, ui);
  Drawing d;
  d.font = &font;
  int16_t failed = 0;
  LoadDrawing(d, args.file, 0, failed, ui);
  // The load's own message said what failed.
  if (failed != 0) throw Failure{kExitUsage, "The drawing " + args.file + " could not be read.", ui.notices, true};
  for (const std::string& set : args.sets) {
    const size_t eq = set.find('=');
    if (eq == std::string::npos) Fail(kExitUsage, "--set takes KEY=VALUE, not \"" + set + "\".", ui);
    SetDrawingText(d, set.substr(0, eq), set.substr(eq + 1));
  }
  StartPainting();
  std::string error;
  if (!RenderDrawingFile(d, args.format, args.out, args.width, args.height,
                         args.screen ? DrawingLook::kScreen : DrawingLook::kPrinted, error)) {
    Fail(kExitUsage, error, ui);
  }
  return kExitDone;
}

}  // namespace

void AddDrawingCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* drawing = app.add_subcommand("drawing", "Drawing files");
  drawing->require_subcommand(1);
  auto args = std::make_shared<DrawingArgs>();
  auto* render = drawing->add_subcommand("render", "Render a drawing file (.CAD), fitted to the page, as it prints");
  render->add_option("FILE", args->file, "Drawing file (.CAD)")->required();
  render->add_option("--format", args->format, "svg, pdf (a Letter page, landscape) or png")
      ->required()
      ->check(CLI::IsMember({"svg", "pdf", "png"}));
  render->add_option("-o,--output", args->out, "Output file")->required();
  render->add_option("--set", args->sets, "Fill a placeholder: KEY=VALUE (a text or dimension label equal to KEY)");
  render->add_option("--width", args->width, "Width in pixels, for svg and png (default 1600)")
      ->check(CLI::Range(16, 20000));
  render->add_option("--height", args->height, "Height in pixels, for svg and png (default 1200)")
      ->check(CLI::Range(16, 20000));
  render->add_flag("--screen", args->screen, "The screen's colours on black instead of black on white");
  render->callback([&options, &exit_code, args] { exit_code = Render(options, *args); });
}

}  // namespace kestrane::cli
