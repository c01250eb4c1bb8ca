// The fixed tables of the drawing engine: sheet sizes and pens.
#include "drawings/drawing.h"

namespace kestrane {

const std::array<SheetSize, 11> kSheets = {{{0.0f, 0.0f},
                                            {9.75f, 6.75f},
                                            {15.0f, 9.75f},
                                            {19.75f, 15.75f},
                                            {32.0f, 20.75f},
                                            {42.0f, 32.75f},
                                            {10.0f, 7.5f},
                                            {16.0f, 10.0f},
                                            {21.0f, 15.75f},
                                            {32.5f, 21.0f},
                                            {42.0f, 32.75f}}};

const std::array<Pen, 9> kPens = {{{0, kStyleSolid},
                                   {15, kStyleSolid},
                                   {14, kStyleSolid},
                                   {11, kStyleDashDot},
                                   {10, kStyleDot},
                                   {13, kStyleDash},
                                   {11, kStyleDot},
                                   {13, kStyleDashDotDot},
                                   {9, kStyleSolid}}};

}  // namespace kestrane
