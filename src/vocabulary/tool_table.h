// The tool table as the rest of the library sees it: built by Ostrel_Init, searched linearly from row 0.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "ostrel/tools.h"

namespace ostrel {

// One row of the tool table.
struct tagToolInfo {
  int nIndex;              // EnToolIndex
  std::wstring strNameEN;  // Photoshop's tool id, case included
  std::wstring strNameCN;  // the name the learner reads
};

// Builds the table's 73 rows in search order, once: a second call gives the same table and frees nothing.
void BuildToolTable();

// The rows (none before the first Ostrel_Init).
std::span<const tagToolInfo> ToolTable() noexcept;

// The six conversions. Each walks the rows from the first and stops at the first match; names compare whole
// and with regard to case. Nothing found gives -1 or the empty string.
int ToolIndexFromNameCN(std::wstring_view nameCN) noexcept;
int ToolIndexFromNameEN(std::wstring_view nameEN) noexcept;
std::wstring ToolNameCN(int index);
std::wstring ToolNameEN(int index);
std::wstring ToolNameCNFromEN(std::wstring_view nameEN);
std::wstring ToolNameENFromCN(std::wstring_view nameCN);

}  // namespace ostrel
