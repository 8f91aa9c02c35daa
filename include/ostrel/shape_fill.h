// The fill and the stroke of the active shape tool, read from its options, and the pen tool's shape mode. Every
// reader gives its default (-1, 0 or the empty string) when not connected, when the current tool has no shape
// options, when the side holds another kind of content than the one asked for, and when a call fails.
#pragma once

#include <cstdint>
#include <string>

#include "ostrel/export.h"
#include "ostrel/filters.h"

// What the fill holds: 0 switched off, 1 a solid colour, 2 a gradient, 3 a pattern; -1 not known.
OSTREL_API EnShapeColorPanel Ostrel_GetShapeFillMode() noexcept;
// The fill's solid colour, 0x00BBGGRR; 0 when the fill is off or isn't a colour.
OSTREL_API std::uint32_t Ostrel_GetShapeFillPureColor() noexcept;
// The name of the fill's gradient, a preset of Photoshop under its Chinese name; "" when off or not a gradient.
OSTREL_API std::wstring Ostrel_GetShapeFillGradientName() noexcept;
// The name of the fill's pattern, a preset of Photoshop under its Chinese name; "" when off or not a pattern.
OSTREL_API std::wstring Ostrel_GetShapeFillPatternName() noexcept;
// The scale of the fill's pattern; -1 when off or not a pattern.
OSTREL_API int Ostrel_GetShapeFillPatternScale() noexcept;
// The same five for the stroke.
OSTREL_API EnShapeColorPanel Ostrel_GetShapeStrokeMode() noexcept;
OSTREL_API std::uint32_t Ostrel_GetShapeStrokePureColor() noexcept;
OSTREL_API std::wstring Ostrel_GetShapeStrokeGradientName() noexcept;
OSTREL_API std::wstring Ostrel_GetShapeStrokePatternName() noexcept;
OSTREL_API int Ostrel_GetShapeStrokePatternScale() noexcept;
// Puts the pen tool into its shape mode. 1, or 0.
OSTREL_API int Ostrel_SetPenToolGeometryModeToShape() noexcept;
