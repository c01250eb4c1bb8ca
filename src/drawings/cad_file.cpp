// The .CAD drawing file: its reader with the load failure message, and its writer.
#include <charconv>
#include <cstdio>

#include "drawings/drawing.h"
#include "properties/list_input.h"
#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

namespace {

constexpr size_t kTitleWidth = 60;

// Rows 1..count of a table, each read by `read`; a row beyond the table's maximum is error 9.
template <typename Table, typename ReadRow>
void ReadRows(Table& table, ReadRow read) {
  for (int i = 1; i <= table.count; ++i) read(table(i));
}

void ReadDrawing(Drawing& d, ListInput& in) {
  const int16_t format = in.Integer();
  d.SheetNo = in.Integer();
  d.DrawScale = in.Single();
  for (int i = 0; i < 4; ++i) in.Single();
  d.TextHeight = in.Single();
  // The header checks fail without a run-time error: number 0, no text.
  if (format != 1) {
    d.SheetNo = 10;
    d.DrawScale = 1.0f;
    throw VbError(0, "");
  }
  if (d.SheetNo < 1 || d.SheetNo > 10) {
    d.SheetNo = 10;
    throw VbError(0, "");
  }
  if (d.DrawScale == 0) {
    d.DrawScale = 1.0f;
    throw VbError(0, "");
  }

  d.Lines.count = in.Integer();
  d.Arcs.count = in.Integer();
  d.Leaders.count = in.Integer();
  d.Dimensions.count = in.Integer();
  d.Texts.count = in.Integer();
  d.Angles.count = in.Integer();
  d.DimMode = in.Integer();
  d.SlantAngle = in.Single();
  if (d.SlantAngle == 0) d.SlantAngle = 15.0f;
  d.MmRound = in.Integer();
  d.UseLayerColours = in.Integer();
  in.Integer();

  for (auto& title : d.titles) title = CutTo(in.Line(), kTitleWidth);
  for (size_t i = 1; i < d.layers.size(); ++i) {
    d.layers[i].state = in.Integer();
    d.layers[i].colour = in.Long();
    in.Line();  // the layer's name
  }

  ReadRows(d.Lines, [&](LineRow& r) {
    for (float* v : {&r.x1, &r.y1, &r.x2, &r.y2, &r.basex, &r.basey}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.scaled}) *v = in.Integer();
  });
  ReadRows(d.Arcs, [&](ArcRow& r) {
    for (float* v : {&r.basex, &r.basey, &r.cx, &r.cy, &r.radius, &r.a0, &r.a1}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.scaled}) *v = in.Integer();
  });
  ReadRows(d.Leaders, [&](LeaderRow& r) {
    for (float* v : {&r.x1, &r.y1, &r.x2, &r.y2, &r.basex, &r.basey}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.arrow}) *v = in.Integer();
  });
  ReadRows(d.Texts, [&](TextRow& r) {
    for (float* v : {&r.basex, &r.basey, &r.x, &r.y, &r.height, &r.angle, &r.slant}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.justify, &r.frame, &r.width}) *v = in.Integer();
    r.text = FixedWidth(in.Line(), kTextWidth);
  });
  ReadRows(d.Dimensions, [&](DimensionRow& r) {
    for (float* v : {&r.x1, &r.y1, &r.x2, &r.y2}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.kind, &r.format, &r.textonly}) *v = in.Integer();
    r.label = FixedWidth(in.Line(), kLabelWidth);
  });
  ReadRows(d.Angles, [&](AngleRow& r) {
    for (float* v : {&r.cx, &r.cy, &r.a0, &r.a1, &r.radius}) *v = in.Single();
    for (int16_t* v : {&r.pen, &r.layer, &r.kind, &r.noangle}) *v = in.Integer();
    r.label = FixedWidth(in.Line(), kLabelWidth);
  });
}

