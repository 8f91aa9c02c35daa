// The bodies of the shape fill and stroke exports. They run connected, under the connection's lock; a failed call
// throws to the export boundary, which gives the export's default.
#pragma once

#include <cstdint>
#include <string>

namespace ostrel {

// The two sides of a shape: each has its content and its switch in the stroke style.
enum class ShapeSide { kFill, kStroke };

int ShapeContentMode(ShapeSide side);
std::uint32_t ShapeSolidColor(ShapeSide side);
std::wstring ShapeGradientName(ShapeSide side);
std::wstring ShapePatternName(ShapeSide side);
int ShapePatternScale(ShapeSide side);
int SetPenToolGeometryModeToShape();

// A colour of three channels as Photoshop's doubles: each cut toward zero and masked to 8 bits, red in the low
// byte (0x00BBGGRR).
std::uint32_t ColorFromChannels(double red, double green, double blue);

}  // namespace ostrel
