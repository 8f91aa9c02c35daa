// The canvas operation table behind the row CANVAS: a gesture on the canvas by its recorded code.
#pragma once

#include <span>
#include <string>

namespace ostrel {

struct CanvasOperation {
  int nCode;
  const wchar_t* strText;
};

// The rows in code order.
std::span<const CanvasOperation> CanvasOperations() noexcept;

// The text of a code, or the empty string for a code that has no row.
std::wstring CanvasOperationText(int code);

}  // namespace ostrel