// A single in the shortest text that reads back to the same single.
std::string SingleText(float v) {
  char buf[48];
  const auto end = std::to_chars(buf, buf + sizeof buf, v).ptr;
  std::string text(buf, end);
  if (IsPlainNumber(text) && CSng(Val(text)) == v) return text;
  std::snprintf(buf, sizeof buf, "%.9G", static_cast<double>(v));
  return buf;
}

// Values as one list line: singles first, then integers.
std::string ListLine(std::initializer_list<float> singles, std::initializer_list<int32_t> integers) {
  std::string line;
  for (float v : singles) line += (line.empty() ? "" : ",") + SingleText(v);
  for (int32_t v : integers) line += (line.empty() ? "" : ",") + std::to_string(v);
  return line;
}

}  // namespace

void LoadDrawing(Drawing& d, const std::filesystem::path& path, [[maybe_unused]] int16_t reserved, int16_t& failed,
                 Ui& ui) {
  failed = 0;
  try {
    ListInput in(path);
    ReadDrawing(d, in);
  } catch (...) {
    const VbError e = CaughtError();
    ui.notice("Drawing file read failed...ERROR: " + std::to_string(e.number()) + ">>>  " + e.description() +
              " <<<   " + path.string());
    failed = 1;
  }
}

void WriteDrawing(const Drawing& d, const std::filesystem::path& path) {
  TextOutput out(path);
  out.PrintLine(ListLine({}, {1, d.SheetNo}) + "," + ListLine({d.DrawScale, 0, 0, 0, 0, d.TextHeight}, {}));
  out.PrintLine(ListLine({}, {d.Lines.count, d.Arcs.count, d.Leaders.count, d.Dimensions.count, d.Texts.count,
                              d.Angles.count, d.DimMode}) +
                "," + ListLine({d.SlantAngle}, {d.MmRound, d.UseLayerColours, 0}));
  for (const auto& title : d.titles) out.PrintLine(title);
  for (size_t i = 1; i < d.layers.size(); ++i) {
    out.PrintLine(ListLine({}, {d.layers[i].state, d.layers[i].colour}));
    out.PrintLine("Layer " + std::to_string(i));
  }
  for (int i = 1; i <= d.Lines.count; ++i) {
    const LineRow& r = d.Lines(i);
    out.PrintLine(ListLine({r.x1, r.y1, r.x2, r.y2, r.basex, r.basey}, {r.pen, r.layer, r.scaled}));
  }
  for (int i = 1; i <= d.Arcs.count; ++i) {
    const ArcRow& r = d.Arcs(i);
    out.PrintLine(ListLine({r.basex, r.basey, r.cx, r.cy, r.radius, r.a0, r.a1}, {r.pen, r.layer, r.scaled}));
  }
  for (int i = 1; i <= d.Leaders.count; ++i) {
    const LeaderRow& r = d.Leaders(i);
    out.PrintLine(ListLine({r.x1, r.y1, r.x2, r.y2, r.basex, r.basey}, {r.pen, r.layer, r.arrow}));
  }
  for (int i = 1; i <= d.Texts.count; ++i) {
    const TextRow& r = d.Texts(i);
    out.PrintLine(ListLine({r.basex, r.basey, r.x, r.y, r.height, r.angle, r.slant},
                           {r.pen, r.layer, r.justify, r.frame, r.width}));
    out.PrintLine(r.text);
  }
  for (int i = 1; i <= d.Dimensions.count; ++i) {
    const DimensionRow& r = d.Dimensions(i);
    out.PrintLine(ListLine({r.x1, r.y1, r.x2, r.y2}, {r.pen, r.layer, r.kind, r.format, r.textonly}));
    out.PrintLine(r.label);
  }
  for (int i = 1; i <= d.Angles.count; ++i) {
    const AngleRow& r = d.Angles(i);
    out.PrintLine(ListLine({r.cx, r.cy, r.a0, r.a1, r.radius}, {r.pen, r.layer, r.kind, r.noangle}));
    out.PrintLine(r.label);
  }
  out.Commit();
}

}  // namespace kestrane
