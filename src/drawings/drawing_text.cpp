// Placeholders of a drawing filled with values, and the tables emptied for a drawing built by program.
#include "drawings/drawing.h"
#include "properties/list_input.h"

namespace kestrane {

void SetDrawingText(Drawing& d, const std::string& key, const std::string& value) {
  const std::string k = Trim(key);
  for (int i = 1; i <= d.Dimensions.count; ++i) {
    std::string& label = d.Dimensions(i).label;
    if (Trim(label) == k) label = FixedWidth(value, kLabelWidth);
  }
  for (int i = 1; i <= d.Texts.count; ++i) {
    std::string& text = d.Texts(i).text;
    if (Trim(text) == k) text = FixedWidth(value, kTextWidth);
  }
}

void ClearDrawing(Drawing& d) {
  d.Lines.count = 0;
  d.Arcs.count = 0;
  d.Leaders.count = 0;
  d.Texts.count = 0;
  d.Dimensions.count = 0;
  d.Angles.count = 0;
}

}  // namespace kestrane
